// The three forms of the derived variables beside each other, and what the play view adds.
#include "processing/mOper.h"

#include "processing/mGlobFunc.h"
#include "support/Case.h"

namespace {
// Arguments 1 to 4 at a point and half a second later.
PointPair PairOf(int ArgCnt)
{
    PointPair Pair(ArgCnt, 0.5);
    const double A[] = {9, 2, 3, 10, 20};
    const double B[] = {9, 4, 4, 30, 40};
    for (std::size_t i = 0; i < Pair.ValA.size(); ++i) {
        Pair.ValA[i] = A[i];
        Pair.ValB[i] = B[i];
    }
    return Pair;
}

// The live result of the second sample of two, half a second apart, with the same values.
double LiveResult(int Number)
{
    gDeltaT = 0.5;
    LiveOper Oper;
    Oper.ArgCnt = 4;
    Oper.HasSecond = true;
    Oper.ArgVals = {-7, 2, 3, 10, 20};
    Oper.DoOper(Number, 1);
    Oper.ArgVals = {-7, 4, 4, 30, 40};
    Oper.DoOper(Number, 1.5);
    return Oper.ArgVals[0];
}
} // namespace

TEST_CASE("an operation gives each of its three forms its own value")
{
    const std::tuple<int, double, double, double> Cases[] = {
        {0, 78, 3, 3},       // live: the sum; the others: the first argument
        {1, 78, 56.5, 56.5}, //
        {2, 0, -0.5, -0.5},  //
        {3, 16, 21, 21},     // twice the product of the means
        {4, 4, 3.25, 3.25},  //
        {5, 0, 0, 0},        // live: 4 and 4 per second are no acceleration
        {6, 4, 4, 4},        //
        {7, 2, 2, 2},        //
        {8, 140, 100, 100},  // live: both forces of the newest sample
        {10, -7, 0, 0},      // no operation: live keeps what it has
        {-1, -7, 0, 0},
    };
    for (const auto& [Number, Live, Report, Play] : Cases) {
        CAPTURE(Number);
        CHECK(LiveResult(Number) == doctest::Approx(Live));
        CHECK(PairOf(4).DoReportOper(Number) == doctest::Approx(Report));
        CHECK(PairOf(4).DoPlayOper(Number) == doctest::Approx(Play));
    }
    CHECK(PairOf(4).DoReportOper(9) == 0);
}
