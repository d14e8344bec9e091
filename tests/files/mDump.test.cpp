// The dump of raw counts as a file.
#include "files/mDump.h"

#include "core/mGlobData.h"
#include "files/mSafeSave.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

TEST_CASE_FIXTURE(FreshState, "a dump has a line a frame, on the disk at once, and none before or behind")
{
    TempFolder Folder;
    gFile.ChanCnt = 3;
    DumpFrame();
    REQUIRE(StartDump(Folder.Path("raw.txt")));
    gData = {12.3456, 0, 16383, 8192};
    DumpFrame();
    gData[0] = 12.386;
    DumpFrame();
    const std::string Whole = "N\tT\t1\t2\t3\t\r\n0\t12.346\t0\t16383\t8192\t\r\n1\t12.386\t0\t16383\t8192\t\r\n";
    CHECK(ReadWhole(Folder.Path("raw.txt")) == Whole);
    StopDump();
    DumpFrame();
    CHECK(ReadWhole(Folder.Path("raw.txt")) == Whole);
    CHECK(Dialogs.Told.empty());
}

TEST_CASE_FIXTURE(FreshState, "a dump that cannot be written is told once and closed")
{
    CHECK(!StartDump("/none/raw.txt"));
    CHECK(!gDumping);
    CHECK(!StartDump("/dev/full"));
    CHECK(!gDumping);
    CHECK(Dialogs.Told ==
          std::vector<std::string>{"Error: Can't open file: /none/raw.txt", "Error: Can't write file: /dev/full"});
}
