// The video that belongs to the data being played: which file it is and how many strokes it shows.
#pragma once

#include <cstdint>
#include <string>

extern std::string gVideoFN;  // path of the video that is played beside data, empty when there is none
extern std::string gVideoDir; // folder of the last video, ending in the separator
extern int16_t gVideoStrokes; // strokes in the video, as the user gave them
