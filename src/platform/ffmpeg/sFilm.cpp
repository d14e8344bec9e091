// Coding pictures and putting them into a file.
#include "platform/ffmpeg/sFilm.h"

extern "C" {
#include <libavutil/display.h>
#include <libavutil/opt.h>
}

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <system_error>

namespace {
constexpr double BitsAPixel = 2; // of each picture: lines stay clear

AVRational RateOf(double Rate)
{
    constexpr int Most = 100000;
    return av_d2q(Rate, Most);
}

// The format that the encoder takes first, of those that all players show.
AVPixelFormat FormatOf(const AVCodec& Codec)
{
    constexpr std::array Usual = {AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUVJ420P};
    if (!Codec.pix_fmts) return Usual[0];
    for (const AVPixelFormat Each : Usual)
        for (const AVPixelFormat* Known = Codec.pix_fmts; *Known != AV_PIX_FMT_NONE; ++Known)
            if (*Known == Each) return Each;
    return *Codec.pix_fmts;
}
} // namespace

sFilm::~sFilm()
{
    Format.reset();
    std::error_code Error;
    if (!Temporary.empty()) std::filesystem::remove(Temporary, Error);
}

std::string sFilm::Begin(const std::string& Path, const FilmKind& Kind, int Width, int Height)
{
    av_log_set_level(AV_LOG_QUIET);
    AVFormatContext* Made = nullptr;
    const int NoFormat = avformat_alloc_output_context2(&Made, nullptr, nullptr, Path.c_str());
    if (NoFormat < 0 || !Made) return "no video format ends like this name";
    Format.reset(Made);
    Format->flags |= AVFMT_FLAG_BITEXACT;
    FirstTick = Kind.FirstTick;
    if (std::string Why = AddStream(Kind, Width, Height); !Why.empty()) return Why;
    Target = Path;
    const std::string Beside = Path + ".part";
    if (const int Failure = avio_open(&Format->pb, ("file:" + Beside).c_str(), AVIO_FLAG_WRITE); Failure < 0)
        return FFmpegError(Failure);
    Temporary = Beside;
    if (Kind.TableBytes > 0) av_opt_set_int(Format->priv_data, "moov_size", Kind.TableBytes, 0);
    const int Failure = avformat_write_header(Format.get(), nullptr);
    return Failure < 0 ? FFmpegError(Failure) : "";
}

std::string sFilm::AddStream(const FilmKind& Kind, int Width, int Height)
{
    const AVCodec* Codec = Kind.Codec.empty() ? avcodec_find_encoder(Format->oformat->video_codec)
                                              : avcodec_find_encoder_by_name(Kind.Codec.c_str());
    if (!Codec) return "there is no encoder " + (Kind.Codec.empty() ? "for this format" : Kind.Codec);
    if (std::string Why = OpenCoder(*Codec, Kind, Width, Height); !Why.empty()) return Why;
    Stream = avformat_new_stream(Format.get(), nullptr);
    if (!Stream) throw std::bad_alloc();
    avcodec_parameters_from_context(Stream->codecpar, Coder.get());
    Stream->time_base = Coder->time_base;
    Stream->avg_frame_rate = Coder->framerate;
    Stream->sample_aspect_ratio = Coder->sample_aspect_ratio;
    SetTurn(Kind.Turn);
    Frame = Owned(av_frame_alloc());
    Frame->format = Coder->pix_fmt;
    Frame->width = Width;
    Frame->height = Height;
    Packet = Owned(av_packet_alloc());
    if (const int Failure = av_frame_get_buffer(Frame.get(), 0); Failure < 0) return FFmpegError(Failure);
    Scaler = Owned(sws_getContext(Width, Height, AV_PIX_FMT_RGB32, Width, Height, Coder->pix_fmt, SWS_BILINEAR, nullptr,
                                  nullptr, nullptr));
    return {};
}

std::string sFilm::OpenCoder(const AVCodec& Codec, const FilmKind& Kind, int Width, int Height)
{
    constexpr int AspectMost = 1000;
    Coder = Owned(avcodec_alloc_context3(&Codec));
    Coder->width = Width;
    Coder->height = Height;
    Coder->framerate = RateOf(Kind.Rate);
    Coder->time_base = av_inv_q(Coder->framerate);
    Coder->pix_fmt = FormatOf(Codec);
    Coder->sample_aspect_ratio = av_d2q(Kind.PixelAspect, AspectMost);
    Coder->max_b_frames = Kind.BFrames;
    if (Kind.Group > 0) Coder->gop_size = Kind.Group;
    Coder->bit_rate = static_cast<int64_t>(BitsAPixel * Width * Height * Kind.Rate);
    Coder->flags |= AV_CODEC_FLAG_BITEXACT;
    if (Format->oformat->flags & AVFMT_GLOBALHEADER) Coder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    Coder->thread_count = 1; // the same bytes on every machine
    Coder->strict_std_compliance = FF_COMPLIANCE_UNOFFICIAL;
    av_opt_set(Coder->priv_data, "preset", Kind.Preset.c_str(), 0);
    const int Failure = avcodec_open2(Coder.get(), &Codec, nullptr);
    return Failure < 0 ? "the encoder " + std::string(Codec.name) + " refuses: " + FFmpegError(Failure) : "";
}

void sFilm::SetTurn(int Degrees)
{
    if (Degrees == 0) return;
    constexpr std::size_t Size = 9 * sizeof(int32_t);
    uint8_t* Place = av_stream_new_side_data(Stream, AV_PKT_DATA_DISPLAYMATRIX, Size);
    if (!Place) throw std::bad_alloc();
    av_display_rotation_set(reinterpret_cast<int32_t*>(Place), Degrees);
}

bool sFilm::Convert(const Picture& Shown)
{
    const auto* Bytes = reinterpret_cast<const uint8_t*>(Shown.Pixels.data());
    const int Stride = Shown.Width * static_cast<int>(sizeof(uint32_t));
    return av_frame_make_writable(Frame.get()) >= 0 &&
           sws_scale(Scaler.get(), &Bytes, &Stride, 0, Shown.Height, Frame->data, Frame->linesize) >= 0;
}

std::string sFilm::Add(const Picture& Shown, int64_t Tick)
{
    if (Shown.Width != Frame->width || Shown.Height != Frame->height || !Convert(Shown))
        return "a picture cannot be converted";
    Frame->pts = FirstTick + Tick;
    return Send(Frame.get());
}

std::string sFilm::Send(AVFrame* Next)
{
    if (const int Failure = avcodec_send_frame(Coder.get(), Next); Failure < 0) return FFmpegError(Failure);
    while (avcodec_receive_packet(Coder.get(), Packet.get()) >= 0) {
        if (Packet->duration == 0) Packet->duration = 1;
        av_packet_rescale_ts(Packet.get(), Coder->time_base, Stream->time_base);
        Packet->stream_index = Stream->index;
        if (const int Failure = av_interleaved_write_frame(Format.get(), Packet.get()); Failure < 0)
            return FFmpegError(Failure);
    }
    return {};
}

std::string sFilm::End()
{
    std::string Why = Send(nullptr);
    if (Why.empty())
        if (const int Failure = av_write_trailer(Format.get()); Failure < 0) Why = FFmpegError(Failure);
    if (Why.empty() && Format->pb) {
        avio_flush(Format->pb);
        if (Format->pb->error < 0) Why = FFmpegError(Format->pb->error);
    }
    Format.reset();
    if (!Why.empty()) return Why;
    std::error_code Error;
    std::filesystem::rename(Temporary, Target, Error);
    if (Error) return Error.message();
    Temporary.clear();
    return {};
}
