// Points of a calibration, counts against physical values: the running line through them and their extremes.
#pragma once

#include <span>
#include <vector>

/// A measured pair.
struct CalPoint
{
    double L = 0; // logical value: raw count
    double P = 0; // physical value

    bool operator==(const CalPoint&) const = default;
};
using CalPoints = std::vector<CalPoint>;

/// Where extremes start: any value is beyond them.
inline constexpr double FarOff = 2147483647;

/// A line P = Q0 + Q1 L.
struct CalLine
{
    double Q0 = 0;
    double Q1 = 0;
    double R2 = 0; // product of the slopes of P on L and of L on P: the square of the correlation
};

/// The sums that a line is taken from, point by point.
class CalSums
{
public:
    void Add(const CalPoint& Point);

    /// The line of least squares; 0, 0, 0 where there is none, as through a single point.
    CalLine Line() const;

private:
    double N = 0;
    double P = 0;
    double L = 0;
    double LP = 0;
    double P2 = 0;
    double L2 = 0;
};

/// Sums of all points.
CalSums SumsOf(std::span<const CalPoint> Points);

/// The smallest and the largest values of points.
struct CalRange
{
    double MinP = FarOff;
    double MaxP = -FarOff;
    double MinL = 16384;
    double MaxL = 0;

    /// Widens the physical limits to hold P.
    void TakeP(double P);
};

/// Limits of all points.
CalRange FindMinMax(std::span<const CalPoint> Points);

/// Physical limits of a table within the range of points measured.
struct TableLimits
{
    double Min = 0; // physical units
    double Max = 0;
};

/// Limits 4 physical units within the lowest and the highest of Points. A point is lower or higher than another when
/// both its values are. With a point alone Min is above Max.
TableLimits FindLimits(std::span<const CalPoint> Points);
