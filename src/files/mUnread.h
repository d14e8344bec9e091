// What a reader of a recording leaves out, and the words in which it says so.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Counts the frames of one reading and what it did not take. Positions are one-based, times are the frames' own in
/// seconds.
class Unread
{
public:
    /// Begins the reading of a file of that many bytes.
    void Begin(const std::string& Path, int32_t Bytes);

    /// A frame was decoded.
    void AddFrame(double Time)
    {
        if (Count++ == 0) FirstTime = Time;
        LastTime = Time;
    }

    /// A frame was decoded although it holds a sync byte: a value of it is wrong, or it lies over others.
    void AddDoubtful(int32_t Position);

    /// A frame could not be decoded, and the reading goes on behind it.
    void AddBroken(int32_t Position, int64_t Bytes);

    /// A frame could not be decoded, and the reading ends with it. HasMore: others may follow.
    void StopAt(int32_t Position, bool HasMore);

    /// The samples that are held at once end at Position, ahead of the end.
    void FillAt(int32_t Position);

    /// Bytes ahead of a frame of that size, or behind the last one, the size being 0 then. A few of them are nothing
    /// unusual; half as many as a frame has or more are a broken frame, whose sync byte is not there.
    void AddStray(int32_t Position, int64_t Bytes, std::size_t FrameSize)
    {
        if (FrameSize > 0) LastSize = static_cast<int64_t>(FrameSize);
        if (Bytes > 0 && LastSize > 0 && 2 * Bytes >= LastSize) AddBroken(Position, Bytes);
    }

    /// Whether frames of the recording were not read, or not as they were sent.
    bool IsShort() const { return HasStopped || IsFull() || Broken > 0 || Doubtful > 0; }

    /// Whether a mended copy would be better: with frames behind the one that ended the reading, or without doubtful
    /// ones.
    bool IsMendable() const { return (HasStopped && HasMore) || Doubtful > 0; }

    /// Whether the recording is longer than what is held at once.
    bool IsFull() const { return !Full.empty(); }

    /// "a.qvn: stopped at byte 300 of 900 (frame 5, 0.2 s): the rest was not read", and whatever else there is to
    /// report; empty when there is nothing.
    std::string Text() const;

    /// The same without what IsFull says.
    std::string Damage() const;

private:
    std::string Place(int32_t Position) const;

    std::string Name;
    std::string Stop; // where the reading ended ahead of the end: at a frame that could not be decoded,
    std::string Full; // or at the last sample that is held
    int32_t Length = 0;
    int32_t Count = 0;
    int64_t LastSize = 0; // bytes of the last frame
    double FirstTime = 0;
    double LastTime = 0;
    bool HasStopped = false;
    bool HasMore = false;
    int32_t Broken = 0; // frames passed over, with their bytes and the place of the first
    int64_t BrokenBytes = 0;
    std::string BrokenPlace;
    int32_t Doubtful = 0;
    std::string DoubtfulPlace;
};

/// Reports what a reading left out, if anything. False when that is a failure.
bool ReportUnread(const Unread& Left);

/// Frames that were not read are a failure, for every reader: what was read is not used. False in the desktop program.
extern bool gStrictReading;
