// Physical values through the inverse calibration and back through the engine's calibration.
#include "sim/mInverse.h"

#include "processing/mPhysVal.h"
#include "processing/mRefTable.h"
#include "support/Case.h"

#include <array>

namespace {
constexpr double Max = 16383;

// What the engine makes of Y, sent as a whole count of channel 1 behind the count Prev. Prev becomes the count sent.
double ThereAndBack(double Y, double& Prev)
{
    const double Count = RoundHalfEven(CountOf(gFile.Calibr[1], Y, Prev, Max));
    double Before = std::exchange(Prev, Count);
    return CalcPhysVal(1, Count, Before);
}
} // namespace

TEST_CASE_FIXTURE(FreshState, "a value survives the way to counts and back in every processing mode")
{
    gRefTabs.resize(3);
    gRefCnt = 2;
    for (std::size_t i = 0; i <= 4; ++i) { // a table that rises and one that falls
        gRefTabs[1].X[i] = 3000 * static_cast<double>(i);
        gRefTabs[2].X[i] = 12000 - 2000 * static_cast<double>(i);
        gRefTabs[1].Y[i] = gRefTabs[2].Y[i] = static_cast<double>(i * i) * 10 - 50;
    }
    gRefTabs[1].Cnt = gRefTabs[2].Cnt = 4;
    using Three = std::array<double, 3>;
    const std::tuple<int16_t, Three, Three, double, double, double> Cases[] = {
        {0, {60, -0.0121, 0}, {}, -90, 55, 0.0061},
        {1, {-100, 0.012, 2e-7}, {}, -95, 40, 0.011},
        {1, {50, 0.001, -5e-7}, {}, -70, 45, 0.011},         // falls behind its top at 1000 counts
        {2, {-100, 0.1, 0}, {-103, 0.1, 0}, -50, 1200, 1.6}, // leaves a branch for the other at a turn
        {3, {-819.2, 0.1, 0}, {}, 0, 800, 0.051},
        {4, {1}, {}, -50, 109, 0.02},
        {4, {2}, {}, -50, 109, 0.02},
    };
    gFile.Calibr.Resize(1);
    CalibrRow& Row = gFile.Calibr[1];
    Row.Chan = 1;
    for (const auto& [Mode, Up, Down, Low, High, Error] : Cases) {
        CAPTURE(Mode);
        Row.ProcMode = Mode;
        Row.Threshold = Up[0];
        Row.Q0 = Row.Qup0 = Up[0];
        Row.Q1 = Row.Qup1 = Up[1];
        Row.Qup2 = Up[2];
        Row.Qdn0 = Down[0];
        Row.Qdn1 = Down[1];
        double Prev = 0;
        for (int i = 0; i <= 200; ++i) { // up and down again
            const double Y = Low + (High - Low) * (i <= 100 ? i : 200 - i) / 100;
            CHECK(std::fabs(ThereAndBack(Y, Prev) - Y) <= Error);
        }
    }
}
