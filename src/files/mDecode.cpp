// Frame bodies of both kinds, with the optional and slave blocks of the long one and the measures of the stream.
#include "files/mDecode.h"

#include "base/mNumText.h"
#include "core/mModes.h"
#include "core/mSettings.h"

#include <algorithm>
#include <limits>

namespace {
constexpr int FirstOptional = 11;
constexpr int LastMasterChan = 16;
constexpr uint16_t UnsignedLimit = 16384; // values from here on are stored as 0

// Which parts of channels 11 to 16 a frame kind carries.
struct OptionalBlock
{
    int Kind;
    bool Pair; // 11 and 12
    bool Fix;  // 13 to 15
    bool Last; // 16
};
constexpr std::array<OptionalBlock, 4> OptionalBlocks = {
    {{26, true, false, false}, {34, false, true, true}, {36, true, true, false}, {38, true, true, true}}};

// Channels beyond the vector are left out.
void Put(SampleVector& Data, int Chan, double Value)
{
    if (Chan <= LastDataChan) Data[static_cast<std::size_t>(Chan)] = Value;
}

// Reads words into channels First and up. In line, so that the reader stays in registers.
template <class Formula>
[[gnu::always_inline]] inline void PutWords(BodyReader& Body, SampleVector& Data, int First, int Count,
                                            const Formula& Of)
{
    constexpr int Room = LastDataChan + 1;
    const int Fit = std::clamp(Room - First, 0, Count);
    Body.ReadWords(
        std::span(Data).subspan(static_cast<std::size_t>(std::min(First, Room)), static_cast<std::size_t>(Fit)), Of);
    for (int i = Fit; i < Count; ++i)
        Body.ReadWord();
}

constexpr auto Centred = [](uint16_t Word) { return static_cast<int16_t>(BodyReader::Centred(Word)); };
constexpr auto Signed = [](uint16_t Word) { return static_cast<int16_t>(Word); };
constexpr auto Unsigned = [](uint16_t Word) { return static_cast<int16_t>(Word < UnsignedLimit ? Word : 0); };

// A value counts as received only when the body held it.
void Receive(const BodyReader& Body, Stream& Kept, int Chan, int64_t Value)
{
    if (Body.FrameOK) Kept.LastGPS[static_cast<std::size_t>(Chan - FirstOptional)] = static_cast<double>(Value);
}

void ReadOptionalBlock(BodyReader& Body, const OptionalBlock& Block, Stream& Kept, SampleVector& Data)
{
    if (Block.Pair) {
        Receive(Body, Kept, 11, Body.ReadWord());
        Receive(Body, Kept, 12, Body.ReadWord());
    }
    if (Block.Fix) {
        Receive(Body, Kept, 13, Body.ReadLong());
        Receive(Body, Kept, 14, Body.ReadLong());
        Receive(Body, Kept, 15, Body.ReadWord());
    }
    if (Block.Last) Receive(Body, Kept, 16, Body.ReadWord());
    std::copy(Kept.LastGPS.begin(), Kept.LastGPS.end(), Data.begin() + FirstOptional);
}

// Channels of a slave block by what remains of its flags.
int BlockSize(int Flags, int SizeBefore)
{
    switch (Flags) {
    case 0:
        return 16;
    case 10:
    case 12:
        return 8;
    case 14:
        return 4;
    default:
        return SizeBefore;
    }
}

// Channels that an empty first block leaves out: as many as the last block of the stream had, before any block as many
// as the session says each slave has; 0 when it does not say.
int EmptyBlockSize(const Stream& Kept)
{
    if (Kept.SlaveChans > 0) return Kept.SlaveChans;
    const int Chans = gFile.ChanCnt - LastMasterChan;
    const bool IsWhole = Chans > 0 && gFile.SlaveCnt > 0 && Chans % gFile.SlaveCnt == 0;
    return IsWhole ? Chans / gFile.SlaveCnt : 0;
}

// Reads one slave block, whose channels follow channel Base. Before is the channel count of the block before, nothing
// for the first of a frame. Gives the count of this one.
int ReadSlaveBlock(BodyReader& Body, int Base, std::optional<int> Before, Stream& Kept, SampleVector& Data)
{
    if (Body.ReadWord() <= 0) return Before ? *Before : EmptyBlockSize(Kept);
    Body.ReadByte();
    int Flags = Body.ReadByte();
    Kept.SignedADC = Flags >= 32;
    if (Kept.SignedADC) Flags -= 32;
    const bool HasExtras = Flags < 16;
    if (!HasExtras) Flags -= 16;
    const int Size = BlockSize(Flags, Before.value_or(0));
    if (Body.FrameOK) Kept.SlaveChans = Size;
    if (Kept.SignedADC)
        PutWords(Body, Data, Base + 1, Size, Centred);
    else
        PutWords(Body, Data, Base + 1, Size, Unsigned);
    if (!HasExtras) return Size;
    Put(Data, Base + Size + 1, Body.ReadWord());
    Put(Data, Base + Size + 2, Body.ReadWord());
    return Size;
}

// The extra words of a block do not move the base: the next block's first channels lie over them.
void ReadSlaveBlocks(BodyReader& Body, int Count, Stream& Kept, SampleVector& Data)
{
    int Base = LastMasterChan;
    std::optional<int> Size;
    for (int Block = 0; Block < Count; ++Block) {
        Size = ReadSlaveBlock(Body, Base, Size, Kept, Data);
        Base += *Size;
    }
}

// Whether a byte ahead of the last one is of 128 or above. Looks at eight bytes at a time.
bool HasSyncByte(std::span<const uint8_t> Body)
{
    const std::size_t Size = std::max<std::size_t>(Body.size(), 1) - 1;
    uint64_t Bits = 0;
    const auto Look = [&](std::size_t First, std::size_t Count) {
        uint64_t Part = 0;
        std::memcpy(&Part, Body.data() + First, Count);
        Bits |= Part;
    };
    constexpr std::size_t Step = sizeof Bits;
    if (Size < Step) {
        Look(0, Size);
    } else {
        for (std::size_t i = 0; i + Step < Size; i += Step)
            Look(i, Step);
        Look(Size - Step, Step);
    }
    return (Bits & 0x8080808080808080) != 0;
}

// Adds the frames that fit into the last gap. A sum beyond the counter's range is left out.
void CountMissed(Stream& Kept)
{
    if (Kept.FrameCnt < 2 || RoundHalfEven(Kept.Frequency) >= gDataFreq) return;
    const double Sum = Kept.Missed + RoundHalfEven(SafeDiv(gDataFreq, Kept.Frequency));
    using Limits = std::numeric_limits<int32_t>;
    if (Sum >= Limits::min() && Sum <= Limits::max()) Kept.Missed = static_cast<int32_t>(Sum);
}

void CountLongFrame(double Time, Stream& Kept)
{
    ++Kept.FrameCnt;
    const double Step = Time - Kept.LongTime;
    // The first frame of a stream has none before it: the step that the window was opened with holds.
    if (Kept.FrameCnt > 1) Kept.DeltaT = Step;
    Kept.Frequency = SafeDiv(1, Step);
    CountMissed(Kept);
    Kept.LongTime = Time;
}
} // namespace

