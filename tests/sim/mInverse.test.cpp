// Physical values through the inverse calibration and back through the engine's calibration.
#include "sim/mInverse.h"

#include "core/mNumText.h"
#include "processing/mRefTable.h"
#include "support/ScriptedDialogs.h"

#include <doctest/doctest.h>

#include <array>
#include <cmath>

namespace {
constexpr double Max = 16383;

// Gives channel 1 of the session a calibration.
CalibrRow& Channel(int16_t ProcMode)
{
    gFile.Calibr.Resize(1);
    CalibrRow& Row = gFile.Calibr[1];
    Row = {};
    Row.Chan = 1;
    Row.ProcMode = ProcMode;
    return Row;
}

// What the engine makes of Y, sent as a whole count of channel 1 behind the count Prev. Prev becomes the count sent.
double ThereAndBack(double Y, double& Prev)
{
    const double Count = RoundHalfEven(CountOf(gFile.Calibr[1], Y, Prev, Max));
    double Before = Prev;
    Prev = Count;
    return CalcPhysVal(1, Count, Before);
}
} // namespace

TEST_CASE("a value survives the way to counts and back in every processing mode")
{
    const FreshState State;
    const auto Check = [](double Low, double High, double Error) {
        CAPTURE(gFile.Calibr[1].ProcMode);
        double Prev = 0;
        for (int i = 0; i <= 200; ++i) { // up and down again
            const double Y = Low + (High - Low) * (i <= 100 ? i : 200 - i) / 100;
            CHECK(std::fabs(ThereAndBack(Y, Prev) - Y) <= Error);
        }
    };
    CalibrRow& Line = Channel(0);
    Line.Q0 = 60;
    Line.Q1 = -0.0121;
    Check(-90, 55, 0.0061);

    // The last one falls behind its top at 1000 counts.
    for (const auto& [Q0, Q1, Q2] : {std::array{-100.0, 0.012, 0.0}, {-100, 0.012, 2e-7}, {50, 0.001, -5e-7}}) {
        CalibrRow& Curve = Channel(1);
        Curve.Qup0 = Q0;
        Curve.Qup1 = Q1;
        Curve.Qup2 = Q2;
        Check(Q0 < 0 ? -95 : -70, Q0 < 0 ? 40 : 45, 0.011);
    }

    CalibrRow& Branches = Channel(2);
    Branches.Qup0 = -100;
    Branches.Qup1 = 0.1;
    Branches.Qdn0 = -103;
    Branches.Qdn1 = 0.1;
    Check(-50, 1200, 1.6); // at the turns the count stays while the value leaves one branch for the other

    CalibrRow& Sizes = Channel(3);
    Sizes.Q0 = -819.2;
    Sizes.Q1 = 0.1;
    Check(0, 800, 0.051);

    for (const bool IsFalling : {false, true}) {
        gRefTabs.resize(2);
        gRefCnt = 1;
        gRefTabs[1].Cnt = 4;
        for (std::size_t i = 0; i <= 4; ++i) {
            gRefTabs[1].X[i] = IsFalling ? 12000 - 2000 * static_cast<double>(i) : 3000 * static_cast<double>(i);
            gRefTabs[1].Y[i] = static_cast<double>(i * i) * 10 - 50;
        }
        Channel(4).Threshold = 1;
        Check(-50, 109, 0.02);
        double Prev = 0;
        CHECK(std::fabs(ThereAndBack(500, Prev) - 110) < 0.1);
        CHECK(std::fabs(ThereAndBack(-500, Prev) + 50) < 0.1);
    }
}
