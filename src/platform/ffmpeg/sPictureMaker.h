// Makes the picture that is seen of a decoded frame: in colour, pixels square, upright.
#pragma once

#include "platform/ffmpeg/mFFmpeg.h"
#include "platform/iMedia.h"

class sPictureMaker
{
public:
    /// Begins with a clip's stream; Frame is its first.
    void Begin(AVFormatContext& Format, AVStream& Stream, const AVFrame& Frame);

    /// Size of all pictures, as displayed.
    int Width() const { return IsTurned ? Height0 : Width0; }
    int Height() const { return IsTurned ? Width0 : Height0; }

    /// Takes the memory of a picture that is no longer needed, unless somebody still shows it: new memory takes as long
    /// as a part of decoding.
    void Reuse(const std::shared_ptr<const Picture>& Old);

    /// Null when the frame cannot be converted.
    std::shared_ptr<const Picture> Make(const AVFrame& Frame);

private:
    void TakeTurn(const AVStream& Stream, const AVFrame& Frame);
    bool Prepare(const AVFrame& Frame);
    Picture Turned(const Picture& Upright) const;

    int Width0 = 0; // before it is turned
    int Height0 = 0;
    bool IsTurned = false; // width and height change places
    bool IsFlippedX = false;
    bool IsFlippedY = false;
    std::vector<uint32_t> Spare; // memory for the next picture
    FFmpegPtr<SwsContext> Scaler;
    int SourceWidth = 0; // what the scaler was made for
    int SourceHeight = 0;
    int SourceFormat = -1;
    int SourceSpace = -1;
    int SourceRange = -1;
};
