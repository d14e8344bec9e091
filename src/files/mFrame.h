// Finding frames in a stream of bytes from any source, and the rule that distinguishes long frames from short ones.
#pragma once

#include "files/mStream.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

/// A byte of this value or above starts a frame.
inline constexpr uint8_t SyncLimit = 128;

/// Bytes of a frame ahead of its body: the sync byte and the head.
inline constexpr std::size_t FrameHeadSize = 4;

/// How much a source reads at once: a file as much as there is, a link no more than is asked for, so that unused bytes
/// stay in the buffers of the operating system and the port.
enum class Reading
{
    Ahead,
    AsAsked
};

/// Bytes of a file, a port or a socket, read into a fixed buffer that holds the longest frame.
class ByteSource
{
public:
    /// Puts the next bytes of the stream into Room and gives their number, 0 when there are none.
    using Refill = std::function<std::size_t(std::span<uint8_t> Room)>;

    explicit ByteSource(Refill Reader, Reading Manner = Reading::Ahead);

    /// The next Count bytes, fewer when there are no more. Valid until the next call.
    std::span<const uint8_t> Peek(std::size_t Count)
    {
        if (End - Begin < Count) Fill(Count);
        return {Buffer.data() + Begin, std::min(Count, End - Begin)};
    }

    /// All bytes that are at hand, at least one unless there are no more.
    std::span<const uint8_t> Ready()
    {
        Peek(1);
        return {Buffer.data() + Begin, End - Begin};
    }

    /// Bytes taken in and not yet skipped.
    std::size_t Held() const { return End - Begin; }

    /// Skips Count bytes that were peeked at.
    void Skip(std::size_t Count)
    {
        Begin += Count;
        Passed += static_cast<int64_t>(Count);
    }

    /// Bytes skipped since the source was made or restarted.
    int64_t Taken() const { return Passed; }

    /// Drops what is at hand: the next bytes are the first of another stream.
    void Restart()
    {
        Begin = End = 0;
        Passed = 0;
    }

private:
    void Fill(std::size_t Count);

    Refill More;
    Reading How;
    std::vector<uint8_t> Buffer;
    std::size_t Begin = 0;
    std::size_t End = 0;
    int64_t Passed = 0;
};

/// One frame as it came: sync byte, head and body. The bytes are those of the source, valid until its next use.
struct Frame
{
    std::span<const uint8_t> Bytes;

    /// L of the head; the body has one byte more.
    int Length() const { return Bytes[2] + 128 * Bytes[3]; }

    /// Bytes of the whole frame.
    std::size_t Size() const { return FrameHeadSize + static_cast<std::size_t>(Length()) + 1; }

    /// False when the source ended within the frame.
    bool IsWhole() const;

    /// The bytes after the head.
    std::span<const uint8_t> Body() const;
};

/// Drops bytes up to the next sync byte. False when there is none yet.
bool FindSync(ByteSource& Source);

/// The next frame; bytes ahead of its sync byte are dropped. Nothing when the source ends before there is one; what is
/// there of a frame that was cut off comes as a frame that is not whole.
std::optional<Frame> TakeFrame(ByteSource& Source);

/// Where frames come from. Each source distinguishes short frames from long ones by a limit of its own.
enum class FrameSource
{
    File,
    Serial,
    Socket,
    Replay
};

/// Whether a frame with that L is decoded as a short one. The old 16-channel slave sends short frames only.
bool IsShortFrame(FrameSource From, int Length);

/// Decodes a frame into Data, in place, with the decoder of its size. Kept is what its stream carries from frame to
/// frame. False when the frame was not whole or refused.
bool DecodeFrame(FrameSource From, const Frame& Taken, Stream& Kept, SampleVector& Data);

/// Decodes a frame of the link or the replay into gData, counts it in gFrameCnt and shows what it has left in its
/// stream. False as for DecodeFrame.
bool DecodeLive(FrameSource From, const Frame& Taken, Stream& Kept);
