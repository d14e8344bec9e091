// Whether a video file ends before it should, by the sizes that the file itself states.
#pragma once

#include <string>

/// Whether the end of the file is missing: a part is longer than what is left of the file, or an mp4 lacks the table
/// of its pictures. False for formats that state no sizes.
bool BreaksOff(const std::string& Path);
