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

TEST_CASE("live differences start from zero and the second difference is over the squared step")
{
    gDeltaT = 0.1;
    LiveOper Oper;
    Oper.ArgCnt = 1;
    const double Expected[] = {100, -100 + 100 * 2, 200};
    const double Values[] = {1, 3, 7};
    for (std::size_t i = 0; i < 3; ++i) {
        Oper.ArgVals[1] = Values[i];
        Oper.DoOper(5, 0);
        CHECK(Oper.ArgVals[0] == doctest::Approx(Expected[i]));
    }
    gDeltaT = 0;
    for (const int Number : {5, 6, 7}) {
        Oper.DoOper(Number, 0);
        CHECK(Oper.ArgVals[0] == 0);
    }
}

TEST_CASE("arguments that a row does not have fail, but pass in two operations of the play view")
{
    CHECK_THROWS_AS(PairOf(0).DoReportOper(0), RunError);
    for (const int Number : {2, 3, 4, 7, 8})
        CHECK_THROWS_AS(PairOf(1).DoReportOper(Number), RunError);
    for (const int Number : {2, 3, 8, 9})
        CHECK_THROWS_AS(PairOf(1).DoPlayOper(Number), RunError);
    CHECK((PairOf(1).DoPlayOper(4) == 0 && PairOf(1).DoPlayOper(7) == 0));
}

TEST_CASE("the rower's acceleration is what the gate forces leave over the boat's share")
{
    gFile.BoatMass = 14;
    gFile.Crew.Resize(2);
    gFile.Crew[1].Weight = 60;
    gFile.Crew[2].Weight = 40;
    gFile.Boat.Resize(1);
    gFile.Boat[1].OarInboard = 0.88F;
    gFile.Boat[1].OarLength = 2.88F;
    PointPair Pair(4, 0.02);
    Pair.ValA = {50, 70, 1, 300, 200}; // angles, boat acceleration, forces
    Pair.ValB = {50, 70, 3, 300, 200};
    const double Gear = (0.88 - 0.04) / (2.88 - 0.24 - 0.88);
    CHECK(Pair.DoPlayOper(9) == doctest::Approx((500 * Gear * 0.5 - 2 * (14 + 15)) / 85));
    gFile.Boat[1].OarLength = gFile.Boat[1].OarInboard = 0;
    gFile.Crew.Clear();
    CHECK_THROWS_AS(Pair.DoPlayOper(9), RunError);
}

TEST_CASE("the integral of a cycle loses its drift by a divisor one too small")
{
    const double Speed[] = {3, 1, 2};
    // Middles 2.5, 2, 1.5 less their sum over 2; running sums -0.25, -0.75, -1.5 of steps of 0.5 less theirs over 2.
    const auto Way = GetIntegral(Speed, 0.5);
    const double Expected[] = {1, 0.5, -0.25};
    REQUIRE(Way.size() == 3);
    for (std::size_t i = 0; i < 3; ++i)
        CHECK(Way[i] == doctest::Approx(Expected[i]));
    CHECK_THROWS_AS(GetIntegral(std::span(Speed, 1), 0.5), RunError);
}

TEST_CASE("a row's functions are extremes of its curve within limits")
{
    const double Xs[] = {-40, 30};
    const double Ys[] = {3e9, 5};
    CHECK(RowFunction("DelX", Xs, Ys) == 70);
    CHECK(RowFunction("MaxY", Xs, Ys) == 3e9);
    CHECK(RowFunction("minX", Xs, Ys) == 0);
    CHECK(fMin(std::span(Ys, 1)) == 2147483647);
    CHECK(fMax({}) == -2147483647);
}

TEST_CASE("a comma list is split without trimming and its numbers are read leniently")
{
    CHECK(SplitStr("").empty());
    CHECK(SplitStr(" a,,b ") == Texts{" a", "", "b "});
    CHECK(SplitNum("1.5,x, -2m,") == std::vector<double>{1.5, 0, -2, 0});
    CHECK(LeftPart("Сила", 2) == "Си");
}
