// Cycle boundaries, the statistics of cycles and the run over a stretch.
#include "processing/mProcess.h"

#include "processing/Recording.h"
#include "processing/mNorm.h"
#include "processing/mSpread.h"
#include "support/Case.h"

#include <limits>

TEST_CASE("a boundary is found where its pattern is complete, two samples before the end of the data at the latest")
{
    // The sample behind it is 0 where nothing is found.
    const std::tuple<std::string, int16_t, std::vector<double>, int32_t, double> Cases[] = {
        {"falling, between the samples", 0, {9, 9, 3, 1, -3, -4, -4, 0, 0}, 7, 3.25},
        {"the pattern would need the last sample but one", 0, {9, 9, 3, 1, -3, -4, -4, 0}, 0, 0},
        {"both samples on the threshold", 0, {9, 9, 3, 0, 0, -2, -2, 0, 0}, 7, 3},
        {"touches the threshold and turns back", 0, {9, 9, 3, 1, 0, 1, 3, 3, 3}, 0, 0},
        {"samples 0 and 1 are not read", 0, {3, 1, -1, -2, -2, -2, -2, 0, 0}, 0, 0},
        {"rising", 1, {9, 9, -3, 0, 4, 5, 5, 0, 0}, 7, 3},
        {"lowest, the later of two equal samples", 2, {9, 9, 3, 1, 1, 2, 3, 0, 0}, 7, 4},
        {"lowest, but without two rises", 2, {9, 9, 3, 2, 1, 2, 2, 2, 2}, 0, 0},
        {"highest", 3, {9, 9, 1, 3, 4, 2, 1, 0, 0}, 7, 4},
        {"a mode that does not exist", 4, {9, 9, 3, 1, -3, -4, -4, 0, 0}, 0, 0}};
    for (const auto& [What, Mode, Key, Found, At] : Cases) {
        CAPTURE(What);
        MakeRecording({Key});
        KeyWindow Win;
        gKeyMode = Mode;
        int32_t Cur = 0;
        double Time = -1;
        CHECK(DetectCycle(Win, Cur, 100, Time) == (Found != 0));
        CHECK(Cur == (Found != 0 ? Found : gRaw.UBound() - 1));
        CHECK(Time == (Found != 0 ? At : -1));
    }
}

TEST_CASE("a pattern is completed across the join of two recordings, and no stretch reads outside the store")
{
    KeyWindow Win;
    double Time = 0;
    int32_t Cur = 0;
    MakeRecording({{9, 9, 9, 3, 1, -1, -1}});
    REQUIRE(!DetectCycle(Win, Cur, 100, Time));
    MakeRecording({{9, 9, -4, -4, -4, -4, -4}}, 0.25);
    Cur = -7;
    CHECK(DetectCycle(Win, Cur, 100, Time));
    CHECK(Cur == 5);
    CHECK(Time == doctest::Approx(4 + (0.5 - 4) * 0.2)); // from sample 4 of the first to sample 2 of the second

    constexpr int32_t Far = std::numeric_limits<int32_t>::max();
    for (const auto& [Start, Stop] : {std::pair{-Far, -1}, {Far, Far}, {7, Far}, {3, 2}}) {
        Cur = Start;
        CHECK(!DetectCycle(Win, Cur, Stop, Time));
    }
}

TEST_CASE_FIXTURE(FreshState, "a boundary that the last sample of the stretch completes counts in the run only")
{
    MakeRecording({Cycles({10, 10, 12})});
    KeyWindow Win;
    int32_t Stop = 41; // completes the last boundary
    REQUIRE(PublishStats(CycleStats(Win, 0, Stop)));
    CHECK(gStrokeCnt == 2);
    CHECK(gMeanCycleT == 10);
    CHECK(gCycleSD == 0);
    CHECK(gRate == 6);
    CHECK(!PublishStats({}));
    CHECK(gMeanCycleT == 10);
    CHECK(!PublishStats(CycleStats(Win, 0, 19)));
    CHECK(gMeanCycleT == 0);
    CHECK(gRate == 6);
    CHECK(!CycleStats(Win, 0, 6));

    StdFilter = 1;
    const auto All = CycleStats(Win, 0, 42);
    REQUIRE(All);
    CHECK(All->Cnt == 3);
    const auto Good = CycleStatsInRange(Win, *All, 0, 42);
    REQUIRE(Good);
    CHECK((Good->Cnt == 2 && Good->Mean == 10 && Good->SD == 0));
    CHECK(!CycleStatsInRange(Win, {3, 20, 1}, 0, 42));

    CHECK(ProcessCycles(gKeyWin, 0, Stop, 1));
    CHECK(gStrokeCnt == 2);
    CHECK(gBadStrokes == 1);
    CHECK(gTestTime == 32);

    MakeRecording({Cycles({10, 20, 10, 20})});
    StdFilter = 2;
    CHECK(ProcessCycles(gKeyWin, 0, Stop = 0, 1));
    CHECK(Stop == 129);
    CHECK(gMeanCycleT == 15);
    CHECK(gRate == 4.5);
    CHECK(gRateSD == 1.5);
    CHECK(Status.Shown.back() == "54%");
}

