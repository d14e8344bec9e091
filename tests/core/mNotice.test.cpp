// Notices reach who listens, also while listeners go.
#include "core/mNotice.h"
#include "files/mTextIO.h"
#include "support/Case.h"

#include <memory>

TEST_CASE("a notice goes from the last listener to the first, and not to one that another has ended meanwhile")
{
    std::string Heard;
    auto First = std::make_unique<cListener>([&](eNotice) { Heard += "first "; });
    auto Second = std::make_unique<cListener>([&](eNotice) { Heard += "second "; });
    const cListener Last([&](eNotice What) {
        Heard += What == eNotice::SessionSaved ? "saved " : "replaced ";
        Second.reset();
    });
    Notify(eNotice::SessionReplaced);
    CHECK(Heard == "replaced first ");
    First.reset();
    Notify(eNotice::SessionSaved);
    CHECK(Heard == "replaced first saved ");
}

TEST_CASE_FIXTURE(FreshState, "only the open session, written whole to its own file, is reported as saved")
{
    int Saved = 0;
    const cListener Counter([&](eNotice) { ++Saved; });
    gCurFile = Folder.Path("s.txt");
    const DataFile Other;
    REQUIRE(WriteDataFile(Folder.Path("copy.txt"), gFile, SectionFilter::Any));
    REQUIRE(WriteDataFile(gCurFile, Other, SectionFilter::Any));
    REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Non));
    CHECK(!WriteDataFile(Folder.Path("none/s.txt"), gFile, SectionFilter::Any));
    CHECK(Saved == 0);
    REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
    CHECK(Saved == 1);
}
