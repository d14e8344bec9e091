// Owners of the media library's resources, and its errors in words.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <memory>
#include <new>
#include <string>

struct CloseFFmpeg
{
    void operator()(AVFormatContext* Context) const { avformat_close_input(&Context); }
    void operator()(AVCodecContext* Context) const { avcodec_free_context(&Context); }
    void operator()(AVPacket* Packet) const { av_packet_free(&Packet); }
    void operator()(AVFrame* Frame) const { av_frame_free(&Frame); }
    void operator()(SwsContext* Context) const { sws_freeContext(Context); }
    void operator()(AVDictionary* Options) const { av_dict_free(&Options); }
};

template <class Resource>
using FFmpegPtr = std::unique_ptr<Resource, CloseFFmpeg>;

/// A resource that was made, or bad_alloc when there was no memory for it.
template <class Resource>
FFmpegPtr<Resource> Owned(Resource* Made)
{
    if (!Made) throw std::bad_alloc();
    return FFmpegPtr<Resource>(Made);
}

/// An error code in words.
std::string FFmpegError(int Code);
