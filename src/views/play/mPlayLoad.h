// The loading of a recording that the play view shows.
#pragma once

#include "views/play/cPlay.h"

#include <string>

/// Reads a file into gRaw: a recording, ".qvn", or an old sample file. Data takes its name, and the stored sample that
/// was made of it. False when it cannot be read (reported to the user): gRaw is as it was.
bool LoadPrimary(const std::string& Path, PlayData& Data);
