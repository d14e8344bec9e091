// Coding six seconds, and repeating their packets.
#include "clip.h"

#include "platform/ffmpeg/sFilm.h"

#include <filesystem>
#include <iostream>
#include <vector>

namespace {
constexpr int Width = 1920;
constexpr int Height = 1080;
constexpr int Coded = 6 * ClipRate; // pictures

void Demand(bool IsRight, const char* What)
{
    if (IsRight) return;
    std::cerr << "The benchmark's clip cannot be made: " << What << std::endl;
    std::exit(1);
}

// Bars that move before a chequered ground.
Picture PatternOf(int Number)
{
    Picture Made{Width, Height, std::vector<uint32_t>(std::size_t{Width} * Height)};
    std::size_t Next = 0;
    for (int Y = 0; Y < Height; ++Y)
        for (int X = 0; X < Width; ++X) {
            const bool IsBar = (X + 12 * Number + Y / 4) % 480 < 40;
            const int Ground = 60 + ((X / 24 ^ Y / 24) & 1) * 40;
            const auto Grey = static_cast<uint32_t>(IsBar ? 220 : Ground);
            Made.Pixels[Next++] = 0xFF000000U | Grey << 16 | Grey << 8 | (Grey + 20);
        }
    return Made;
}

void Code(const std::string& Path)
{
    sFilm Film;
    const FilmKind Kind{.Codec = "libx264", .Rate = ClipRate, .BFrames = 2, .Group = ClipGroup, .Preset = "ultrafast"};
    Demand(Film.Begin(Path, Kind, Width, Height).empty(), "it does not begin");
    for (int i = 0; i < Coded; ++i)
        Demand(Film.Add(PatternOf(i), i).empty(), "a picture");
    Demand(Film.End().empty(), "it does not end");
}

void WriteTimes(sDemuxer& From, AVFormatContext& To)
{
    std::vector<FFmpegPtr<AVPacket>> Packets;
    for (auto Next = Owned(av_packet_alloc()); From.Next(*Next);)
        Packets.push_back(Owned(av_packet_clone(Next.get())));
    const int64_t Length = av_rescale_q(Coded, {1, ClipRate}, From.Stream().time_base);
    for (int Time = 0; Time < ClipPictures / Coded; ++Time)
        for (const auto& Each : Packets) {
            const auto Copy = Owned(av_packet_clone(Each.get()));
            Copy->pts += Time * Length;
            Copy->dts += Time * Length;
            Copy->stream_index = 0;
            av_packet_rescale_ts(Copy.get(), From.Stream().time_base, To.streams[0]->time_base);
            Demand(av_write_frame(&To, Copy.get()) >= 0, "a packet");
        }
}

void Repeat(const std::string& Path, const std::string& Long)
{
    sDemuxer From;
    Demand(From.Open(Path).empty(), "what was coded cannot be read");
    AVFormatContext* To = nullptr;
    avformat_alloc_output_context2(&To, nullptr, "mp4", Long.c_str());
    Demand(To && avio_open(&To->pb, Long.c_str(), AVIO_FLAG_WRITE) >= 0, "the file");
    avcodec_parameters_copy(avformat_new_stream(To, nullptr)->codecpar, From.Stream().codecpar);
    To->streams[0]->time_base = From.Stream().time_base;
    Demand(avformat_write_header(To, nullptr) >= 0, "its head");
    WriteTimes(From, *To);
    Demand(av_write_trailer(To) >= 0, "its end");
    avio_closep(&To->pb);
    avformat_free_context(To);
}
} // namespace

const std::string& BenchClip()
{
    static const std::string Path = BENCH_FILES "/two-minutes.mp4";
    if (std::filesystem::exists(Path)) return Path;
    const std::string Part = BENCH_FILES "/six-seconds.mp4";
    Code(Part);
    Repeat(Part, Path + ".part");
    std::filesystem::remove(Part);
    std::filesystem::rename(Path + ".part", Path);
    return Path;
}

BareClip::BareClip(const std::string& Path)
    : Packet(Owned(av_packet_alloc())), Frame(Owned(av_frame_alloc())),
      Pixels(new uint32_t[std::size_t{Width} * Height + 16])
{
    Demand(File.Open(Path).empty(), "it cannot be opened");
    const AVCodec* Codec = avcodec_find_decoder(File.Stream().codecpar->codec_id);
    Decoder = Owned(avcodec_alloc_context3(Codec));
    avcodec_parameters_to_context(Decoder.get(), File.Stream().codecpar);
    Decoder->thread_count = 2;
    Demand(avcodec_open2(Decoder.get(), Codec, nullptr) >= 0, "no decoder");
    Scaler = Owned(sws_getContext(Width, Height, Decoder->pix_fmt, Width, Height, AV_PIX_FMT_RGB32, SWS_BILINEAR,
                                  nullptr, nullptr, nullptr));
}

int BareClip::Demux()
{
    int Count = 0;
    while (File.Next(*Packet))
        ++Count;
    return Count;
}

bool BareClip::Next(bool Converts)
{
    int Result = 0;
    while ((Result = avcodec_receive_frame(Decoder.get(), Frame.get())) == AVERROR(EAGAIN))
        avcodec_send_packet(Decoder.get(), File.Next(*Packet) ? Packet.get() : nullptr);
    if (Result < 0) return false;
    auto* Bytes = reinterpret_cast<uint8_t*>(Pixels.get());
    const int Stride = Width * 4;
    if (Converts) sws_scale(Scaler.get(), Frame->data, Frame->linesize, 0, Height, &Bytes, &Stride);
    return true;
}
