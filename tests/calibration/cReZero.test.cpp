// Zeros of groups of channels, where they are stored, and tables that stay zeroed.
#include "calibration/cReZero.h"

#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "files/mTextIO.h"
#include "processing/mPhysVal.h"
#include "processing/mRefTable.h"
#include "processing/mRefZero.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

namespace {
// A session of four channels in a folder of its own; "A2" has the reference table "ENC" with Y = X / 10 - 30.
struct Session : FreshState
{
    TempFolder Folder;

    Session()
    {
        gFile = DataFile{};
        gFile.Model = 61;
        const char* Names[] = {"A1", "H1", "A2", "A9"};
        for (const char* Name : Names) {
            CalibrRow& Row = gFile.Calibr.Grow();
            Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Row.ParamID = Name;
            Row.Q0 = -50;
            Row.Q1 = 0.5;
        }
        gFile.ChanCnt = 4;
        CalibrRow& Encoder = gFile.Calibr[3];
        Encoder.ProcMode = 4;
        Encoder.Side = 2;
        Encoder.SensorID = "ENC";
        std::string Table = "Reference Table\r\n20\tENC\t\r\nN\tCnt\tX\tY\r\n";
        for (int i = 0; i <= 20; ++i)
            Table += std::to_string(i) + "\t1\t" + std::to_string(50 * i) + ".000\t" + std::to_string(5 * i - 30) +
                     ".000000\r\n";
        REQUIRE(SaveWhole(Folder.Path("ENC.ref"), Table));
        SetCurFile(Folder.Path("s.txt"));
        REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
        LoadRefTables();
    }

    static void Frame(double A1, double A2)
    {
        CreateData();
        gData[1] = A1;
        gData[3] = A2;
    }
};

double Value(int Chan, double Count)
{
    double Prev = 0;
    return CalcPhysVal(Chan, Count, Prev);
}
} // namespace

TEST_CASE_FIXTURE(Session, "the present counts of a group become its zeros, in the session file and after opening it")
{
    cReZero Zeros(false);
    CHECK_FALSE(Zeros.ReZero());
    REQUIRE(Zeros.ChooseGroup(0));
    REQUIRE(Zeros.Rows().size() == 2); // "A9" is no name of the group
    CHECK_FALSE(Zeros.ReZero());
    CHECK(Dialogs.Told.size() == 2);
    Zeros.StartData();
    Frame(120, 410);
    Zeros.TakeSample();
    CHECK(Zeros.Rows()[0].PhysText == "10.00");
    CHECK(Zeros.Rows()[1].LogText == "0410");
    for (int Times = 1; Times <= 2; ++Times) {
        REQUIRE(Zeros.ReZero());
        CHECK(Zeros.Rows()[0].NewQ0Text == "-60.0000");
        CHECK(Value(3, 410) == doctest::Approx(0));
        CHECK(Value(3, 510) == doctest::Approx(-10)); // side 2 turns the sign
        CHECK(gFile.Calibr[3].Min == doctest::Approx(-59));
        CHECK(gFile.Calibr[3].Max == doctest::Approx(41));
    }
    SetCurFile(Folder.Path("gone/s.txt")); // neither session nor tables are there
    CHECK_FALSE(Zeros.SaveData());
    CHECK(gFile.Calibr[1].Q0 == -50);
    CHECK(Value(3, 510) == doctest::Approx(-10));
    CHECK(Value(3, 410) == doctest::Approx(0));
    SetCurFile(Folder.Path("s.txt"));
    REQUIRE(Zeros.SaveData());
    CHECK_FALSE(Zeros.IsDirty());
    CHECK(ReadWhole(Folder.Path("s.bak")).has_value());
    gFile.Calibr[1].Q0 = -70; // calibrated since
    REQUIRE(Zeros.SaveData());
    CHECK(gFile.Calibr[1].Q0 == -70);
    gFile.Calibr[1].Q0 = -60;
    REQUIRE(Zeros.SaveData());
    gFile = DataFile{};
    REQUIRE(ReadDataFile(gCurFile, gFile, SectionFilter::Any));
    CHECK(Value(1, 120) == doctest::Approx(0));
    CHECK(gFile.Calibr[1].Log0 == 120);
    CHECK(gFile.Calibr[2].Q0 == -50);
    CHECK(Value(3, 410) == doctest::Approx(0));
    CHECK(Value(3, 510) == doctest::Approx(-10));
    CHECK(ReadWhole(Folder.Path("ENC.ref"))->find("\t400.000\t10.000000") != std::string::npos);
}
