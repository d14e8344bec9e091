// Seven bits a byte, lowest first, so that only the sync byte is 128 or above.
#include "sim/cFrameEncoder.h"

#include "core/mModes.h"

#include <algorithm>
#include <array>

namespace {
constexpr uint8_t SyncByte = 0x80;
constexpr int MaxWord = 16383;
constexpr int32_t MaxLong = (1 << 28) - 1;
constexpr int MaxSlaves = 126; // the block count is one byte of seven bits
constexpr int MaxBody = 1 << 14;

// Flags of a slave block.
constexpr int FlagSigned = 32;
constexpr int FlagNoExtras = 16;
constexpr int Code16 = 0;
constexpr int Code8 = 10;
constexpr int Code8Wireless = 12;
constexpr int Code4 = 14;

int32_t CountAt(std::span<const int32_t> Counts, int Chan)
{
    const auto i = static_cast<std::size_t>(Chan);
    return i < Counts.size() ? Counts[i] : 0;
}

int CountCode(int Chans, bool IsSigned)
{
    if (Chans == 16) return Code16;
    if (Chans == 4) return Code4;
    return IsSigned ? Code8Wireless : Code8;
}
} // namespace

cFrameEncoder::cFrameEncoder(const FrameLayout& Layout_)
    : Layout(Layout_), BlockChans(Layout_.SlaveChans / 4 * 4), HasExtras(Layout_.SlaveChans % 4 == 2)
{
}

bool cFrameEncoder::IsPossible(const FrameLayout& Layout)
{
    if (!IsMasterModel(Layout.Model)) return IsSlaveModel(Layout.Model);
    if (Layout.SlaveCnt == 0) return true;
    constexpr std::array<int, 6> Sizes = {4, 6, 8, 10, 16, 18};
    const bool HasSize = std::find(Sizes.begin(), Sizes.end(), Layout.SlaveChans) != Sizes.end();
    const bool Fits = (Layout.SlaveChans * 2 + 4) * Layout.SlaveCnt + 39 <= MaxBody;
    return HasSize && Layout.SlaveCnt > 0 && Layout.SlaveCnt <= MaxSlaves && Fits;
}

int cFrameEncoder::LastChan() const
{
    if (Layout.Model == ModelSlave16) return 17;
    if (Layout.Model > ModelSlave16) return 8;
    // The extra words of all but the last slave are overwritten by the next slave's channels.
    return 16 + Layout.SlaveCnt * BlockChans + (HasExtras && Layout.SlaveCnt > 0 ? 2 : 0);
}

int32_t cFrameEncoder::MaxCount(int Chan) const
{
    return IsMasterModel(Layout.Model) && (Chan == 13 || Chan == 14) ? MaxLong : MaxWord;
}

void cFrameEncoder::Append(std::vector<uint8_t>& Out, int64_t Time, std::span<const int32_t> Counts, int Kind)
{
    Body.clear();
    PutGroups(Time, 5);
    if (IsMasterModel(Layout.Model))
        AppendLong(Counts, Kind);
    else
        AppendShort(Time, Counts);
    uint8_t Sum = 0;
    for (const uint8_t Byte : Body)
        Sum = static_cast<uint8_t>((Sum + Byte) & 0x7F);
    Body.push_back(Sum);

    const std::size_t Length = Body.size() - 1;
    Out.push_back(SyncByte);
    Out.push_back(static_cast<uint8_t>(FrameNo & 0x7F));
    Out.push_back(static_cast<uint8_t>(Length & 0x7F));
    Out.push_back(static_cast<uint8_t>(Length >> 7));
    Out.insert(Out.end(), Body.begin(), Body.end());
    ++FrameNo;
}

void cFrameEncoder::AppendLong(std::span<const int32_t> Counts, int Kind)
{
    PutGroups(Layout.SlaveCnt + 1, 1);
    PutGroups(Kind, 2);
    PutGroups(0, 2); // spare
    PutWords(Counts, 1, 4);
    PutCentred(Counts, 5, 10);
    if (Kind == KindWords || Kind == KindNoDist || Kind == KindAll) PutWords(Counts, 11, 12);
    if (Kind == KindPlace || Kind == KindNoDist || Kind == KindAll) {
        PutGroups(CountAt(Counts, 13), 4);
        PutGroups(CountAt(Counts, 14), 4);
        PutWords(Counts, 15, 15);
    }
    if (Kind == KindPlace || Kind == KindAll) PutWords(Counts, 16, 16);
    for (int i = 1; i <= Layout.SlaveCnt; ++i)
        AppendSlave(i, Counts);
}

void cFrameEncoder::AppendSlave(int Number, std::span<const int32_t> Counts)
{
    const int Before = 16 + (Number - 1) * BlockChans;
    const int Code = CountCode(BlockChans, Layout.Signed);
    PutGroups(Number, 2);
    PutGroups(0, 1); // spare
    PutGroups(Code + (HasExtras ? 0 : FlagNoExtras) + (Layout.Signed ? FlagSigned : 0), 1);
    if (Layout.Signed)
        PutCentred(Counts, Before + 1, Before + BlockChans);
    else
        PutWords(Counts, Before + 1, Before + BlockChans);
    if (HasExtras) PutWords(Counts, Before + BlockChans + 1, Before + BlockChans + 2);
}

void cFrameEncoder::AppendShort(int64_t Time, std::span<const int32_t> Counts)
{
    constexpr int HeaderItems = 7; // bytes
    PutGroups(0, HeaderItems);
    if (Layout.Model > ModelSlave16) {
        PutWords(Counts, 1, 8);
        return;
    }
    // The first word of the old slave lands where readers keep the time, so it is a clock in whole seconds.
    PutGroups(Time / 1000 % (MaxWord + 1), 2);
    PutWords(Counts, 1, 17);
}

void cFrameEncoder::PutGroups(int64_t Value, int Groups)
{
    for (int i = 0; i < Groups; ++i) {
        Body.push_back(static_cast<uint8_t>(Value & 0x7F));
        Value >>= 7;
    }
}

void cFrameEncoder::PutWords(std::span<const int32_t> Counts, int From, int To)
{
    for (int Chan = From; Chan <= To; ++Chan)
        PutGroups(CountAt(Counts, Chan), 2);
}

void cFrameEncoder::PutCentred(std::span<const int32_t> Counts, int From, int To)
{
    // The middle of the range is sent as 0, what lies below it in two's complement of 14 bits.
    for (int Chan = From; Chan <= To; ++Chan)
        PutGroups((CountAt(Counts, Chan) + 8192) & MaxWord, 2);
}
