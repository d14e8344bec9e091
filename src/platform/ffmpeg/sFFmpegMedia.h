// A clip on the media library: pictures by number, from the cache, by decoding on, or from the key picture before.
#pragma once

#include "platform/ffmpeg/sIndexer.h"
#include "platform/ffmpeg/sPictureCache.h"
#include "platform/ffmpeg/sPictureMaker.h"
#include "platform/ffmpeg/sReader.h"
#include "platform/iMedia.h"

class sFFmpegMedia : public iMedia
{
public:
    bool Open(const std::string& Path) override;
    void Close() override;
    std::string Reason() const override { return Failure; }
    ClipInfo Info() const override;
    double IndexDone() const override { return IsOpen() ? Indexer.Done() : 1; }
    void WaitForIndex() override { Indexer.Wait(); }
    double TimeOf(int32_t Frame) override;
    int FrameAt(double Time) override;
    std::shared_ptr<const Picture> Frame(int Frame) override;

private:
    using Shared = std::shared_ptr<const Picture>;

    bool IsOpen() const { return !Path.empty(); }
    bool Fail(const std::string& Why);
    void SayInfo();
    Shared CountOn(int32_t Number);
    Shared Decode(const sClipTable& Table, int32_t Number);
    Shared DecodeOn(const sClipTable& Table, int32_t Number);
    Shared Nearest(const sClipTable& Table, int32_t Number);
    Shared Keep(int32_t Number, const AVFrame& Frame);
    bool CanGoOn(int32_t Number, int32_t Key) const;

    std::string Path; // empty: none is open
    std::string Failure;
    ClipInfo Said; // by the file, before the index is whole
    sReader Reader;
    sPictureMaker Maker;
    sPictureCache Cache;
    sIndexer Indexer;
    int32_t Counted = 0;   // pictures that came since the start, while there is no index
    int32_t LastOut = -1;  // number of the picture that came last
    int32_t FirstGood = 0; // number from which pictures are whole since the last seek
    bool IsLost = false;   // the reader has no place: it has to be sent to one
};
