// Clips, and the coder of pictures.
#include "platform/ffmpeg/mMedia.h"

#include "platform/ffmpeg/sFFmpegMedia.h"

namespace {
// The picture in a frame of the library's, three bytes a pixel.
FFmpegPtr<AVFrame> AsFrame(const Picture& Shown)
{
    auto Frame = Owned(av_frame_alloc());
    Frame->format = AV_PIX_FMT_RGB24;
    Frame->width = Shown.Width;
    Frame->height = Shown.Height;
    if (av_frame_get_buffer(Frame.get(), 0) < 0) return nullptr;
    std::size_t Next = 0;
    for (int Y = 0; Y < Shown.Height; ++Y) {
        uint8_t* To = Frame->data[0] + static_cast<std::ptrdiff_t>(Y) * Frame->linesize[0];
        for (int X = 0; X < Shown.Width; ++X) {
            const uint32_t Pixel = Shown.Pixels[Next++];
            *To++ = static_cast<uint8_t>(Pixel >> 16);
            *To++ = static_cast<uint8_t>(Pixel >> 8);
            *To++ = static_cast<uint8_t>(Pixel);
        }
    }
    return Frame;
}
} // namespace

std::unique_ptr<iMedia> MakeMedia()
{
    return std::make_unique<sFFmpegMedia>();
}

std::optional<std::string> AsPng(const Picture& Shown)
{
    const AVCodec* Codec = avcodec_find_encoder(AV_CODEC_ID_PNG);
    const auto Frame = Codec ? AsFrame(Shown) : nullptr;
    if (!Frame) return {};
    const auto Coder = Owned(avcodec_alloc_context3(Codec));
    Coder->width = Shown.Width;
    Coder->height = Shown.Height;
    Coder->pix_fmt = AV_PIX_FMT_RGB24;
    Coder->time_base = {1, 1};
    Coder->thread_count = 1;
    const auto Packet = Owned(av_packet_alloc());
    if (avcodec_open2(Coder.get(), Codec, nullptr) < 0 || avcodec_send_frame(Coder.get(), Frame.get()) < 0 ||
        avcodec_receive_packet(Coder.get(), Packet.get()) < 0)
        return {};
    return std::string(reinterpret_cast<const char*>(Packet->data), static_cast<std::size_t>(Packet->size));
}
