// Skarvelin.ini and the settings store.
#include "core/mIni.h"

#include "files/mMain.h"
#include "support/Case.h"

TEST_CASE_FIXTURE(FreshState, "an ini file is read in any order and written back in its own")
{
    gAppDir = Folder.Path("");
    REQUIRE(SaveWhole(
        IniPath(),
        "IsCurves=1\nIsGrid=0\nLink Address=10.0.0.7\nno sign here\nUnknown=7\nWidth=1024.5\nCOM port=/dev/ttyUSB7\n"
        "Current File=/boats/a=b.txt\nAutoCalQ1=0.123456789\nCalibrSens=\n"
        "1\tLoad cell\t17\t-0.5\t0.25\t18\n0\t\t1\nEnd\nSysID= K7\nIsValue=-1"));
    REQUIRE(ReadIni());
    CHECK(gCurFile == "/boats/a=b.txt");
    CHECK(gCOMdevice == "/dev/ttyUSB7");
    REQUIRE(WriteIni());
    CHECK(ReadWhole(IniPath()) ==
          "SysID= K7\r\nLeft=0\r\nTop=0\r\nWidth=1024.5\r\nHeight=0\r\n"
          "Current File=/boats/a=b.txt\r\nBase Folder=\r\nCOM port=/dev/ttyUSB7\r\nBackground=\r\nModels=\r\n"
          "AutoCalCh=0\r\nAutoCalQ0=0.00000000\r\nAutoCalQ1=0.12345679\r\nCalibrSens=\r\n"
          "-1\tLoad cell\t17\t-0.50000000\t0.25000000\t18\r\n"
          "0\t\t1\t0.00000000\t0.00000000\t0\r\n0\t\t0\t0.00000000\t0.00000000\t0\r\n"
          "0\t\t0\t0.00000000\t0.00000000\t0\r\n0\t\t0\t0.00000000\t0.00000000\t0\r\nEnd\r\n"
          "IsCurves=-1\r\nIsValue=-1\r\nIsScore=0\r\nIsInd=-1\r\nIsSound=0\r\nIsGrid=0\r\n"
          "Link Address=10.0.0.7\r\nLink Port=6000\r\n");
    gCOMport = 3;
    REQUIRE(SaveWhole(IniPath(), "COM port=70000\n"));
    REQUIRE(ReadIni());
    CHECK(gCOMdevice == "");
    CHECK(gCOMport == 3);
}

TEST_CASE_FIXTURE(FreshState, "a start without an ini file is reported once and goes on with the defaults")
{
    CHECK_FALSE(StartUp(Folder.Path("")));
    REQUIRE(Dialogs.Told.size() == 1);
    CHECK(Dialogs.Told[0].starts_with("Error: File not found: " + Folder.Path("Skarvelin.ini")));
    CHECK(gTimeStep == 1.0 / 25);
    ShutDown();
    CHECK(StartUp(Folder.Path("")));
}

TEST_CASE_FIXTURE(FreshState, "settings come back as they were saved, unusable values give the default")
{
    gFFslope = -0.125;
    gSessCnt = 123456;
    gToolBar = false;
    for (const char* Key : {"gFFslope", "gSessCnt", "ToolBar"})
        SaveSetting(Key);
    Settings.SaveSetting("General", "gTCPport", "99999");
    Settings.SaveSetting("Options", "StdFilter", "wide");
    LoadSettings();
    CHECK(gFFslope == -0.125);
    CHECK(gSessCnt == 123456);
    CHECK_FALSE(gToolBar);
    CHECK(gTCPport == 6000);
    CHECK(StdFilter == 1);
}
