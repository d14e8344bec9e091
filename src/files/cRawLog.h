// The open raw log: frames appended unchanged, at the operating system's at once and on the disk within a second.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <span>
#include <string>
#include <thread>

/// What becomes of the bytes of a file that is recorded over. Kept: a shorter recording leaves their tail. Dropped:
/// they go when the first frame comes, so that a recording of nothing changes nothing.
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

    /// Hands a whole frame to the operating system. False when it or an earlier sync failed: the file ends behind the
    /// last frame that is whole and is closed.
    bool Append(std::span<const uint8_t> Frame);

    /// Whether everything has reached the disk so far, as far as the operating system has told.
    bool IsSound() const { return SyncError == 0; }

    /// Puts the rest on the disk and closes. False when that failed.
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

    // A slow card may take seconds for a sync, and a serial line holds less than one of stream: so it has a thread.
    std::thread Syncer;
    std::mutex Lock;
    std::condition_variable Wake;
    bool IsStopping = false; // under Lock
    std::atomic<bool> IsDirty = false;
    std::atomic<int> SyncError = 0;
};
