// The globals of the video that belongs to the data being played.
#include "core/mVideoFile.h"

std::string gVideoFN;
std::string gVideoDir;
int16_t gVideoStrokes = 0;
int16_t gCurSample = 0;
