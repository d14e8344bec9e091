// Lines, parabolas and tables solved for the count.
#include "sim/mInverse.h"

#include "base/mNumText.h"
#include "core/mModes.h"
#include "processing/mPhysVal.h"
#include "processing/mRefTable.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
double SolveLine(double Q0, double Q1, double Y, double Flat)
{
    return Q1 == 0 ? Flat : (Y - Q0) / Q1;
}

// The root on the branch that the middle of the range lies on: sensors are used on one side of the vertex only.
double SolveSquare(const std::array<double, 3>& Q, double Y, double MaxCount, double Flat)
{
    if (Q[2] == 0) return SolveLine(Q[0], Q[1], Y, Flat);
    const double Square = Q[1] * Q[1] - 4 * Q[2] * (Q[0] - Y);
    const double Slope = std::copysign(std::sqrt(std::max(Square, 0.0)), Q[1] + Q[2] * MaxCount);
    // Of two equal forms the one that does not subtract nearly equal numbers.
    return Slope * Q[1] > 0 ? 2 * (Y - Q[0]) / (Q[1] + Slope) : (Slope - Q[1]) / (2 * Q[2]);
}

double SolveHysteresis(const CalibrRow& Row, double Y, double Prev, double MaxCount)
{
    const double Up = SolveSquare({Row.Qup0, Row.Qup1, Row.Qup2}, Y, MaxCount, Row.Log0);
    if (Up > Prev) return Up;
    const double Down = SolveSquare({Row.Qdn0, Row.Qdn1, Row.Qdn2}, Y, MaxCount, Row.Log0);
    return std::min(Down, Prev); // between the branches the count stays where it is
}

double SolveTable(const CalibrRow& Row, double Y)
{
    const double Number = RoundHalfEven(Row.Threshold);
    if (Number < 1 || Number > gRefCnt) return Row.Log0;
    const RefTable& Table = gRefTabs[static_cast<std::size_t>(Number)];
    const auto End = static_cast<std::size_t>(std::clamp<int>(Table.Cnt, 0, RefTable::MaxRow));
    const bool IsNearFirst = std::fabs(Y - Table.Y[0]) < std::fabs(Y - Table.Y[End]);
    double Count = IsNearFirst ? Table.X[0] : Table.X[End];
    for (std::size_t i = 1; i <= End; ++i) {
        const double P = Table.Y[i - 1];
        const double Q = Table.Y[i];
        if ((P <= Y && Y < Q) || (Q <= Y && Y < P))
            Count = Table.X[i - 1] + (Y - P) / (Q - P) * (Table.X[i] - Table.X[i - 1]);
    }
    // One count inside, since the look-up does not know its highest input itself.
    const auto [Low, High] = std::minmax(Table.X[0], Table.X[End]);
    return High - Low < 2 ? Count : std::clamp(Count, Low + 1, High - 1);
}
} // namespace

double CountOf(const CalibrRow& Row, double Y, double Prev, double MaxCount)
{
    switch (Row.ProcMode) {
    case ApproxOneLine:
        return SolveSquare({Row.Qup0, Row.Qup1, Row.Qup2}, Y, MaxCount, Row.Log0);
    case ApproxTwoLines:
        return SolveHysteresis(Row, Y, Prev, MaxCount);
    case ApproxAbsolute:
        return SolveLine(Row.Q0, Row.Q1, std::fabs(Y), Row.Log0);
    case ApproxRefTable:
        return SolveTable(Row, Y);
    default:
        return SolveLine(Row.Q0, Row.Q1, Y, Row.Log0);
    }
}

double ZeroLevel(const CalibrRow& Row, double MaxCount)
{
    return CountOf(Row, 0, 0, MaxCount);
}
