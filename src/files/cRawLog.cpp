// Writing of the raw log, its cut on a full disk, and its sync once a second.
#include "files/cRawLog.h"

#include "base/mError.h"
#include "base/mSafeSave.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr std::chrono::seconds SyncPeriod{1};
} // namespace

bool cRawLog::Open(const std::string& Path, OldBytes Old)
{
    Close();
    Name = Path;
    Reason.clear();
    Written = 0;
    DropsOld = Old == OldBytes::Dropped;
    SyncError = 0;
    IsDirty = false;
    // A write beyond the limit on the size of files must fail, not end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    File = open(Path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (File < 0) return Fail(errno);
    SyncName(Path);
    IsStopping = false;
    Syncer = std::thread([this] { KeepSynced(); });
    return true;
}

bool cRawLog::Append(std::span<const uint8_t> Frame)
{
    if (!IsSound()) return Fail(SyncError);
    // A device cannot be truncated.
    if (DropsOld && ftruncate(File, 0) != 0 && errno != EINVAL) return Fail(errno);
    DropsOld = false;
    std::size_t Done = 0;
    while (Done < Frame.size()) {
        const ssize_t Count = write(File, Frame.data() + Done, Frame.size() - Done);
        if (Count < 0 && errno != EINTR) return CutFrame(Done, errno);
        if (Count > 0) Done += static_cast<std::size_t>(Count);
    }
    Written += static_cast<int64_t>(Done);
    IsDirty = true;
    return true;
}

// A part of a frame would put the readers of the file out of step.
bool cRawLog::CutFrame(std::size_t Done, int Error)
{
    if (Done > 0 && ftruncate(File, Written) != 0) Error = errno;
    return Fail(Error);
}

bool cRawLog::Fail(int Error)
{
    Close();
    Reason = SystemReason(Error);
    return false;
}

bool cRawLog::Close()
{
    if (!IsOpen()) return true;
    StopSyncing();
    if (SyncError == 0 && fdatasync(File) != 0 && errno != EINVAL) SyncError = errno;
    close(File);
    File = -1;
    if (SyncError != 0) Reason = SystemReason(SyncError);
    return SyncError == 0;
}

void cRawLog::KeepSynced()
{
    std::unique_lock Held(Lock);
    while (!Wake.wait_for(Held, SyncPeriod, [this] { return IsStopping; })) {
        Held.unlock();
        // A device that is not a disk cannot be synced.
        if (IsDirty.exchange(false) && fdatasync(File) != 0 && errno != EINVAL) SyncError = errno;
        Held.lock();
    }
}

void cRawLog::StopSyncing()
{
    {
        const std::lock_guard Held(Lock);
        IsStopping = true;
    }
    Wake.notify_one();
    Syncer.join();
}
