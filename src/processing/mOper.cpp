// The formulas. Where two forms of an operation differ by a factor of two, that is intended.
#include "processing/mOper.h"

#include "base/mError.h"
#include "processing/mGlobFunc.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace {
constexpr std::array Table = {
    Operation{OperNone, "None", 1, eOperUnit::First},
    Operation{OperAdd, "Add", 1, eOperUnit::Shared},
    Operation{OperSubstract, "Substract", 2, eOperUnit::Shared},
    Operation{OperMultiplay, "Multy", 2, eOperUnit::None},
    Operation{OperAverage, "Average", 2, eOperUnit::Shared},
    Operation{OperIntegral, "Integral", 1, eOperUnit::None},
    Operation{OperDifferent, "Differential", 1, eOperUnit::PerSecond},
    Operation{OperSegSpeed, "Segm.Speed", 2, eOperUnit::Segment},
    Operation{OperPower, "Power", 4, eOperUnit::Power},
    Operation{OperArower, "Rower's Acceleration", 4, eOperUnit::None},
    Operation{OperFigureXY, "XY Anim.", 1, eOperUnit::None},
    Operation{OperFigureXZ, "XZ Anim.", 1, eOperUnit::None},
    Operation{OperFigureYZ, "YZ Anim.", 1, eOperUnit::None},
};
} // namespace

std::span<const Operation> Operations()
{
    return Table;
}

const Operation* FindOper(int Number)
{
    const auto* const Found = std::ranges::find(Table, Number, &Operation::Number);
    return Found == Table.end() ? nullptr : Found;
}

void LiveOper::DoOper(int Number, double Time)
{
    auto& V = ArgVals;
    switch (Number) {
    case OperNone:
    case OperAdd:
        V[0] = Add();
        break;
    case OperSubstract:
        V[0] = V[1] - V[2];
        break;
    case OperMultiplay:
        V[0] = V[1] * V[2];
        break;
    case OperAverage:
        V[0] = (V[1] + V[2]) / 2;
        break;
    case OperIntegral:  // Integral: by its name an integral, by what it gives the second derivative
    case OperDifferent: // Different: the central difference
    {
        const double D1 = SafeDiv(Prev1 - Prev2, gDeltaT);
        const double D2 = SafeDiv(V[1] - Prev1, gDeltaT);
        V[0] = Number == OperIntegral ? SafeDiv(D2 - D1, gDeltaT) : (D1 + D2) / 2;
        ShiftHistory();
        break;
    }
    case OperSegSpeed:
        V[0] = SegSpeed(Time);
        break;
    case OperPower:
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
    case OperNone:
        return Mean(1);
    case OperAdd:
        return Add();
    case OperSubstract:
        return Mean(1) - Mean(2);
    case OperMultiplay:
        return Multiplay();
    case OperAverage:
        return (Mean(1) + Mean(2)) / 2;
    case OperDifferent:
        return SafeDiv(At(ValB, 1) - At(ValA, 1), Step);
    case OperSegSpeed:
        return SegSpeed();
    case OperPower:
        return Power(SegSpeed());
    default:
        return 0;
    }
}

double PointPair::DoPlayOper(int Number) const
{
    const bool HasPair = ArgCnt() >= 2;
    switch (Number) {
    case OperAverage:
    case OperSegSpeed:
        return HasPair ? DoReportOper(Number) : 0;
    case OperPower:
        return Power(HasPair ? SegSpeed() : 0);
    case OperArower:
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
