// The raw log on a real disk, with too little room and over older files.
#include "files/cRawLog.h"

#include "files/mSafeSave.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <sys/resource.h>
#include <vector>

namespace {
// A frame of 33 bytes.
std::vector<uint8_t> SomeFrame(uint8_t Number)
{
    std::vector<uint8_t> Frame(33, static_cast<uint8_t>(Number % 128));
    Frame[0] = 200;
    return Frame;
}

std::string Text(const std::vector<uint8_t>& Bytes)
{
    return {Bytes.begin(), Bytes.end()};
}
} // namespace

TEST_CASE("every frame is the operating system's when the call returns, and the syncs go on beside it")
{
    const TempFolder Folder;
    const std::string Path = Folder.Path("a.qvn");
    cRawLog Log;
    REQUIRE(Log.Open(Path, OldBytes::Kept));
    std::string Expected;
    for (uint8_t i = 0; i < 100; ++i) {
        Expected += Text(SomeFrame(i));
        REQUIRE(Log.Append(SomeFrame(i)));
        REQUIRE(ReadWhole(Path) == Expected);
    }
    CHECK(Log.Length() == 3300);
    CHECK(Log.Close());
    CHECK_FALSE(Log.IsOpen());
    CHECK(ReadWhole(Path) == Expected);
}

TEST_CASE("on a full disk the log is closed behind its last whole frame")
{
    const TempFolder Folder;
    const std::string Path = Folder.Path("a.qvn");
    cRawLog Log;
    REQUIRE(Log.Open(Path, OldBytes::Kept));
    const rlimit Room{100, RLIM_INFINITY};
    REQUIRE(setrlimit(RLIMIT_FSIZE, &Room) == 0);
    std::string Expected;
    uint8_t Number = 0;
    while (Log.Append(SomeFrame(Number)))
        Expected += Text(SomeFrame(Number++));
    const rlimit All{RLIM_INFINITY, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &All);
    CHECK(Number == 3);
    CHECK(ReadWhole(Path) == Expected);
    CHECK_FALSE(Log.IsOpen());
    CHECK(Log.Failure() == "File too large");

    SUBCASE("a device without room")
    {
        REQUIRE(Log.Open("/dev/full", OldBytes::Dropped));
        CHECK_FALSE(Log.Append(SomeFrame(0)));
        CHECK(Log.Failure() == "No space left on device");
    }
    SUBCASE("a folder that is not there")
    {
        CHECK_FALSE(Log.Open(Folder.Path("none/a.qvn"), OldBytes::Kept));
        CHECK(Log.Failure() == "No such file or directory");
    }
}

TEST_CASE("a file that is recorded over keeps its tail or is dropped with the first frame")
{
    const TempFolder Folder;
    const std::string Path = Folder.Path("a.qvn");
    const std::string Old = Text(SomeFrame(1)) + Text(SomeFrame(2)) + Text(SomeFrame(3));
    const std::string New = Text(SomeFrame(9));
    REQUIRE(SaveWhole(Path, Old));
    cRawLog Log;
    REQUIRE(Log.Open(Path, OldBytes::Dropped));
    CHECK(ReadWhole(Path) == Old);
    SUBCASE("nothing came")
    {
        CHECK(Log.Close());
        CHECK(ReadWhole(Path) == Old);
    }
    SUBCASE("dropped")
    {
        CHECK(Log.Append(SomeFrame(9)));
        CHECK(Log.Append(SomeFrame(9)));
        CHECK(ReadWhole(Path) == New + New);
    }
    SUBCASE("kept")
    {
        REQUIRE(Log.Open(Path, OldBytes::Kept));
        CHECK(Log.Append(SomeFrame(9)));
        CHECK(Log.Close());
        CHECK(ReadWhole(Path) == New + Old.substr(33));
    }
}
