// The places of the logger in Skarvelin.ini.
#include "core/mIni.h"

#include "files/mSafeSave.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

TEST_CASE_FIXTURE(FreshState, "the places of the logger stay when the file is rewritten")
{
    const TempFolder Folder;
    gAppDir = Folder.Path("");
    REQUIRE(SaveWhole(IniPath(), "COM port=/dev/ttyUSB7\nLink Address=10.0.0.1\nLink Port=60001\n"));
    REQUIRE(ReadIni());
    REQUIRE(WriteIni());
    CHECK(gCOMdevice == "/dev/ttyUSB7");
    const std::string Text = ReadWhole(IniPath()).value_or("");
    CHECK(Text.find("COM port=/dev/ttyUSB7\r\n") != std::string::npos);
    CHECK(Text.find("Link Address=10.0.0.1\r\nLink Port=60001\r\n") != std::string::npos);
    REQUIRE(SaveWhole(IniPath(), "COM port=4\n"));
    REQUIRE(ReadIni());
    CHECK(gCOMdevice == "");
    CHECK(gCOMport == 4);
}
