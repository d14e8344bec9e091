// The open raw log: frames are appended unchanged, handed to the operating system at once and synced to the disk within
// a second.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <span>
#include <string>
#include <thread>

/// What happens to the bytes of an existing file that is recorded over. Kept: what lies beyond a shorter recording
/// stays. Dropped: the file is emptied when the first frame comes, so that a recording without frames changes nothing.
enum class OldBytes
{
    Kept,
    Dropped
};

class cRawLog
{
public:
    cRawLog() = default;
    ~cRawLog() { Close(); }
    cRawLog(const cRawLog&) = delete;
    cRawLog& operator=(const cRawLog&) = delete;

    /// Opens Path for a new recording, without touching its bytes. False when it cannot be written.
    bool Open(const std::string& Path, OldBytes Old);

    bool IsOpen() const { return File >= 0; }

    /// Writes a whole frame. False when this or an earlier sync failed: the file then ends with its last whole frame
    /// and is closed.
    bool Append(std::span<const uint8_t> Frame);

    /// Whether no sync has failed so far.
    bool IsSound() const { return SyncError == 0; }

    /// Syncs the rest to the disk and closes the file. False when that failed.
    bool Close();

    /// Bytes recorded since the log was opened.
    int64_t Length() const { return Written; }

    const std::string& Path() const { return Name; }

    /// Why the last call failed, in the words of the operating system.
    const std::string& Failure() const { return Reason; }

private:
    bool CutFrame(std::size_t Done, int Error);
    bool Fail(int Error);
    void KeepSynced();
    void StopSyncing();

    std::string Name;
    std::string Reason;
    int File = -1;
    int64_t Written = 0;
    bool DropsOld = false;

    // Syncing has a thread of its own, since a slow card may take seconds, while the serial port's input buffer holds
    // less than one second of frames.
    std::thread Syncer;
    std::mutex Lock;
    std::condition_variable Wake;
    bool IsStopping = false; // under Lock
    std::atomic<bool> IsDirty = false;
    std::atomic<int> SyncError = 0;
};
