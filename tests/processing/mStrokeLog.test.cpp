// The stroke log, compared as a whole text.
#include "processing/mStrokeLog.h"

#include "processing/Recording.h"
#include "support/Case.h"
#include "support/FullDisk.h"

namespace {
const std::string Header = "Str N\tRate\tDriveT\tMaxFT\tRecovT\tLength\tMaxForce\tAverForce\tImpulse\tWPS\tPower\r\n";

struct LogState : FreshState
{
    // Six strokes of 5 s, highest at sample 2, lowest at sample 7 of each. The log starts from sample 10.
    LogState()
    {
        gCurDir = Folder.Path("");
        gFileTitle = "S1";
        gKeyMode = 3;
        MakeRecording(
            {Repeat({1, 3, 5, 3, 1, -1, -3, -5, -3, -1}, 6), Repeat({200, 100, 0, 0, 0, 40, 0, 0, 100, 300}, 6)}, 0.5);
    }
};
} // namespace

TEST_CASE_FIXTURE(LogState, "a cycle without a finish writes no row, the next row carries its sums")
{
    gRaw(1, 30) = 3; // two equal samples before the highest: a boundary, but no finish
    const std::string Rows = Header +
                             "1\t12.00\t2.5000\t1.0000\t2.5000\t10.000\t300.00\t140.00\t350.00\t1400.00\t280.00\r\n"
                             "2\t12.00\t2.5000\t-4.0000\t2.5000\t10.000\t300.00\t250.00\t625.00\t3000.00\t600.00\r\n"
                             "3\t12.00\t2.5000\t1.0000\t2.5000\t10.000\t300.00\t140.00\t350.00\t1400.00\t280.00\r\n";
    for (const char* Name : {"S1_str.csv", "S1_str_01.csv", "S1_str_02.csv"}) {
        int32_t Stop = 0;
        CHECK(ExportStrokes(gKeyWin, 10, Stop));
        CHECK(Stop == 59);
        CHECK(StrokeLogFN == Folder.Path(Name));
        CHECK(Dialogs.Told.back() == "Information: Stroke date was recorded into the file " + Folder.Path(Name));
        CHECK(ReadWhole(Folder.Path(Name)) == Rows);
    }
}

TEST_CASE_FIXTURE(LogState,
                  "the first step of a stroke counts from zero, and so does a stroke that begins at its catch")
{
    int32_t Stop = 30;
    gKeyMode = 2;
    CHECK(ExportStrokes(gKeyWin, 10, Stop));
    CHECK(ReadWhole(StrokeLogFN) ==
          Header + "1\t12.00\t11.0000\t10.0000\t-6.0000\t5.000\t200.00\t100.00\t1100.00\t500.00\t100.00\r\n");
    gKeyMode = 3;
    for (double& K : gRaw.Channel(1))
        K += 4;
    CHECK(ExportStrokes(gKeyWin, 10, Stop = 25));
    CHECK(ReadWhole(StrokeLogFN) ==
          Header + "1\t12.00\t2.5000\t1.0000\t2.5000\t10.000\t300.00\t200.00\t500.00\t1460.00\t292.00\r\n");
}

TEST_CASE_FIXTURE(LogState, "a stroke over which the clock is set back has no row, and those around it have theirs")
{
    for (int i = 28; i <= gRaw.UBound(); ++i)
        gRaw(0, i) -= 13.5; // in the recovery of the third stroke
    for (int i = 45; i <= gRaw.UBound(); ++i)
        gRaw(0, i) -= 8; // in the drive of the fourth
    int32_t Stop = 0;
    CHECK(ExportStrokes(gKeyWin, 10, Stop));
    const std::string Row = "\t12.00\t2.5000\t1.0000\t2.5000\t10.000\t300.00\t140.00\t350.00\t1400.00\t280.00\r\n";
    CHECK(ReadWhole(StrokeLogFN).value_or("") == Header + "1" + Row + "2" + Row);
}

TEST_CASE_FIXTURE(LogState, "rows written before a failure stay, and what cannot be logged is reported")
{
    int32_t Stop = 0;
    for (int i = 45; i <= 55; ++i)
        gRaw(0, i) = 22.5; // the last stroke has no duration
    CHECK_THROWS_WITH_AS(ExportStrokes(gKeyWin, 20, Stop), "Division by zero", RunError);
    const std::string Row = "\t12.00\t2.5000\t1.0000\t2.5000\t10.000\t300.00\t140.00\t350.00\t1400.00\t280.00\r\n";
    CHECK(ReadWhole(Folder.Path("S1_str.csv")) == Header + "1" + Row + "2" + Row);
    CHECK(gStrokeCnt == 2);

    gKeyMode = 4;
    CHECK(!ExportStrokes(gKeyWin, 10, Stop));
    CHECK(!ReadWhole(Folder.Path("S1_str_01.csv")));
    gKeyMode = 3;
    {
        const FullDisk Full(100); // the header fits
        CHECK(!ExportStrokes(gKeyWin, 10, Stop = 25));
    }
    gCurDir = Folder.Path("none/");
    CHECK(!ExportStrokes(gKeyWin, 10, Stop));
    gH1Chan = -1;
    CHECK(!ExportStrokes(gKeyWin, 10, Stop));
    CHECK(Dialogs.Told == Texts{"Warning!: Could not find any cycle!",
                                "Warning!: Can't write Log file: " + Folder.Path("S1_str_01.csv"),
                                "Warning!: Can't open Log file: " + Folder.Path("none/S1_str.csv"),
                                "Warning!: There is no channel \"H1\": the stroke log needs the handle force."});
}
