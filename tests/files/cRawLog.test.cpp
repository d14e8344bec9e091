// The raw log over older files.
#include "files/cRawLog.h"
#include "support/Case.h"

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