bool DecodeLong(std::span<const uint8_t> Bytes, Stream& Kept, SampleVector& Data)
{
    // A byte of 128 or above is the sync byte of a frame that started within this one.
    if (HasSyncByte(Bytes)) return false;
    BodyReader Body(Bytes);
    const double Time = static_cast<double>(Body.ReadTime()) / 1000;
    Data[0] = Time;
    Kept.SampleTime = Time;
    const int Blocks = Body.ReadByte();
    const int Kind = Body.ReadWord();
    Body.ReadByte();
    Body.ReadByte();
    PutWords(Body, Data, 1, 4, Signed);
    PutWords(Body, Data, 5, 6, Centred);
    for (const OptionalBlock& Block : OptionalBlocks)
        if (Block.Kind == Kind) ReadOptionalBlock(Body, Block, Kept, Data);
    ReadSlaveBlocks(Body, Blocks - 1, Kept, Data);
    Body.ReadByte();
    if (Body.FrameOK) CountLongFrame(Time, Kept);
    return Body.FrameOK;
}

bool DecodeShort(std::span<const uint8_t> Bytes, Stream& Kept, SampleVector& Data)
{
    BodyReader Body(Bytes);
    const double Time = static_cast<double>(Body.ReadTime()) / 1000;
    Data[0] = Time;
    Kept.SampleTime = RoundHalfEven(Time);
    Body.ReadByte();
    Body.ReadWord();
    Body.ReadWord();
    Body.ReadByte();
    Body.ReadByte();
    // The old 16-channel slave numbers its channels from 0, so its first word lies over the time.
    if (gFile.Model == ModelSlave16) PutWords(Body, Data, 0, 18, Signed);
    if (gFile.Model == ModelSlave8 || gFile.Model == ModelEncoder) PutWords(Body, Data, 1, 8, Signed);
    Body.ReadByte();
    ++Kept.FrameCnt;
    if (Time != Kept.ShortTime) Kept.Frequency = 1 / (Time - Kept.ShortTime);
    Kept.ShortTime = Time;
    return Body.FrameOK;
}
