// The rows of gVideoID: found, made and rewritten.
#include "video/mVidID.h"

#include "base/mNumText.h"
#include "platform/mHost.h"

#include <algorithm>

namespace {
template <class Test>
const VideoIDRow* FindVideo(const Test& IsIt)
{
    const auto Found = std::find_if(gVideoID.begin(), gVideoID.end(), IsIt);
    return Found == gVideoID.end() ? nullptr : &*Found;
}

VideoIDRow Filled(VideoIDRow Row, const DigitClip& Clip)
{
    Row.VideoFN = Clip.Title;
    Row.FirstFrame = 1;
    Row.FrameCnt = Clip.Pictures;
    Row.Length = static_cast<float>(Clip.Duration);
    Row.DotCnt = gDots.UBound();
    return Row;
}

VideoIDRow NewRow(const DigitClip& Clip, const std::string& SampleID)
{
    VideoIDRow Row;
    Row.SampleID = SampleID;
    return Filled(Row, Clip);
}

bool IsSame(const VideoIDRow& Row, const VideoIDRow& Other)
{
    return Row.SampleID == Other.SampleID && Row.VideoFN == Other.VideoFN;
}
} // namespace

VideoIDRow InitVidData(const DigitClip& Clip)
{
    const VideoIDRow* Known = FindVideo([&](const VideoIDRow& Row) { return Row.VideoFN == Clip.Title; });
    return Known ? Filled(*Known, Clip) : NewRow(Clip, "T");
}

VideoIDRow FindVidData(const DigitClip& Clip, const std::string& SampleID, bool& Found)
{
    const VideoIDRow* Known = FindVideo([&](const VideoIDRow& Row) {
        return Row.VideoFN == Clip.Title && (SampleID.empty() || Row.SampleID == SampleID);
    });
    if (!Known && !SampleID.empty()) Known = FindVideo([&](const VideoIDRow& Row) { return Row.SampleID == SampleID; });
    Found = Known != nullptr;
    if (Known) return *Known;
    return NewRow(Clip, SampleID.empty() ? "V" + FormatNum(gVideoID.UBound() + 1, "0") : SampleID);
}

void StoreVidID(const VideoIDRow& Row)
{
    const auto Known =
        std::find_if(gVideoID.begin(), gVideoID.end(), [&](const VideoIDRow& Each) { return IsSame(Each, Row); });
    (Known == gVideoID.end() ? gVideoID.Grow() : *Known) = Row;
}

bool SaveVidID(const VideoIDRow& Row)
{
    const bool IsKnown = FindVideo([&](const VideoIDRow& Each) { return IsSame(Each, Row); }) != nullptr;
    if (IsKnown && !AskOkCancel("Would you like to  rewrite/append the video data?",
                                "Video data for the sample " + Row.SampleID + " and video file " + Row.VideoFN +
                                    " already exists!"))
        return false;
    StoreVidID(Row);
    return true;
}
