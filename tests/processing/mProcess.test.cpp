// Cycle boundaries, the statistics of cycles and the run over a stretch.
#include "processing/mProcess.h"

#include "processing/Recording.h"
#include "processing/mNorm.h"
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
        gKeyWin = {};
        gKeyMode = Mode;
        int32_t Cur = 0;
        double Time = -1;
        CHECK(DetectCycle(Cur, 100, Time) == (Found != 0));
        CHECK(Cur == (Found != 0 ? Found : gRaw.UBound() - 1));
        CHECK(Time == (Found != 0 ? At : -1));
    }
}

TEST_CASE("a pattern is completed across the join of two recordings, and no stretch reads outside the store")
{
    double Time = 0;
    int32_t Cur = 0;
    MakeRecording({{9, 9, 9, 3, 1, -1, -1}});
    REQUIRE(!DetectCycle(Cur, 100, Time));
    MakeRecording({{9, 9, -4, -4, -4, -4, -4}}, 0.25);
    Cur = -7;
    CHECK(DetectCycle(Cur, 100, Time));
    CHECK(Cur == 5);
    CHECK(Time == doctest::Approx(4 + (0.5 - 4) * 0.2)); // from sample 4 of the first to sample 2 of the second

    constexpr int32_t Far = std::numeric_limits<int32_t>::max();
    for (const auto& [Start, Stop] : {std::pair{-Far, -1}, {Far, Far}, {7, Far}, {3, 2}}) {
        Cur = Start;
        CHECK(!DetectCycle(Cur, Stop, Time));
    }
}

TEST_CASE_FIXTURE(FreshState, "a boundary that the last sample of the stretch completes counts in the run only")
{
    MakeRecording({Cycles({10, 10, 12})});
    int32_t Stop = 41; // completes the last boundary
    REQUIRE(CycleStats(0, Stop));
    CHECK(gStrokeCnt == 2);
    CHECK(gMeanCycleT == 10);
    CHECK(gCycleSD == 0);
    CHECK(gRate == 6);
    CHECK(!CycleStats(0, 19));
    CHECK(gMeanCycleT == 0);
    CHECK(gRate == 6);

    StdFilter = 1;
    CHECK(CycleStats(0, 42));
    CHECK(gStrokeCnt == 3);
    int32_t Cnt = -1;
    double Mean = -1;
    double SD = -1;
    CHECK(CycleStatsInRange(0, 42, Cnt, Mean, SD));
    CHECK(Cnt == 2);
    CHECK(Mean == 10);
    CHECK(SD == 0);

    CHECK(ProcessCycles(0, Stop, 1));
    CHECK(gStrokeCnt == 2);
    CHECK(gBadStrokes == 1);
    CHECK(gTestTime == 32);

    MakeRecording({Cycles({10, 20, 10, 20})});
    StdFilter = 2;
    CHECK(ProcessCycles(0, Stop = 0, 1));
    CHECK(Stop == 129);
    CHECK(gMeanCycleT == 15);
    CHECK(gRate == 4.5);
    CHECK(gRateSD == 1.5);
    CHECK(Status.Shown.back() == "54%");
}

TEST_CASE_FIXTURE(FreshState, "a cycle over which the clock is set back is never accepted, however wide the band is")
{
    MakeRecording({Cycles({20, 20, 20, 20, 20, 20})});
    for (int i = 50; i <= gRaw.UBound(); ++i)
        gRaw(0, i) -= 49;
    StdFilter = 9;
    gBadStrokes = 0;
    int32_t Stop = 0;
    CHECK(ProcessCycles(0, Stop, 1));
    CHECK(gStrokeCnt == 5);
    CHECK(gBadStrokes == 1);
    CHECK(gMeanCycleT == 20);
    CHECK(gRate == 3);
    CHECK(gTestTime == 100);
    int32_t Cnt = 0;
    double Mean = 0, SD = 0;
    REQUIRE(CycleStats(0, Stop));
    CHECK(CycleStatsInRange(0, Stop, Cnt, Mean, SD));
    CHECK((Cnt == 5 && Mean == 20 && SD == 0));
}

TEST_CASE_FIXTURE(FreshState, "what cannot be processed is told and leaves the pattern as it was")
{
    int32_t Stop = 0;
    MakeRecording({Cycles({10, 10})});
    REQUIRE(ProcessCycles(0, Stop, 1));
    const NormCurve Before = gNormAver1.Channel(1);

    CHECK(!ProcessCycles(30, Stop, 1));
    MakeRecording({{1, 2, 3, 4}});
    Stop = 0;
    CHECK(!ProcessCycles(0, Stop, 1));
    gKeyChan = -1;
    CHECK(!ProcessCycles(0, Stop, 1));
    const std::string None = "Warning!: Could not find any cycle!";
    CHECK(Dialogs.Told ==
          Texts{None, None,
                "Warning!: There is no channel \"A1\" to find strokes by. Set the session's key channel "
                "to one that was recorded."});

    // No cycle is as long as the mean: all are rejected.
    MakeRecording({Cycles({10, 20, 10, 20})});
    StdFilter = 0;
    CHECK_THROWS_WITH_AS(ProcessCycles(0, Stop = 0, 1), "Division by zero", RunError);
    CHECK(gBadStrokes == 4);
    CHECK(gStrokeCnt == 4);
    CHECK(gRate == 4);
    StdFilter = 1;
    gFile.ChanCnt = 2;
    CHECK_THROWS_WITH_AS(ProcessCycles(0, Stop = 0, 1), "Index out of range", RunError);
    CHECK(gNormAver1.Channel(1) == Before);
    CHECK(gNormAver1.ChannelUBound() == 1);
}
