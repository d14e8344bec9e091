// The video that belongs to the data being played: which file it is, how many strokes it shows, and of which sample.
#pragma once

#include <cstdint>
#include <string>

/// What is said of a video whose file ends before it should, when so many pictures are left of it.
std::string CutText(const std::string& Path, int Pictures);

extern std::string gVideoFN;  // path of the video that is played beside data, empty when there is none
extern std::string gVideoDir; // folder of the last video, ending in the separator
extern int16_t gVideoStrokes; // strokes in the video, as the user gave them
extern int16_t gCurSample;    // row of gFile.Desc that is played, 0 when there is none
