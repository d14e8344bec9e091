// Rows of gVideoID by sample and title of the video.
#include "views/play/mPlayOffset.h"

#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <filesystem>

namespace {
// Null when there is none.
VideoIDRow* FindVideo(int Sample, const std::string& VideoFN)
{
    const std::string Name = std::filesystem::path(VideoFN).stem().string();
    for (VideoIDRow& Row : gVideoID)
        if (Row.SampleID == gFile.Desc[Sample].SampleID && Row.VideoFN == Name) return &Row;
    return nullptr;
}
} // namespace

double KeptOffset(int Sample, const std::string& VideoFN)
{
    if (Sample < 1 || VideoFN.empty()) return 0;
    const VideoIDRow* const Row = FindVideo(Sample, VideoFN);
    return Row ? static_cast<double>(Row->Spare2) : 0;
}

bool KeepOffset(const cPlay& Play)
{
    const int Sample = Play.Data().Sample;
    const std::string& VideoFN = Play.Data().VideoFN;
    if (Sample < 1 || VideoFN.empty()) return true;
    VideoIDRow* Row = FindVideo(Sample, VideoFN);
    if (!Row) {
        Row = &gVideoID.Grow();
        Row->SampleID = gFile.Desc[Sample].SampleID;
        Row->VideoFN = std::filesystem::path(VideoFN).stem().string();
        Row->FrameCnt = Play.Data().Frames;
        Row->Length = static_cast<float>(Play.Data().Duration);
    }
    Row->Spare2 = static_cast<float>(Play.Correction());
    return WriteSession();
}
