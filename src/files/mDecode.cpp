// Frame bodies of both kinds, with the optional and slave blocks of the long one and the measures of the stream.
#include "files/mDecode.h"

#include "base/mNumText.h"
#include "core/mSettings.h"

#include <algorithm>
#include <limits>

bool gSignedADC = false;
std::array<double, 6> gLastGPS{};

namespace {
constexpr int FirstOptional = 11;
constexpr int LastMasterChan = 16;
constexpr uint16_t UnsignedLimit = 16384; // values from here on are stored as 0

// Times of the previous frame of each kind, in seconds.
double LastLongTime = 0;
double LastShortTime = 0;

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
void Put(int Chan, double Value)
{
    if (Chan <= LastDataChan) gData[static_cast<std::size_t>(Chan)] = Value;
}

// Reads words into channels First and up. In line, so that the reader stays in registers.
template <class Formula>
[[gnu::always_inline]] inline void PutWords(BodyReader& Body, int First, int Count, const Formula& Of)
{
    constexpr int Room = LastDataChan + 1;
    const int Fit = std::clamp(Room - First, 0, Count);
    Body.ReadWords(
        std::span(gData).subspan(static_cast<std::size_t>(std::min(First, Room)), static_cast<std::size_t>(Fit)), Of);
    for (int i = Fit; i < Count; ++i)
        Body.ReadWord();
}

constexpr auto Centred = [](uint16_t Word) { return static_cast<int16_t>(BodyReader::Centred(Word)); };
constexpr auto Signed = [](uint16_t Word) { return static_cast<int16_t>(Word); };
constexpr auto Unsigned = [](uint16_t Word) { return static_cast<int16_t>(Word < UnsignedLimit ? Word : 0); };

// A value counts as received only when the body held it.
void Receive(const BodyReader& Body, int Chan, int64_t Value)
{
    if (Body.FrameOK) gLastGPS[static_cast<std::size_t>(Chan - FirstOptional)] = static_cast<double>(Value);
}

void ReadOptionalBlock(BodyReader& Body, const OptionalBlock& Block)
{
    if (Block.Pair) {
        Receive(Body, 11, Body.ReadWord());
        Receive(Body, 12, Body.ReadWord());
    }
    if (Block.Fix) {
        Receive(Body, 13, Body.ReadLong());
        Receive(Body, 14, Body.ReadLong());
        Receive(Body, 15, Body.ReadWord());
    }
    if (Block.Last) Receive(Body, 16, Body.ReadWord());
    for (std::size_t i = 0; i < gLastGPS.size(); ++i)
        gData[FirstOptional + i] = gLastGPS[i];
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

// Reads one slave block behind channel Base. Size is the channel count of the block before, then of this one.
void ReadSlaveBlock(BodyReader& Body, int Base, int& Size)
{
    if (Body.ReadWord() <= 0) return;
    Body.ReadByte();
    int Flags = Body.ReadByte();
    gSignedADC = Flags >= 32;
    if (gSignedADC) Flags -= 32;
    const bool HasExtras = Flags < 16;
    if (!HasExtras) Flags -= 16;
    Size = BlockSize(Flags, Size);
    if (gSignedADC)
        PutWords(Body, Base + 1, Size, Centred);
    else
        PutWords(Body, Base + 1, Size, Unsigned);
    if (!HasExtras) return;
    Put(Base + Size + 1, Body.ReadWord());
    Put(Base + Size + 2, Body.ReadWord());
}

// The extra words of a block do not move the base: the next block's first channels lie over them.
void ReadSlaveBlocks(BodyReader& Body, int Count)
{
    int Base = LastMasterChan;
    int Size = 0;
    for (int Block = 0; Block < Count; ++Block) {
        ReadSlaveBlock(Body, Base, Size);
        Base += Size;
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
void CountMissed()
{
    if (gFrameCnt < 2 || RoundHalfEven(gFrequency) >= gDataFreq) return;
    const double Sum = gMissed + RoundHalfEven(SafeDiv(gDataFreq, gFrequency));
    using Limits = std::numeric_limits<int32_t>;
    if (Sum >= Limits::min() && Sum <= Limits::max()) gMissed = static_cast<int32_t>(Sum);
}

void CountLongFrame(double Time)
{
    ++gFrameCnt;
    const double Step = Time - LastLongTime;
    // The first frame of a link has none before it: the step that the panel was opened with holds.
    if (gFrameCnt > 1) gDeltaT = Step;
    gFrequency = SafeDiv(1, Step);
    CountMissed();
    LastLongTime = Time;
}
} // namespace

bool DecodeLong(std::span<const uint8_t> Bytes)
{
    // A byte of 128 or above is the sync byte of a frame that started within this one.
    if (HasSyncByte(Bytes)) return false;
    BodyReader Body(Bytes);
    const double Time = static_cast<double>(Body.ReadTime()) / 1000;
    gData[0] = Time;
    gSampleTime = Time;
    const int Blocks = Body.ReadByte();
    const int Kind = Body.ReadWord();
    Body.ReadByte();
    Body.ReadByte();
    PutWords(Body, 1, 4, Signed);
    PutWords(Body, 5, 6, Centred);
    for (const OptionalBlock& Block : OptionalBlocks)
        if (Block.Kind == Kind) ReadOptionalBlock(Body, Block);
    ReadSlaveBlocks(Body, Blocks - 1);
    Body.ReadByte();
    if (Body.FrameOK) CountLongFrame(Time);
    return Body.FrameOK;
}

bool DecodeShort(std::span<const uint8_t> Bytes)
{
    BodyReader Body(Bytes);
    const double Time = static_cast<double>(Body.ReadTime()) / 1000;
    gData[0] = Time;
    gSampleTime = RoundHalfEven(Time);
    Body.ReadByte();
    Body.ReadWord();
    Body.ReadWord();
    Body.ReadByte();
    Body.ReadByte();
    // The old 16-channel slave numbers its channels from 0, so its first word lies over the time.
    if (gFile.Model == 66) PutWords(Body, 0, 18, Signed);
    if (gFile.Model == 67 || gFile.Model == 68) PutWords(Body, 1, 8, Signed);
    Body.ReadByte();
    ++gFrameCnt;
    if (Time != LastShortTime) gFrequency = 1 / (Time - LastShortTime);
    LastShortTime = Time;
    return Body.FrameOK;
}

StreamState::StreamState() : LongTime(LastLongTime), ShortTime(LastShortTime) {}

void StreamState::Restore() const
{
    gData = Data;
    gLastGPS = LastGPS;
    gSignedADC = SignedADC;
    LastLongTime = LongTime;
    LastShortTime = ShortTime;
    gFrameCnt = FrameCnt;
    gMissed = Missed;
}
