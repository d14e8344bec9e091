// Order, times and places of pictures.
#include "platform/ffmpeg/sClipTable.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <numeric>

namespace {
// Both ends of the data: headers differ at the front, coded pictures of one scene at the back.
uint64_t PrintOf(const AVPacket& Packet)
{
    constexpr int Part = 256;
    uint64_t Hash = 14695981039346656037U;
    const auto Take = [&Hash](const uint8_t* Data, int Count) {
        constexpr int Most = sizeof(uint64_t);
        for (int i = 0; i < Count; i += Most) {
            uint64_t Word = 0;
            std::memcpy(&Word, Data + i, static_cast<std::size_t>(std::min(Most, Count - i)));
            Hash = std::rotl((Hash ^ Word) * 1099511628211U, 29); // the product carries upwards only
        }
    };
    Take(Packet.data, std::min(Packet.size, Part));
    if (Packet.size > Part) Take(Packet.data + std::max(Part, Packet.size - Part), std::min(Part, Packet.size - Part));
    return (Hash ^ static_cast<uint64_t>(Packet.size)) * 1099511628211U;
}

// A reference picture that is only made to be copied from.
bool IsHiddenVp8(const AVPacket& Packet, AVCodecID Codec)
{
    constexpr int ShownBit = 0x10;
    return Codec == AV_CODEC_ID_VP8 && (Packet.data[0] & ShownBit) == 0;
}

double Seconds(int64_t Ticks, double Base)
{
    return static_cast<double>(Ticks) * Base;
}
} // namespace

void sClipTable::Add(const AVPacket& Packet, AVCodecID Codec)
{
    PacketRow New;
    New.Pts = Packet.pts;
    New.Dts = Packet.dts;
    New.Place = Packet.pos;
    New.Duration = Packet.duration;
    New.Print = PrintOf(Packet);
    New.IsKey = (Packet.flags & AV_PKT_FLAG_KEY) != 0;
    New.IsHidden = (Packet.flags & AV_PKT_FLAG_DISCARD) != 0 || IsHiddenVp8(Packet, Codec);
    Rows.push_back(New);
}

// Each picture has a time of its own, and the file is in the order of decoding, without jumps.
bool sClipTable::HasOrder() const
{
    std::vector<int64_t> Stamps;
    int64_t Before = std::numeric_limits<int64_t>::min();
    for (const PacketRow& Each : Rows) {
        if (Each.Pts == AV_NOPTS_VALUE) return false;
        if (Each.Dts != AV_NOPTS_VALUE) {
            if (Each.Dts < Before) return false;
            Before = Each.Dts;
        }
        if (!Each.IsHidden) Stamps.push_back(Each.Pts);
    }
    std::sort(Stamps.begin(), Stamps.end());
    return std::adjacent_find(Stamps.begin(), Stamps.end()) == Stamps.end();
}

void sClipTable::OrderByTime(std::span<const int32_t> Missing)
{
    std::vector<int32_t> Order;
    for (std::size_t i = 0; i < Rows.size(); ++i)
        if (!Rows[i].IsHidden) Order.push_back(static_cast<int32_t>(i));
    std::erase_if(Order,
                  [&](int32_t Each) { return std::find(Missing.begin(), Missing.end(), Each) != Missing.end(); });
    std::sort(Order.begin(), Order.end(), [this](int32_t A, int32_t B) {
        return Rows[static_cast<std::size_t>(A)].Pts < Rows[static_cast<std::size_t>(B)].Pts;
    });
    SetOrder(std::move(Order));
}

void sClipTable::SetOrder(std::vector<int32_t> Packets)
{
    PacketOf = std::move(Packets);
    NumberOf.assign(Rows.size(), -1);
    for (std::size_t i = 0; i < PacketOf.size(); ++i)
        NumberOf[static_cast<std::size_t>(PacketOf[i])] = static_cast<int32_t>(i);
    Keys.clear();
    Prints.clear();
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        if (Rows[i].IsKey && NumberOf[i] >= 0) Keys.push_back(static_cast<int32_t>(i));
        Prints.emplace_back(Rows[i].Print, static_cast<int32_t>(i));
    }
    std::sort(Prints.begin(), Prints.end());
}

// The stamps of the pictures in their order. False when they cannot be their times.
bool sClipTable::StampsIn(int64_t PacketRow::*Stamp, std::vector<int64_t>& Into) const
{
    Into.clear();
    for (const int32_t Packet : PacketOf) {
        Into.push_back(Rows[static_cast<std::size_t>(Packet)].*Stamp);
        if (Into.back() == AV_NOPTS_VALUE) return false;
    }
    // Pictures are decoded in another order than they are seen in, one at each time.
    if (Stamp == &PacketRow::Dts) std::sort(Into.begin(), Into.end());
    return std::adjacent_find(Into.begin(), Into.end(), std::greater_equal<>()) == Into.end();
}

void sClipTable::FindTimes(double Base, double Usual)
{
    std::vector<int64_t> Stamps;
    Times.clear();
    if (StampsIn(&PacketRow::Pts, Stamps) || StampsIn(&PacketRow::Dts, Stamps)) {
        for (const int64_t Each : Stamps)
            Times.push_back(Seconds(Each - Stamps.front(), Base));
    } else
        for (int32_t i = 0; i < Pictures(); ++i)
            Times.push_back(i * Usual);
    FindLength(Base, Usual);
}

// The last picture is seen as long as the file says, unless it says nonsense.
void sClipTable::FindLength(double Base, double Usual)
{
    if (Times.empty()) return;
    constexpr double Most = 10; // times the mean of the others
    const double Mean = Times.size() > 1 ? Times.back() / static_cast<double>(Times.size() - 1) : Usual;
    const double Last = Seconds(Rows[static_cast<std::size_t>(PacketOf.back())].Duration, Base);
    Length = Times.back() + (Last > 0 && Last < Most * Mean ? Last : Mean);
}

double sClipTable::Step() const
{
    return Times.empty() ? 0 : Length / static_cast<double>(Times.size());
}

int32_t sClipTable::PictureAt(double Time) const
{
    constexpr double Rounding = 1e-6; // s
    const auto After = std::upper_bound(Times.begin(), Times.end(), Time + Rounding);
    return std::max(static_cast<int32_t>(After - Times.begin()) - 1, 0);
}

int32_t sClipTable::PictureOf(int64_t Packet) const
{
    if (Packet < 0 || Packet >= static_cast<int64_t>(NumberOf.size())) return -1;
    return NumberOf[static_cast<std::size_t>(Packet)];
}

int32_t sClipTable::KeyFor(int32_t Picture, int32_t Before) const
{
    auto Key = std::upper_bound(Keys.begin(), Keys.end(), PacketOfPicture(Picture));
    while (Key != Keys.begin()) {
        --Key;
        if (*Key < Before && PictureOf(*Key) <= Picture) return *Key;
    }
    return 0;
}

std::optional<int32_t> sClipTable::Find(const AVPacket& Packet) const
{
    const uint64_t Print = PrintOf(Packet);
    const auto [First, Last] = std::equal_range(Prints.begin(), Prints.end(), std::pair(Print, 0),
                                                [](const auto& A, const auto& B) { return A.first < B.first; });
    if (First == Last) return {};
    if (Last - First == 1) return First->second;
    const auto Same = std::find_if(First, Last, [&](const auto& Each) {
        return Rows[static_cast<std::size_t>(Each.second)].Place == Packet.pos && Packet.pos >= 0;
    });
    if (Same == Last) return {};
    return Same->second;
}
