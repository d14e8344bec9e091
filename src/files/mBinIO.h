// Raw sample files: the reader of frames, and the sample store filled from a recording.
#pragma once

#include "files/mFrame.h"
#include "files/mUnread.h"

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>

/// A raw sample file that is read frame by frame through a fixed buffer. Positions are one-based.
class RawFile
{
public:
    /// Opens the file at a position. False when it is no readable file; nothing is reported.
    bool Open(const std::string& Path, int32_t Start = 1);
    void Close();

    /// The path it was opened by.
    const std::string& Path() const { return Name; }

    /// Bytes in the file.
    int32_t Length() const { return Size; }

    /// Position of the next byte to be taken.
    int32_t Position() const { return First + static_cast<int32_t>(Source.Taken()); }

    bool AtEnd() { return Source.Ready().empty(); }

    /// Bytes taken since it was opened.
    int64_t Taken() const { return Source.Taken(); }

    /// The next frame as TakeFrame gives it.
    std::optional<Frame> Take();

    /// Position of the frame that was taken last.
    int32_t FrameAt() const { return LastAt; }

    /// What this reading has left out so far, for those who decode the frames to keep and to report.
    Unread Left;

    /// Its bytes, for those who look at more than whole frames.
    ByteSource& Bytes() { return Source; }

    /// Whether the device failed while the file was read.
    bool HasFailed() const { return File.bad(); }

private:
    std::size_t Read(std::span<uint8_t> Room);

    std::string Name;
    std::ifstream File;
    ByteSource Source{[this](std::span<uint8_t> Room) { return Read(Room); }};
    int32_t First = 1;
    int32_t Size = 0;
    int32_t LastAt = 0;
};

/// The file that ReadFrame reads. Open during one reading only.
extern RawFile gScanFile;

/// The stream of gScanFile, and its frame decoded last. gData stays that of the link or the replay.
extern Stream gScanStream;
extern SampleVector gScanData;

/// Opens gScanFile at a position and begins its stream. False for a file that cannot be read or is larger than 2 GB
/// (reported to the user).
bool OpenScanFile(const std::string& Path, int32_t Start = 1);

/// Closes gScanFile. The values that its frames have left are shown, unless a link or a replay is open. What of it was
/// not read is reported to the user, or given in Left. False when the device failed while it was read (reported to the
/// user), or when what was not read is a failure.
bool CloseScanFile(Unread* Left = nullptr);

/// Decodes the next frame of gScanFile into gScanData. False when there is no whole frame or the decoder refused it:
/// the reading ends there.
bool ReadFrame();

/// Whole percents of a long piece of work as they are reached.
class PercentMeter
{
public:
    explicit PercentMeter(int64_t Total) : Whole(Total > 0 ? Total : 1) { Await(1); }

    /// Whether Done has come to a percent above the last one reported.
    bool IsReached(int64_t Done)
    {
        if (Done < Next) return false;
        Reached = static_cast<int>(std::min<int64_t>(Done * 100 / Whole, 100));
        Await(Reached + 1);
        return true;
    }
    int Percent() const { return Reached; }

private:
    void Await(int Higher) { Next = (Higher * Whole + 99) / 100; }

    int64_t Whole;
    int64_t Next = 0;
    int Reached = 0;
};

/// Reads the frames between two positions of a raw file into gRaw, calibrated, until the first that fails; a frame cut
/// off by the end of the file is left out. Start below 1 becomes 1, Stop below 1 the file's length. At most 32,201
/// samples are kept. What was not read is reported to the user, or given in Left. False when the file cannot be read
/// (reported to the user), or when what was not read is a failure: gRaw is as it was. Throws RunError when the
/// session's channels do not fit a frame.
bool ReadRawFile(const std::string& Path, int32_t& Start, int32_t& Stop, Unread* Left = nullptr);

/// Copies the frames of gRawFN that begin between two positions, with Start and Stop as in ReadRawFile, into Dest,
/// which is written whole; bytes between frames are left out. False when it failed (reported to the user) or was given
/// up: Dest is as it was.
bool CutRawFile(const std::string& Dest, int32_t Start, int32_t Stop);
