// What is handed to the disk: calls of the system that write files through, counted and made to fail.
#include "files/cRawLog.h"
#include "support/Case.h"

#include <cerrno>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace {
std::atomic<int> Synced = 0;
std::atomic<int> SyncFails = 0; // with this error

int Sync(long Call, int File)
{
    ++Synced;
    if (SyncFails == 0) return static_cast<int>(syscall(Call, File));
    errno = SyncFails;
    return -1;
}

struct Disk : TempFolder
{
    Disk() { Synced = 0; }
    ~Disk() { SyncFails = 0; }
    const std::string File = Path("a.qvn");
};

bool Append(cRawLog& Log)
{
    const uint8_t Frame[] = {1, 2, 3};
    return Log.Append(Frame);
}
} // namespace

// In place of those of the library.
extern "C" int fsync(int File)
{
    return Sync(SYS_fsync, File);
}
extern "C" int fdatasync(int File)
{
    return Sync(SYS_fdatasync, File);
}

TEST_CASE_FIXTURE(Disk, "a durable save syncs the file and its name, and a disk that fails leaves the old file")
{
    CHECK(SaveWhole(File, "old"));
    CHECK(Synced == 2);
    CHECK(SaveWhole(File, "scratch", Durability::Fast));
    CHECK(Synced == 2);
    WholeFile First(File), Second(Path("b.txt"));
    First.Append("first");
    CHECK(CommitBoth(First, Second));
    CHECK(Synced == 9); // the old file, both new ones twice, two names
    SyncFails = EIO;
    WholeFile Late(File);
    CHECK_FALSE(Late.Commit());
    CHECK(Late.Failure() == "Input/output error");
    CHECK(ReadWhole(File) == "first");
}

TEST_CASE_FIXTURE(Disk, "a recording is synced when it is opened, while it runs and at its end")
{
    cRawLog Log;
    REQUIRE(Log.Open(File, OldBytes::Kept));
    CHECK(Synced == 1);
    CHECK(Append(Log));
    for (int i = 0; i < 500 && Synced < 2; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    CHECK(Synced == 2);
    SyncFails = EINVAL; // as of a device that is no disk
    CHECK(Log.Close());
    CHECK(Synced == 3);
    CHECK(Log.Close());
    CHECK(Synced == 3);
}

TEST_CASE_FIXTURE(Disk, "a disk that fails ends the recording at its next frame, at the latest at its end")
{
    cRawLog Log;
    REQUIRE(Log.Open(File, OldBytes::Kept));
    SyncFails = EIO;
    CHECK(Append(Log));
    for (int i = 0; i < 500 && Log.IsSound(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    CHECK_FALSE(Append(Log));
    CHECK((!Log.IsOpen() && Log.Failure() == "Input/output error" && Log.Length() == 3));
    SyncFails = 0;
    REQUIRE(Log.Open(File, OldBytes::Kept));
    CHECK(Append(Log));
    SyncFails = EIO;
    CHECK_FALSE(Log.Close());
    CHECK(Log.Failure() == "Input/output error");
}
