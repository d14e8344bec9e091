// Histories, tests of signs, and fits.
#include "live/catch/cTurns.h"

#include "base/mError.h"
#include "processing/mGlobFunc.h"
#include "processing/mProcFuncs.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

namespace {
using Five = std::array<double, 5>;

// Abscissae closer than this to each other, in parts of their size, differ by rounding only.
constexpr double Rounding = 1e-12;

double Mean(const Five& Values)
{
    return std::accumulate(Values.begin(), Values.end(), 0.0) / static_cast<double>(Values.size());
}

// The cubic through the five pairs at a place; where the abscissae are all one, their mean ordinate.
double FitAt(const Five& X, const Five& Y, double At)
{
    const auto [Least, Most] = std::minmax_element(X.begin(), X.end());
    const double Size = std::max(std::abs(*Least), std::abs(*Most));
    return *Most - *Least <= Rounding * Size ? Mean(Y) : PolyFitAt(X, Y, At);
}

// Times counted from the first one: a fit is as exact after hours as at the start.
Five FromFirst(const Five& Times)
{
    Five Counted;
    std::transform(Times.begin(), Times.end(), Counted.begin(), [&](double Time) { return Time - Times[0]; });
    return Counted;
}
} // namespace

void cTurns::Begin(double Time, double X)
{
    Times.fill(Time);
    MidTimes.fill(Time);
    Values.fill(X);
    Velocities.fill(0);
}

void cTurns::Take(double Time, double X)
{
    const double Step = Time - Times[4];
    ShiftAppend(MidTimes, Times[4] + Step / 2);
    ShiftAppend(Velocities, SafeDiv(X - Values[4], Step));
    ShiftAppend(Times, Time);
    ShiftAppend(Values, X);
}

bool cTurns::IsForwardTurn() const
{
    const History& V = Velocities;
    return V[0] < 0 && V[1] < 0 && V[2] <= 0 && V[3] >= 0 && V[4] > 0;
}

bool cTurns::IsBackwardTurn() const
{
    const History& V = Velocities;
    return V[0] > 0 && V[1] > 0 && V[2] >= 0 && V[3] <= 0 && V[4] < 0;
}

bool cTurns::IsFinishTurn() const
{
    const History& V = Velocities;
    return V[0] > 0 && V[1] >= 0 && V[2] < 0 && V[3] < 0 && V[4] < 0;
}

double cTurns::TurnTime() const
{
    return MidTimes[0] + FitAt(Velocities, FromFirst(MidTimes), 0);
}

double cTurns::ValueAt(double Time) const
{
    return FitAt(FromFirst(Times), Values, Time - Times[0]);
}

double cTurns::TimeAt(double Value) const
{
    return Times[0] + FitAt(Values, FromFirst(Times), Value);
}