TEST_CASE_FIXTURE(FreshState,
                  "equal strokes have no spread, and all of them are taken whatever their times are rounded to")
{
    // Peaks on samples that are no exact binary numbers of seconds, from 10 to 39 samples of 25 Hz apart.
    for (const double Step : {0.04, 0.02, 0.01})
        for (std::size_t Length = 10; Length < 40; ++Length) {
            CAPTURE(Step);
            CAPTURE(Length);
            std::vector<double> Stroke;
            for (std::size_t i = 0; i < Length; ++i)
                Stroke.push_back(std::fabs(static_cast<double>(i) - 4.0));
            gKeyMode = 2;
            MakeRecording({Repeat(Stroke, 30)}, Step);
            KeyWindow Win = WindowAt(0);
            const auto All = CycleStats(Win, 0, gRaw.UBound());
            REQUIRE(All);
            CHECK(All->SD < 1e-12);
            const auto Good = CycleStatsInRange(Win, *All, 0, gRaw.UBound());
            REQUIRE(Good);
            CHECK(Good->Cnt == All->Cnt);
            for (const double Width : {0.0, 1.0}) {
                StdFilter = Width;
                int32_t Stop = 0;
                const int32_t Bad = gBadStrokes;
                REQUIRE(ProcessCycles(Win, 0, Stop, 1));
                CHECK(gBadStrokes == Bad);
                CHECK(gRateSD < 1e-9);
            }
        }
    gKeyMode = 0;
}

TEST_CASE_FIXTURE(FreshState, "two strokes lie on the edges of their band and are both taken")
{
    StdFilter = 1;
    for (std::size_t First = 10; First < 60; ++First)
        for (const std::size_t Second : {First + 1, First + 3, First + 8}) {
            CAPTURE(First);
            CAPTURE(Second);
            MakeRecording({Cycles({First, Second})}, 0.04);
            KeyWindow Win = WindowAt(0);
            int32_t Stop = 0;
            REQUIRE(ProcessCycles(Win, 0, Stop, 1));
            CHECK(gStrokeCnt == 2);
        }
}

TEST_CASE("the deviation of a stretch is that of its periods")
{
    MakeRecording({Cycles({17, 12, 19, 12, 20, 13})}, 0.02);
    KeyWindow Win;
    const auto All = CycleStats(Win, 0, gRaw.UBound());
    REQUIRE(All);
    CHECK(All->Mean == doctest::Approx(0.31).epsilon(1e-12));
    CHECK(All->SD == doctest::Approx(0.02 * std::sqrt(65.5 / 6)).epsilon(1e-12));
    const Spread None;
    CHECK((None.Mean() == 0 && None.Variance() == 0));
}

TEST_CASE_FIXTURE(FreshState, "a cycle over which the clock is set back is never accepted, however wide the band is")
{
    MakeRecording({Cycles({20, 20, 20, 20, 20, 20})});
    for (int i = 50; i <= gRaw.UBound(); ++i)
        gRaw(0, i) -= 49;
    StdFilter = 9;
    gBadStrokes = 0;
    int32_t Stop = 0;
    CHECK(ProcessCycles(gKeyWin, 0, Stop, 1));
    CHECK(gStrokeCnt == 5);
    CHECK(gBadStrokes == 1);
    CHECK(gMeanCycleT == 20);
    CHECK(gRate == 3);
    CHECK(gTestTime == 71);
    for (int i = 100; i <= gRaw.UBound(); ++i)
        gRaw(0, i) -= 80;
    CHECK(ProcessCycles(gKeyWin, 0, Stop = 0, 1));
    CHECK(gTestTime == 80); // less than nothing by the clock alone: what was rowed but for the two cycles
    const auto All = CycleStats(gKeyWin, 0, Stop);
    REQUIRE(All);
    const auto Good = CycleStatsInRange(gKeyWin, *All, 0, Stop);
    REQUIRE(Good);
    CHECK((Good->Cnt == 4 && Good->Mean == 20 && Good->SD == 0));
}

TEST_CASE_FIXTURE(FreshState, "what cannot be processed is reported and leaves the pattern as it was")
{
    int32_t Stop = 0;
    MakeRecording({Cycles({10, 10})});
    REQUIRE(ProcessCycles(gKeyWin, 0, Stop, 1));
    const NormCurve Before = gNormAver1.Channel(1);

    CHECK(!ProcessCycles(gKeyWin, 30, Stop, 1));
    MakeRecording({{1, 2, 3, 4}});
    Stop = 0;
    CHECK(!ProcessCycles(gKeyWin, 0, Stop, 1));
    gKeyChan = -1;
    CHECK(!ProcessCycles(gKeyWin, 0, Stop, 1));
    const std::string None = "Warning!: Could not find any cycle!";
    CHECK(Dialogs.Told ==
          Texts{None, None,
                "Warning!: There is no channel \"A1\" to find strokes by. Set the session's key channel "
                "to one that was recorded."});

    // No cycle is as long as the mean: all are rejected.
    MakeRecording({Cycles({10, 20, 10, 20})});
    StdFilter = 0;
    CHECK(!ProcessCycles(gKeyWin, 0, Stop = 0, 1));
    CHECK(Dialogs.Told.back() ==
          "Warning!: No stroke lies within the filter of 0 SD around the mean: widen it. Nothing "
          "that was stored has been changed.");
    CHECK(gBadStrokes == 4);
    CHECK(gStrokeCnt == 4);
    CHECK(gRate == 4);
    CHECK(gNormAver1.Channel(1) == Before);
    StdFilter = 1;
    gFile.ChanCnt = 2;
    CHECK_THROWS_WITH_AS(ProcessCycles(gKeyWin, 0, Stop = 0, 1), "Index out of range", RunError);
    CHECK(gNormAver1.Channel(1) == Before);
    CHECK(gNormAver1.ChannelUBound() == 1);
}
