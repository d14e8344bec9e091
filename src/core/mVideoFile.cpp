// The globals of the video that belongs to the data being played.
#include "core/mVideoFile.h"

#include "base/mNumText.h"

std::string gVideoFN;
std::string gVideoDir;
int16_t gVideoStrokes = 0;
int16_t gCurSample = 0;

std::string CutText(const std::string& Path, int Pictures)
{
    return "The video breaks off after " + FormatNum(Pictures, "0") +
           " pictures: the end of its file is missing: " + Path;
}
