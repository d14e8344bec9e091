// Sums, the line from them, and extremes.
#include "calibration/mCalPoints.h"

#include "base/mError.h"

#include <algorithm>

namespace {
// Keeps a table within the measured range, where its fits have points on both sides.
constexpr double LimitMargin = 4.0;
} // namespace

void CalSums::Add(const CalPoint& Point)
{
    N += 1;
    P += Point.P;
    L += Point.L;
    LP += Point.L * Point.P;
    P2 += Point.P * Point.P;
    L2 += Point.L * Point.L;
}

CalLine CalSums::Line() const
{
    const double DP = N * P2 - P * P;
    const double DL = N * L2 - L * L;
    const double Common = N * LP - L * P;
    CalLine Line;
    Line.Q1 = SafeDiv(Common, DL);
    Line.Q0 = SafeDiv(L2 * P - LP * L, DL);
    Line.R2 = SafeDiv(Common, DP) * Line.Q1;
    return Line;
}

CalSums SumsOf(std::span<const CalPoint> Points)
{
    CalSums Sums;
    for (const CalPoint& Point : Points)
        Sums.Add(Point);
    return Sums;
}

void CalRange::TakeP(double P)
{
    MinP = std::min(MinP, P);
    MaxP = std::max(MaxP, P);
}

CalRange FindMinMax(std::span<const CalPoint> Points)
{
    CalRange Range;
    for (const CalPoint& Point : Points) {
        Range.TakeP(Point.P);
        Range.MinL = std::min(Range.MinL, Point.L);
        Range.MaxL = std::max(Range.MaxL, Point.L);
    }
    return Range;
}

TableLimits FindLimits(std::span<const CalPoint> Points)
{
    CalPoint Low{FarOff, FarOff};
    CalPoint High{-FarOff, -FarOff};
    for (const CalPoint& Point : Points) {
        if (Point.L < Low.L && Point.P < Low.P) Low = Point;
        if (Point.L > High.L && Point.P > High.P) High = Point;
    }
    return {Low.P + LimitMargin, High.P - LimitMargin};
}
