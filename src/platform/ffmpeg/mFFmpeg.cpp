// The media library's errors in words.
#include "platform/ffmpeg/mFFmpeg.h"

#include <array>

std::string FFmpegError(int Code)
{
    if (Code == AVERROR_INVALIDDATA) return "it is not a video, or it is damaged";
    if (Code == AVERROR_EOF) return "it is empty or breaks off";
    std::array<char, AV_ERROR_MAX_STRING_SIZE> Text{};
    return av_strerror(Code, Text.data(), Text.size()) == 0 ? Text.data() : "unknown error";
}
