// The raw log over older files.
#include "files/cRawLog.h"
#include "support/Case.h"

namespace {
bool Append(cRawLog& Log, const std::string& Frame)
{
    return Log.Append({reinterpret_cast<const uint8_t*>(Frame.data()), Frame.size()});
}
} // namespace

TEST_CASE("a file that is recorded over keeps its tail or is dropped with the first frame")
{
    const TempFolder Folder;
    const std::string Path = Folder.Path("a.qvn");
    const std::string Old = "three old frames";
    const std::string New = "a frame";
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
        CHECK((Append(Log, New) && Append(Log, New)));
        CHECK(ReadWhole(Path) == New + New);
    }
    SUBCASE("kept")
    {
        REQUIRE(Log.Open(Path, OldBytes::Kept));
        CHECK(Append(Log, New));
        CHECK(Log.Close());
        CHECK(ReadWhole(Path) == New + Old.substr(New.size()));
    }
}
