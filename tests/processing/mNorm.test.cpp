// The time grid of a cycle, the sums over cycles, and the means with their gaps filled.
#include "processing/mNorm.h"

#include "processing/Recording.h"
#include "processing/mProcess.h"
#include "support/Case.h"

namespace {
// A recording of Last + 1 samples of the straight line 5 T + 2, which every interpolation meets, and a run on it.
NormRun MakeLine(int Last, double Step)
{
    std::vector<double> Line;
    for (int i = 0; i <= Last; ++i)
        Line.push_back(5 * i * Step + 2);
    MakeRecording({Line}, Step);
    return ResetNorm(1);
}

// Number of points that a cycle brought, whose values must lie on the line, those before row 1 on the value of row 1.
int CountPoints(NormRun& Sums, double T0, double T1, double Step)
{
    int Points = 0;
    for (int j = 0; j <= NormSteps; ++j) {
        if (Sums.Cnt(j, 1) == 0) continue;
        ++Points;
        const double T = std::max(T0 + (T1 - T0) * j / NormSteps, Step);
        CHECK(Sums.Aver(j, 1) == doctest::Approx(5 * T + 2).epsilon(1e-12));
    }
    return Points;
}
} // namespace

TEST_CASE("a cycle is brought to 51 points, wherever the search for its samples starts")
{
    const std::tuple<std::string, int, double, int32_t, double, double, int> Cases[] = {
        {"twice as many samples as points", 200, 0.02, 53, 1.003, 3.017, 51},
        {"six times as many", 400, 0.01, 53, 0.503, 3.517, 51},
        {"half as many, found by going down", 100, 0.04, 28, 1.003, 2.017, 51},
        {"points on samples", 200, 0.5, 53, 25, 75, 51},
        {"the first guess lies before the data", 200, 0.02, 0, 0.05, 2.017, 51},
        {"time before row 1 takes its values", 200, 0.02, 1, -1.0, 2.0, 51},
        {"long past the start, found by going down to row 1", 200, 0.02, 140, 0.0, 2.0, 51},
        {"the data end in the middle", 100, 0.02, 53, 1.0, 3.0, 26},
        {"the guess leaves the data before the time does", 60, 0.02, 53, 1.0, 1.1, 9},
        {"behind the data", 60, 0.02, 53, 2.0, 3.0, 0}};
    for (const auto& [What, Last, Step, CycleStart, T0, T1, Points] : Cases) {
        CAPTURE(What);
        NormRun Sums = MakeLine(Last, Step);
        AddCycle(Sums, CycleStart, T0, T1);
        CHECK(CountPoints(Sums, T0, T1, Step) == Points);
    }
    NormRun Sums = MakeLine(200, 0.02);
    for (int i = 80; i <= 200; ++i)
        gRaw(0, i) = 0; // rows that were never filled
    AddCycle(Sums, 53, 1.003, 2.503);
    CHECK(CountPoints(Sums, 1.003, 2.503, 0.02) == 20);
}

TEST_CASE_FIXTURE(FreshState, "means and deviations are those of the values that each point has")
{
    MakeRecording({std::vector<double>(80, 4)}, 0.02);
    NormRun First = ResetNorm(1);
    AddStroke(First, 13, 0.2, 1.0);
    for (double& X : gRaw.Channel(1))
        X = 7;
    AddStroke(First, 53, 1.0, 1.8); // 27 samples before the end of the data: 28 points
    FinishNorm(First);
    PublishNorm(std::move(First));
    CHECK(gNormAver1(27, 1) == 5.5);
    CHECK(gNormStd1(27, 1) == 1.5);
    CHECK(gNormAver1(28, 1) == 4);
    CHECK(gNormStd1(28, 1) == 0);
    CHECK(gMeanCycleT == doctest::Approx(0.8));
    CHECK(gRate == doctest::Approx(75));

    // The second run: values of 7 lie on the limit and stay, those of 7.5 are beyond it where there is a limit.
    NormRun Second = ResetNorm(2);
    AddCycle(Second, 13, 0.2, 1.0);
    for (double& X : gRaw.Channel(1))
        X = 7.5;
    AddCycle(Second, 13, 0.2, 1.0);
    CHECK(Second.Cnt(27, 1) == 1);
    CHECK(Second.Aver(27, 1) == 7);
    CHECK(Second.Cnt(28, 1) == 2);
    CHECK_THROWS_WITH_AS(FinishNorm(Second), "Division by zero", RunError); // no stroke was counted

    NormRun Short = ResetNorm(1);
    AddStroke(Short, 53, 1.0, 1.8);
    CHECK_THROWS_WITH_AS(FinishNorm(Short), "Division by zero", RunError);
}

TEST_CASE("a gap of the second run is filled from the channel before, by sums above it and by means below it")
{
    gFile.ChanCnt = 3;
    NormRun Sums = ResetNorm(2);
    for (int j = 0; j <= NormSteps; ++j)
        for (const int Chan : {1, 2}) {
            Sums.Aver(j, Chan) = 2 * (10 * Chan + j);
            Sums.Cnt(j, Chan) = 2;
        }
    for (const auto& [Point, Chan] : {std::pair{0, 2}, {20, 2}, {21, 2}, {50, 2}, {5, 1}})
        Sums.Cnt(Point, Chan) = Sums.Aver(Point, Chan) = 0;
    Sums.Rates.Add(30);
    FinishNorm(Sums);

    CHECK(Sums.Aver(4, 2) == 24);
    CHECK(Sums.Aver(0, 2) == (118.0 / 2 + 22.0 / 2) / 2); // 49 by wrapping, still a sum; 1, still a sum
    CHECK(Sums.Aver(20, 2) == (29.0 / 2 + 64.0 / 2) / 2); // 19, a mean already; 22, still a sum
    CHECK(Sums.Aver(21, 2) == (29.0 / 2 + 64.0 / 2) / 2); // the filled point 20 has no count
    CHECK(Sums.Aver(50, 2) == (59.0 / 2 + 11.0 / 2) / 2); // 49, a mean; 1 by wrapping, a mean
    CHECK(Sums.Std(20, 2) == Sums.Aver(20, 2));
    CHECK(Sums.Aver(5, 1) == 0);
    CHECK(Sums.Aver(30, 3) == 0);
}
