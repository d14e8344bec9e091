// A long video made for benchmarks, and what the media library alone needs for it.
#pragma once

#include "platform/ffmpeg/mFFmpeg.h"
#include "platform/ffmpeg/sDemuxer.h"

#include <memory>
#include <string>

inline constexpr int ClipRate = 50;    // pictures a second
inline constexpr int ClipGroup = 50;   // pictures from one key picture to the next
inline constexpr int ClipLength = 120; // s
inline constexpr int ClipPictures = ClipRate * ClipLength;

/// Path of a clip of 1920 x 1080 pixels, H.264 with B-frames in an mp4; made at the first call and kept in the build
/// folder.
const std::string& BenchClip();

/// The library's demuxer, decoder and scaler, and nothing else.
class BareClip
{
public:
    explicit BareClip(const std::string& Path);

    /// Reads all packets. Gives their number.
    int Demux();

    /// Decodes the next picture and converts it to the colours of the screen. False at the end.
    bool Next(bool Converts = true);

private:
    sDemuxer File;
    FFmpegPtr<AVCodecContext> Decoder;
    FFmpegPtr<AVPacket> Packet;
    FFmpegPtr<AVFrame> Frame;
    FFmpegPtr<SwsContext> Scaler;
    std::unique_ptr<uint32_t[]> Pixels;
};
