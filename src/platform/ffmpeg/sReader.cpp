// Decoding on from a packet, and getting to one.
#include "platform/ffmpeg/sReader.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace {
// Ways to a packet, in the order for files whose time stamps can be relied on.
enum eWay
{
    ByDts,
    ByPts,
    ByByte,
    FromStart,
    Ways
};
constexpr int32_t Lead = 4; // packets that parsers need to find their place
constexpr int MostUnknown = 2000;

// A codec that the library does not know has only the letters that the file gives it.
std::string CodecName(const AVCodecParameters& Coded)
{
    if (Coded.codec_id != AV_CODEC_ID_NONE) return avcodec_get_name(Coded.codec_id);
    std::array<char, AV_FOURCC_MAX_STRING_SIZE> Text{};
    return av_fourcc_make_string(Text.data(), Coded.codec_tag);
}
} // namespace

std::string sReader::Open(const std::string& NewPath, int NewThreads)
{
    Path = NewPath;
    Threads = NewThreads;
    Packet = Owned(av_packet_alloc());
    Frame = Owned(av_frame_alloc());
    Number = 0;
    IsHeld = false;
    IsDraining = false;
    const std::string Reason = Demuxer.Open(Path);
    return Reason.empty() ? OpenDecoder() : Reason;
}

std::string sReader::OpenDecoder()
{
    const AVCodecParameters& Coded = *Demuxer.Stream().codecpar;
    const AVCodec* Codec = avcodec_find_decoder(Coded.codec_id);
    if (!Codec) return "there is no decoder for its codec " + CodecName(Coded);
    Decoder = Owned(avcodec_alloc_context3(Codec));
    if (const int Failure = avcodec_parameters_to_context(Decoder.get(), &Coded); Failure < 0)
        return FFmpegError(Failure);
    Decoder->thread_count = Threads;
    Decoder->pkt_timebase = Demuxer.Stream().time_base;
    const int Failure = avcodec_open2(Decoder.get(), Codec, nullptr);
    return Failure < 0 ? FFmpegError(Failure) : "";
}

bool sReader::ReadPacket()
{
    if (std::exchange(IsHeld, false)) return true;
    if (!Demuxer.Next(*Packet)) return false;
    if (OnPacket) OnPacket(*Packet);
    return true;
}

// Sends a packet with its number in place of its time, or the end. False when all was sent before.
bool sReader::Feed()
{
    if (IsDraining) return false;
    if (!ReadPacket()) {
        IsDraining = true;
        avcodec_send_packet(Decoder.get(), nullptr);
        return true;
    }
    Packet->pts = Number++;
    Packet->dts = AV_NOPTS_VALUE;
    avcodec_send_packet(Decoder.get(), Packet.get()); // one that is damaged gives no picture
    return true;
}

const AVFrame* sReader::Next()
{
    while (true) {
        const int Result = avcodec_receive_frame(Decoder.get(), Frame.get());
        if (Result >= 0) return Frame.get();
        if (Result == AVERROR_EOF) return nullptr;
        if (Result == AVERROR(EAGAIN)) {
            if (!Feed()) return nullptr;
        } else if (IsDraining)
            return nullptr;
    }
}

bool sReader::SeekNear(const sClipTable& Table, int32_t Wanted, int Way)
{
    const PacketRow& Row = Table.Packets()[static_cast<std::size_t>(Wanted)];
    const PacketRow& Ahead = Table.Packets()[static_cast<std::size_t>(std::max(Wanted - Lead, 0))];
    switch (Way) {
    case ByDts:
        return Row.Dts != AV_NOPTS_VALUE && Demuxer.SeekTime(Row.Dts);
    case ByPts:
        return Row.Pts != AV_NOPTS_VALUE && Demuxer.SeekTime(Row.Pts);
    case ByByte:
        return Ahead.Place >= 0 && Demuxer.SeekByte(Ahead.Place);
    default:
        return Open(Path, Threads).empty();
    }
}

// Reads on to the packet, without decoding. False when the place that was found lies behind it.
bool sReader::SkipTo(const sClipTable& Table, int32_t Wanted)
{
    for (int Unknown = 0; Unknown < MostUnknown && Demuxer.Next(*Packet);) {
        const std::optional<int32_t> Found = Table.Find(*Packet);
        if (!Found) {
            ++Unknown;
            continue;
        }
        if (*Found > Wanted) return false;
        if (*Found < Wanted) continue;
        Number = Wanted;
        IsHeld = true;
        return true;
    }
    return false;
}

bool sReader::GoTo(const sClipTable& Table, int32_t Wanted)
{
    if (!Demuxer.IsOpen() && !Open(Path, Threads).empty()) return false;
    static constexpr int ByTime[] = {ByDts, ByPts, ByByte, FromStart};
    static constexpr int ByPlace[] = {ByByte, ByDts, ByPts, FromStart};
    static constexpr int Begin[] = {FromStart};
    const std::span<const int> Order = Wanted == 0 && Demuxer.IsByteKind() ? std::span<const int>(Begin)
                                       : Demuxer.IsByteKind()              ? ByPlace
                                                                           : ByTime;
    for (const int Way : Order) {
        IsHeld = false;
        IsDraining = false;
        if (!SeekNear(Table, Wanted, Way)) continue;
        if (Way == FromStart && Wanted == 0) return true;
        avcodec_flush_buffers(Decoder.get());
        if (SkipTo(Table, Wanted)) return true;
    }
    return false;
}
