// The course of the loads, and a sensor with play, bow and wave.
#include "sim/cRig.h"

#include "base/mNumText.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr int TruthSteps = 100;
constexpr int Halvings = 60; // of the whole range of counts: beyond the precision of a double
} // namespace

int RigChannel(const DataFile& File, const std::string& Name)
{
    const bool IsNumber = !Name.empty() && Name.find_first_not_of("0123456789") == std::string::npos;
    const double Chan = IsNumber ? Val(Name) : FindChan(File.Calibr, Name);
    return Chan >= 1 && Chan <= File.Calibr.UBound() ? static_cast<int>(Chan) : 0;
}

double EvenNoise(double Deviation)
{
    return Deviation * std::numbers::sqrt3;
}

cRig::cRig(const RigSettings& Settings, const DataFile& File, double MaxCount) : Wanted(Settings), Top(MaxCount)
{
    const CalibrRow& Row = File.Calibr[RigChannel(File, Wanted.Chan)];
    Q0 = Wanted.Q0.value_or(Row.Q0);
    Q1 = Wanted.Q1.value_or(Row.Q1);
    const auto [Min, Max] = std::minmax_element(Wanted.Loads.begin(), Wanted.Loads.end());
    Low = *Min;
    Range = *Max - Low;
    Play = Range * Wanted.Hyst / 100;
    Felt = Wanted.Loads[0] - Play / 2;
}

double cRig::Load(double T) const
{
    const std::vector<double>& Loads = Wanted.Loads;
    const double Steps = T / StepTime();
    const auto Step = static_cast<std::size_t>(Steps);
    const double Rest = (Steps - std::floor(Steps)) * StepTime();
    const double From = Loads[Step % Loads.size()];
    const double To = Loads[(Step + 1) % Loads.size()];
    return Rest <= Wanted.Hold ? From : From + (To - From) * (Rest - Wanted.Hold) / Wanted.Ramp;
}

// What is felt follows the load only when the play is used up.
double cRig::CountAt(double T)
{
    const double Now = Load(T);
    Felt = std::clamp(Felt, Now - Play / 2, Now + Play / 2);
    return CountOfCurve(Felt);
}

double cRig::Curve(double Count) const
{
    const double Line = Q0 + Q1 * Count;
    const double U = Range > 0 ? (Line - Low) / Range : 0;
    return Line + Range / 100 * (Wanted.Bend * 4 * U * (1 - U) + Wanted.Wave * std::sin(2 * std::numbers::pi * U));
}

// The curve goes one way within its range and a tenth beyond, where it is halved until it meets Y.
double cRig::CountOfCurve(double Y) const
{
    if (Range == 0) return (Y - Q0) / Q1;
    double Below = (Low - Range / 10 - Q0) / Q1;
    double Above = (Low + Range * 1.1 - Q0) / Q1;
    for (int i = 0; i < Halvings; ++i) {
        const double Middle = (Below + Above) / 2;
        (Curve(Middle) < Y ? Below : Above) = Middle;
    }
    return Above;
}

std::string cRig::TruthTable() const
{
    const double First = CountOfCurve(Low - Play / 2);
    const double Last = CountOfCurve(Low + Range + Play / 2);
    std::string Text = "Chan\tCount\tRising\tFalling\n";
    for (int i = 0; i <= TruthSteps; ++i) {
        const double Count = First + (Last - First) * i / TruthSteps;
        Text += Wanted.Chan;
        for (const double Value : {Count, Rising(Count), Falling(Count)})
            Text += '\t' + FormatNum(Value, "0.0000");
        Text += '\n';
    }
    return Text;
}

std::string cRig::News(double T)
{
    const double Step = std::floor(T / StepTime());
    if (Step == Reported) return {};
    Reported = Step;
    return Wanted.Chan + ": " + FormatShortest(Load(Step * StepTime()));
}

std::string cRig::WhyNot() const
{
    if (Q1 == 0) return "Channel " + Wanted.Chan + " has no gain in the session: give the rig q0= and q1=";
    const double First = CountOfCurve(Low - Play / 2);
    const double Last = CountOfCurve(Low + Range + Play / 2);
    const auto [Least, Most] = std::minmax(First, Last);
    if (Least >= 0 && Most <= Top) return {};
    return "Channel " + Wanted.Chan + " cannot show these loads: they are counts " + FormatNum(Least, "0") + " to " +
           FormatNum(Most, "0") + " of 0 to " + FormatNum(Top, "0");
}
