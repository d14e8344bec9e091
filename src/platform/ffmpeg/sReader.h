// A clip's pictures as they come out of the decoder, each with the number of the packet that it was made of.
#pragma once

#include "platform/ffmpeg/sClipTable.h"
#include "platform/ffmpeg/sDemuxer.h"

#include <functional>

class sReader
{
public:
    /// Opens a clip with so many decoder threads. Gives an empty text, or why it cannot be rendered.
    std::string Open(const std::string& Path, int Threads);

    /// Decodes the next picture in the order in which they are seen; pts is then its packet's number. Null at the end.
    const AVFrame* Next();

    /// Goes on with that packet of the table, a key packet. False when the file cannot be read there any more.
    bool GoTo(const sClipTable& Table, int32_t Packet);

    /// Number of the packet that is read next.
    int64_t NextPacket() const { return Number; }

    const sDemuxer& File() const { return Demuxer; }

    /// Called with each packet that is read.
    std::function<void(const AVPacket& Packet)> OnPacket;

private:
    std::string OpenDecoder();
    bool Feed();
    bool ReadPacket();
    bool SeekNear(const sClipTable& Table, int32_t Packet, int Way);
    bool SkipTo(const sClipTable& Table, int32_t Packet);

    std::string Path;
    int Threads = 1;
    sDemuxer Demuxer;
    FFmpegPtr<AVCodecContext> Decoder;
    FFmpegPtr<AVPacket> Packet;
    FFmpegPtr<AVFrame> Frame;
    int64_t Number = 0;
    bool IsHeld = false; // Packet waits to be decoded
    bool IsDraining = false;
};
