// Old binary files of calibrated samples. They are read only.
#pragma once

#include <string>

/// Reads an old sample file with the session's channels into gRaw, gRawStart and gRawStop. False when it cannot be read
/// or is too short for its samples (reported to the user): everything is as it was.
bool ReadOldFile(const std::string& Path);
