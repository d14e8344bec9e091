// The buffer between a source and the decoders, the search for the sync byte, and the choice of the decoder.
#include "files/mFrame.h"

#include "core/mGlobData.h"
#include "core/mModes.h"
#include "files/mDecode.h"

#include <algorithm>

namespace {
// The longest frame is 32,900 bytes.
constexpr std::size_t BufferSize = 65536;

// The limits of the four sources; the two links look at the size of the body, the files at L.
constexpr int FileShortLength = 28;  // exactly this L is short
constexpr int SerialLongAbove = 33;  // bodies above are long
constexpr int SocketShortBelow = 34; // bodies below are short
constexpr int ReplayLongAbove = 33;  // L above is long
} // namespace

ByteSource::ByteSource(Refill Reader, Reading Manner) : More(std::move(Reader)), How(Manner), Buffer(BufferSize) {}

void ByteSource::Fill(std::size_t Count)
{
    std::copy(Buffer.begin() + static_cast<std::ptrdiff_t>(Begin), Buffer.begin() + static_cast<std::ptrdiff_t>(End),
              Buffer.begin());
    End -= Begin;
    Begin = 0;
    while (End < Count) {
        const std::size_t Got =
            More(std::span(Buffer).subspan(End, How == Reading::Ahead ? std::dynamic_extent : Count - End));
        if (Got == 0) return;
        End += Got;
    }
}

bool Frame::IsWhole() const
{
    return Bytes.size() >= FrameHeadSize && Bytes.size() == Size();
}

std::span<const uint8_t> Frame::Body() const
{
    return Bytes.subspan(std::min(FrameHeadSize, Bytes.size()));
}

bool FindSync(ByteSource& Source)
{
    while (true) {
        const auto Ready = Source.Ready();
        const auto Sync = std::find_if(Ready.begin(), Ready.end(), [](uint8_t Byte) { return Byte >= SyncLimit; });
        Source.Skip(static_cast<std::size_t>(Sync - Ready.begin()));
        if (Sync != Ready.end()) return true;
        if (Ready.empty()) return false;
    }
}

std::optional<Frame> TakeFrame(ByteSource& Source)
{
    if (!FindSync(Source)) return {};
    Frame Taken{Source.Peek(FrameHeadSize)};
    if (Taken.Bytes.size() == FrameHeadSize) Taken.Bytes = Source.Peek(Taken.Size());
    Source.Skip(Taken.Bytes.size());
    return Taken;
}

bool IsShortFrame(FrameSource From, int Length)
{
    if (gFile.Model == ModelSlave16)
        return true; // its bodies of 49 bytes are short although no size limit makes them so
    const int BodySize = Length + 1;
    switch (From) {
    case FrameSource::File:
        return Length == FileShortLength;
    case FrameSource::Serial:
        return BodySize <= SerialLongAbove;
    case FrameSource::Socket:
        return BodySize < SocketShortBelow;
    case FrameSource::Replay:
        return Length <= ReplayLongAbove;
    }
    return false;
}

bool DecodeFrame(FrameSource From, const Frame& Taken, Stream& Kept, SampleVector& Data)
{
    if (!Taken.IsWhole()) return false;
    const bool IsShort = IsShortFrame(From, Taken.Length());
    return IsShort ? DecodeShort(Taken.Body(), Kept, Data) : DecodeLong(Taken.Body(), Kept, Data);
}

bool DecodeLive(FrameSource From, const Frame& Taken, Stream& Kept)
{
    const int32_t Before = Kept.FrameCnt;
    const bool IsDecoded = DecodeFrame(From, Taken, Kept, gData);
    gFrameCnt += Kept.FrameCnt - Before;
    PublishLive(Kept);
    return IsDecoded;
}
