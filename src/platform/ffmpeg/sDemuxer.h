// A video file as the packets of its video stream.
#pragma once

#include "platform/ffmpeg/mFFmpeg.h"

#include <cstdint>
#include <string>

class sDemuxer
{
public:
    /// Opens a file. Gives an empty text, or why it cannot be read as a video.
    std::string Open(const std::string& Path);

    bool IsOpen() const { return Video != nullptr; }

    /// Reads the next packet that holds data. False at the end of what can be read.
    bool Next(AVPacket& Packet);

    /// Whether reading ended with an error, or a packet was not whole.
    bool IsBroken() const { return Broken; }

    /// Whether the file breaks off where reading ended.
    bool IsCut() const { return Cut; }

    // Go on reading near a time stamp of the stream, ahead of it when possible, or at a byte of the file. False when
    // the format cannot.
    bool SeekTime(int64_t Stamp);
    bool SeekByte(int64_t Place);

    /// Whether time stamps may jump or are made up, so that bytes are the better way to seek.
    bool IsByteKind() const;

    /// Share of the file that has been read, 0 to 1.
    double Done() const;

    AVFormatContext& Format() const { return *Context; }
    AVStream& Stream() const { return *Video; }

private:
    std::string FindStream(const std::string& Path);

    FFmpegPtr<AVFormatContext> Context;
    AVStream* Video = nullptr;
    bool Broken = false;
    bool Cut = false; // at the last packet
};
