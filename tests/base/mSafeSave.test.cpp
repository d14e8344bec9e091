// Files replaced only by whole new ones: what is left after kills, full disks and odd targets.
#include "base/mSafeSave.h"
#include "support/Case.h"
#include "support/FullDisk.h"

#include <csignal>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
namespace fs = std::filesystem;

struct Session
{
    TempFolder Folder;
    std::string Path = Folder.Path("session.txt");

    auto Files() const { return std::distance(fs::directory_iterator(Folder.Path("")), {}); }
};

// Saves two contents in turn and kills that within the save that follows so many whole ones.
void KillWhileSaving(const std::string& Path, const std::string& First, const std::string& Second, unsigned Whole,
                     unsigned Microseconds)
{
    int Pipe[2];
    REQUIRE(pipe(Pipe) == 0);
    const pid_t Child = fork();
    for (bool Odd = true; Child == 0; Odd = !Odd) {
        SaveWhole(Path, Odd ? First : Second);
        if (write(Pipe[1], "+", 1) != 1) _exit(1);
    }
    char Mark = 0;
    while (Whole-- > 0)
        REQUIRE(read(Pipe[0], &Mark, 1) == 1);
    usleep(Microseconds);
    kill(Child, SIGKILL);
    waitpid(Child, nullptr, 0);
    close(Pipe[0]);
    close(Pipe[1]);
}
} // namespace

TEST_CASE_FIXTURE(Session, "a kill at any instant of a save leaves the old or the new file whole")
{
    const std::string First(700'000, 'a');
    const std::string Second(900'000, 'b');
    REQUIRE(SaveWhole(Path, First));
    std::mt19937 Random(1);
    bool SawFirst = false;
    bool SawSecond = false;
    for (int Kill = 0; Kill < 60; ++Kill) {
        const auto Instant = static_cast<unsigned>(Random());
        KillWhileSaving(Path, First, Second, Instant % 3, Instant / 3 % 10'000);
        const auto Found = ReadWhole(Path);
        REQUIRE((Found == First || Found == Second));
        SawFirst = SawFirst || Found == First;
        SawSecond = SawSecond || Found == Second;
    }
    CHECK(SawFirst);
    CHECK(SawSecond);
    CHECK(SaveWhole(Path, "after all"));
    CHECK(ReadWhole(Path) == "after all");
}

TEST_CASE_FIXTURE(Session, "a full disk is reported and leaves the old file alone in its folder")
{
    REQUIRE(SaveWhole(Path, "old"));
    {
        const FullDisk Disk(4096);
        WholeFile File(Path);
        for (int i = 0; i < 100; ++i)
            File.Append(std::string(10'000, 'x'));
        CHECK_FALSE(File.Commit());
        CHECK(File.Failure() == "File too large");
    }
    CHECK(ReadWhole(Path) == "old");
    CHECK(Files() == 1);
    CHECK_FALSE(SaveWhole("/dev/full", "device"));
    CHECK_FALSE(fs::is_regular_file("/dev/full"));
}

TEST_CASE_FIXTURE(Session, "an abandoned save and two at once leave nothing but the last file")
{
    {
        WholeFile First(Path);
        WholeFile Second(Path);
        WholeFile Abandoned(Path);
        First.Append("first");
        Second.Append("second");
        Abandoned.Append("abandoned");
        CHECK(Second.Commit());
        CHECK(First.Commit());
    }
    CHECK(ReadWhole(Path) == "first");
    WholeFile Late(Path);
    fs::remove(Path);
    fs::create_directory(Path);
    CHECK_FALSE(Late.Commit());
    CHECK(Files() == 1);
}

TEST_CASE_FIXTURE(Session, "a link keeps pointing to the file that is replaced, and its permissions stay")
{
    const std::string Link = Folder.Path("link.txt");
    REQUIRE(SaveWhole(Path, "old"));
    fs::create_symlink("session.txt", Link);
    fs::permissions(Path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    CHECK(SaveWhole(Link, "new"));
    CHECK(fs::is_symlink(Link));
    CHECK(ReadWhole(Path) == "new");
    CHECK(fs::status(Path).permissions() == (fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read));
}

TEST_CASE_FIXTURE(Session, "what is no readable file gives nothing, and a folder cannot be saved over")
{
    fs::create_directory(Folder.Path("folder"));
    REQUIRE(SaveWhole(Folder.Path("huge"), ""));
    fs::resize_file(Folder.Path("huge"), 1 << 30);
    CHECK_FALSE(ReadWhole(Folder.Path("missing")));
    CHECK_FALSE(ReadWhole(Folder.Path("folder")));
    CHECK_FALSE(ReadWhole(Folder.Path("huge")));
    CHECK_FALSE(ReadWhole("/dev/zero"));
    CHECK_FALSE(SaveWhole(Folder.Path("folder"), "x"));
    CHECK_FALSE(SaveWhole(Folder.Path("missing/session.txt"), "x"));
}

TEST_CASE_FIXTURE(Session, "of two files that belong together both are new or both are as they were")
{
    const std::string Other = Folder.Path("table.ref");
    const auto CommitOver = [&](bool IsBlocked) {
        WholeFile First(Other), Second(Path);
        First.Append("new table");
        Second.Append("new session");
        if (IsBlocked) fs::remove(Path);
        if (IsBlocked) fs::create_directory(Path); // no file takes the place of a folder
        const bool IsDone = CommitBoth(First, Second);
        CHECK(Second.Failure() == (IsBlocked ? "Is a directory" : ""));
        if (IsBlocked) fs::remove(Path);
        return IsDone;
    };
    CHECK_FALSE(CommitOver(true));
    CHECK_FALSE(fs::exists(Other)); // as before
    REQUIRE(SaveWhole(Other, "old table"));
    fs::permissions(Other, fs::perms(0640));
    CHECK_FALSE(CommitOver(true));
    CHECK(ReadWhole(Other) == "old table");
    CHECK(fs::status(Other).permissions() == fs::perms(0640));
    {
        WholeFile First(Other), Second(Path);
        First.Append("new table");
        Second.Append(std::string(10'000, 'x'));
        const FullDisk Disk(4096);
        CHECK_FALSE(CommitBoth(First, Second));
        CHECK(Second.Failure() == "File too large");
    }
    CHECK(ReadWhole(Other) == "old table");
    CHECK(Files() == 1);
    REQUIRE(CommitOver(false));
    CHECK(ReadWhole(Other) == "new table");
    CHECK(ReadWhole(Path) == "new session");
    CHECK(Files() == 2);
}
