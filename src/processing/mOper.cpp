// The formulas. Where two forms of an operation differ by a factor of two, both are meant.
#include "processing/mOper.h"

#include "base/mError.h"
#include "processing/mGlobFunc.h"

#include <cmath>
#include <numeric>
#include <utility>

void LiveOper::DoOper(int Number, double Time)
{
    auto& V = ArgVals;
    switch (Number) {
    case 0:
    case 1:
        V[0] = Add();
        break;
    case 2:
        V[0] = V[1] - V[2];
        break;
    case 3:
        V[0] = V[1] * V[2];
        break;
    case 4:
        V[0] = (V[1] + V[2]) / 2;
        break;
    case 5: // Integral: by its name an integral, by what it gives the second derivative
    case 6: // Different: the central difference
    {
        const double D1 = SafeDiv(Prev1 - Prev2, gDeltaT);
        const double D2 = SafeDiv(V[1] - Prev1, gDeltaT);
        V[0] = Number == 5 ? SafeDiv(D2 - D1, gDeltaT) : (D1 + D2) / 2;
        ShiftHistory();
        break;
    }
    case 7:
        V[0] = SegSpeed(Time);
        break;
    case 8:
        V[0] = (V[3] + V[4]) * SegSpeed(Time);
        break;
    default:
        break;
    }
}

double LiveOper::Add() const
{
    return std::accumulate(ArgVals.begin() + 1, ArgVals.begin() + 1 + ArgCnt, 0.0);
}

double LiveOper::SegSpeed(double Time)
{
    const double X = HasSecond ? ArgVals[1] - ArgVals[2] : ArgVals[1];
    return SafeDiv(X - std::exchange(PrevX, X), Time - std::exchange(PrevT, Time));
}

void LiveOper::ShiftHistory()
{
    Prev2 = std::exchange(Prev1, ArgVals[1]);
}

PointPair::PointPair(int ArgCnt, double StepTime)
    : ValA(static_cast<std::size_t>(ArgCnt) + 1), ValB(ValA.size()), Step(StepTime)
{
}

double PointPair::DoReportOper(int Number) const
{
    switch (Number) {
    case 0:
        return Mean(1);
    case 1:
        return Add();
    case 2:
        return Mean(1) - Mean(2);
    case 3:
        return Multiplay();
    case 4:
        return (Mean(1) + Mean(2)) / 2;
    case 6:
        return SafeDiv(At(ValB, 1) - At(ValA, 1), Step);
    case 7:
        return SegSpeed();
    case 8:
        return Power(SegSpeed());
    default:
        return 0;
    }
}

double PointPair::DoPlayOper(int Number) const
{
    const bool HasPair = ArgCnt() >= 2;
    switch (Number) {
    case 4:
    case 7:
        return HasPair ? DoReportOper(Number) : 0;
    case 8:
        return Power(HasPair ? SegSpeed() : 0);
    case 9:
        return Arower();
    default:
        return DoReportOper(Number);
    }
}

double PointPair::Mean(int Arg) const
{
    return (At(ValA, Arg) + At(ValB, Arg)) / 2;
}

double PointPair::Add() const
{
    double Sum = 0;
    for (int Arg = 1; Arg <= ArgCnt(); ++Arg)
        Sum += Mean(Arg);
    return Sum;
}

// The product of two sums is halved once: twice the product of the two means.
double PointPair::Multiplay() const
{
    return (At(ValA, 1) + At(ValB, 1)) * (At(ValA, 2) + At(ValB, 2)) / 2;
}

double PointPair::SegSpeed() const
{
    return SafeDiv((At(ValB, 1) - At(ValB, 2)) - (At(ValA, 1) - At(ValA, 2)), Step);
}

double PointPair::Power(double Speed) const
{
    return Speed * (At(ValA, 3) + At(ValA, 4) + At(ValB, 3) + At(ValB, 4)) / 2;
}

// Acceleration of the rower's centre of mass, m/s2: what the gate forces leave when the boat has taken its share.
double PointPair::Arower() const
{
    constexpr double HandleEnd = 0.04;   // m, from the oar's end to the middle of the hands
    constexpr double BladeEnd = 0.24;    // m, from the blade's tip to the middle of its pressure
    constexpr double ShareOfCrew = 0.15; // part of the crew's mass that moves with the boat
    double Mass = 0;
    for (const CrewRow& Row : gFile.Crew)
        Mass += static_cast<double>(Row.Weight);
    const BoatRow& Rig = gFile.Boat[1];
    const double Inboard = static_cast<double>(Rig.OarInboard);
    const double Outboard = static_cast<double>(Rig.OarLength) - BladeEnd - Inboard;
    const double Gear = Div(Inboard - HandleEnd, Outboard);
    const double BoatForce = Mean(2) * (static_cast<double>(gFile.BoatMass) + ShareOfCrew * Mass);
    const double Angle = (Mean(0) + Mean(1)) / 2 * DegreeRad;
    const double Force = (Mean(3) + Mean(4)) * Gear * std::cos(Angle);
    return Div(Force - BoatForce, (1 - ShareOfCrew) * Mass);
}

std::vector<double> GetIntegral(std::span<const double> In, double Dt)
{
    const double N = static_cast<double>(In.size()) - 1;
    std::vector<double> Middles(In.size());
    for (std::size_t i = 0; i < In.size(); ++i)
        Middles[i] = (In[i == 0 ? In.size() - 1 : i - 1] + In[i]) / 2;
    // One value more is summed than the divisor counts.
    const double Mean = Div(std::accumulate(Middles.begin(), Middles.end(), 0.0), N);
    std::vector<double> Out;
    Out.reserve(In.size());
    for (const double Middle : Middles)
        Out.push_back((Middle - Mean) * Dt + (Out.empty() ? 0 : Out.back()));
    const double Drift = std::accumulate(Out.begin(), Out.end(), 0.0) / N;
    for (double& Each : Out)
        Each -= Drift;
    return Out;
}

double fMin(std::span<const double> Values)
{
    return ArrMinMax(Values, "MIN");
}

double fMax(std::span<const double> Values)
{
    return ArrMinMax(Values, "MAX");
}

bool IsRowFunction(std::string_view Key)
{
    return Key.size() == 4 && (Key.starts_with("Min") || Key.starts_with("Max") || Key.starts_with("Del")) &&
           (Key[3] == 'X' || Key[3] == 'Y');
}

double RowFunction(std::string_view Key, std::span<const double> Xs, std::span<const double> Ys)
{
    if (Key == "MinX") return fMin(Xs);
    if (Key == "MaxX") return fMax(Xs);
    if (Key == "DelX") return fMax(Xs) - fMin(Xs);
    if (Key == "MinY") return fMin(Ys);
    if (Key == "MaxY") return fMax(Ys);
    if (Key == "DelY") return fMax(Ys) - fMin(Ys);
    return 0;
}
