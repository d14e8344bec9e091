// Patterns stored as samples of the session, and samples of single strokes.
#include "processing/mSample.h"

#include "processing/Recording.h"
#include "processing/mNorm.h"
#include "processing/mProcess.h"
#include "support/Case.h"

namespace {
std::string Text(const std::vector<double>& Values)
{
    std::string All;
    for (const double X : Values)
        All.append(" ").append(FormatGeneral(X, 6));
    return All.append("\n");
}

std::string Text(const RowArray<DescRow>& Rows)
{
    std::string All;
    for (const DescRow& Row : Rows)
        All += Row.SessID + " " + Row.SampleID + " " + Row.Comment +
               Text({1.0 * Row.ParCount, 1.0 * Row.DataCount, Row.TestTime, 1.0 * Row.StrokeCount, 1.0 * Row.BadStrokes,
                     Row.Rate, Row.RateDev, Row.Start, Row.Finish});
    return All;
}

// Each row's place and the first and last of its 51 values.
std::string Text(const RowArray<DataRow>& Rows)
{
    std::string All;
    for (const DataRow& Row : Rows)
        All += Row.SessID + " " + Row.SampleID + " " + Row.ParamID +
               Text({1.0 * Row.Seat, 1.0 * Row.Side, Row.Values.front(), Row.Values.at(NormSteps)});
    return All;
}
} // namespace

TEST_CASE_FIXTURE(FreshState, "samples are numbered on from the last row, and a cancelled comment is an empty one")
{
    MakeRecording({Cycles({60}), Cycles({60})});
    gFileTitle = "Sess";
    gFile.Calibr[2].Seat = 5;
    gFile.Calibr[2].Side = 1;
    gFile.Desc.Grow().SampleID = "Old";
    for (const int Run : {1, 2}) {
        PublishNorm(ResetNorm(Run));
        for (const int Chan : {1, 2}) {
            ArraysOf(Run).Aver(0, Chan) = 10 * Run + Chan;
            ArraysOf(Run).Std(NormSteps, Chan) = 100 * Run + Chan;
        }
    }
    gStrokeCnt = 12;
    gBadStrokes = 3;
    gTestTime = 63.5;
    gRate = 31.25;
    gRateSD = 0.5;
    Dialogs.Answers = {std::nullopt};
    SaveNormSample(1, "Sample ");
    gExpSTD = 1;
    SaveNormSample(2, "Sample ");
    CHECK(Dialogs.Told == Texts{"Data Processed: Input a Comment for the sample: [Sample 02]",
                                "Data Processed: Input a Comment for the sample: [Sample 03]"});
    CHECK(Text(gFile.Desc) == " Old  0 0 0 0 0 0 0 0 0\n"
                              "Sess S02  2 50 63.5 12 3 31.25 0.5 0 0\n"
                              "Sess S03 Sample 03 2 50 63.5 12 3 31.25 0.5 0 0\n");
    CHECK(Text(gFile.Data) == "Sess S02 A1 0 0 11 0\nSess S02 H1 5 1 12 0\n"
                              "Sess S03 A1 0 0 21 0\nSess S03 H1 5 1 22 0\n");
    CHECK(Text(gFile.STD) == "Sess S03 A1 0 0 0 201\nSess S03 H1 5 1 0 202\n");
    gBadStrokes = 32768;
    CHECK_THROWS_AS(SaveNormSample(2, ""), RunError);
    CHECK((gFile.Desc.UBound() == 3 && gFile.Data.UBound() == 4 && gFile.STD.UBound() == 2));
}

TEST_CASE_FIXTURE(FreshState, "each stroke becomes a sample, the first from the start of the selection")
{
    MakeRecording({Cycles({60, 60})});
    CHECK(ProcessStrokes(gKeyWin, 2, 2));
    CHECK(Text(gFile.Desc) == " S01 Stroke 01 1 50 4.5 1 0 13.3333 0 0.0333333 0.108333\n"
                              " S02 Stroke 02 1 50 64.5 1 0 1 0 0.108333 1.10833\n");
    CHECK(gFile.Data[1].Values[0] == 1);
    CHECK(gFile.Data[2].Values[NormSteps] == doctest::Approx(0));
    CHECK(gStrokeCnt == 2);
    CHECK(Dialogs.Told.back() == "Information: 2 strokes processed.");
}

TEST_CASE_FIXTURE(FreshState, "a boundary ahead of the start or a clock set back makes no stroke without a duration")
{
    for (const auto& [Mode, Key] : {std::pair<int16_t, std::vector<double>>{0, Cycles({60, 60, 60})},
                                    {3, Repeat({1, 2, 3, 4, 5, 4, 3, 2, 1, 0, -1, -2, -1, 0}, 20)}})
        for (int Start = 5; Start <= 11; ++Start) { // the boundary lies at 6.5 in the one, at 4 in the other
            CAPTURE(Start);
            gKeyMode = Mode;
            MakeRecording({Key});
            gFile.Desc.Clear();
            gFile.Data.Clear();
            KeyWindow Win = WindowAt(Start);
            CHECK(ProcessStrokes(Win, Start, 2));
            REQUIRE(gFile.Desc.UBound() == 2);
            CHECK(gFile.Desc[1].Start == Start / 60.0);
            for (const DescRow& Row : gFile.Desc)
                CHECK((Row.Finish > Row.Start && Row.TestTime > 0 && Row.Rate > 0));
        }
    gKeyMode = 0;
    MakeRecording({Cycles({60, 60, 60, 60})});
    for (int i = 150; i <= gRaw.UBound(); ++i)
        gRaw(0, i) -= 149; // a logger that was started anew
    gFile.Desc.Clear();
    KeyWindow Win = WindowAt(10);
    CHECK(ProcessStrokes(Win, 10, 9));
    CHECK(Text(gFile.Desc) == " S01 Stroke 01 1 50 56.5 1 0 1.06195 0 0.166667 1.10833\n"
                              " S02 Stroke 02 1 50 116.5 1 0 1 0 1.10833 2.10833\n"
                              " S03 Stroke 03 1 50 176.5 1 0 1 0 0.625 1.625\n");
}

TEST_CASE_FIXTURE(FreshState, "a stroke too near to the end is left out and reported, and those ahead of it are kept")
{
    // The last stroke starts less than 50 samples before the end of the data.
    MakeRecording({Cycles({60, 10}, 5)});
    CHECK(ProcessStrokes(gKeyWin, 2, 9));
    CHECK(Dialogs.Told.back() == "Information: 2 strokes processed. The one that begins at 66.5 s lies too near to the "
                                 "end of the recording to be brought to 51 points.");
    CHECK(gFile.Desc.UBound() == 2);
    CHECK(gFile.Data[gFile.Data.UBound()].SampleID == "S02");
    CHECK_THROWS_AS(ProcessStrokes(gKeyWin, -1, 9), RunError);
    // A sample that cannot be made leaves none of the samples before it either.
    MakeRecording({Cycles({60, 60, 60})});
    const auto StrokeCnt = gStrokeCnt;
    gBadStrokes = 32767;
    struct Rejecting : ScriptedDialogs
    {
        std::optional<std::string> InputBox(const std::string&, const std::string&,
                                            const std::string& Proposed) override
        {
            ++gBadStrokes;
            return Proposed;
        }
    } Boxes;
    gHost.Dialogs = &Boxes;
    CHECK_THROWS_AS(ProcessStrokes(gKeyWin, 2, 9), RunError);
    CHECK((gFile.Desc.UBound() == 2 && gFile.Data.UBound() == 2 && gStrokeCnt == StrokeCnt));
}
