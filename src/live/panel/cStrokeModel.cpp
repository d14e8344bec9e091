// Finding catch, finish and the shape of the drive in a stroke's samples.
#include "live/panel/cStrokeModel.h"

#include "base/mError.h"
#include "base/mNumText.h"

#include <limits>

namespace {
constexpr int LeastSamples = 10;
constexpr double ForceIsUp = 0.7; // of the highest force

// Part of the stroke's time behind the lowest acceleration in which its peak is looked for.
constexpr double PeakFrom = 0.075;
constexpr double PeakTo = 0.125;

double Score(double Better, double Deviation)
{
    return (Better / Deviation + 3.0) * 1.667;
}
} // namespace

void cStrokeModel::Take(double A, double Y)
{
    if (ModCnt < Room) {
        ModX[static_cast<std::size_t>(ModCnt)] = A;
        ModY[static_cast<std::size_t>(ModCnt)] = Y;
    }
    if (ModCnt < std::numeric_limits<int16_t>::max()) ++ModCnt;
}

bool cStrokeModel::IsCatch(int i) const
{
    return A(i - 2) > A(i) && A(i - 1) >= A(i) && A(i + 1) >= A(i) && A(i + 2) > A(i);
}

bool cStrokeModel::IsFinish(int i) const
{
    return A(i - 2) < A(i) && A(i - 1) <= A(i) && A(i + 1) <= A(i) && A(i + 2) < A(i);
}

// A stroke whose samples go on behind the room has no result; a turn that would need samples there is not found.
std::optional<cStrokeModel::Turns> cStrokeModel::FindTurns() const
{
    Turns Found;
    if (ModCnt < LeastSamples) return {};
    for (int i = 2; i <= ModCnt - 3; ++i) {
        if (i >= Room) return {};
        if (Y(i) < Found.LowestY) {
            Found.LowestY = Y(i);
            Found.Lowest = i;
        }
        if (Y(i) > Found.HighestY) Found.HighestY = Y(i);
        if (i + 2 >= Room) continue;
        if (Found.Catch == 0) {
            if (IsCatch(i)) Found.Catch = i;
        } else if (Found.Finish == 0 && IsFinish(i)) {
            Found.Finish = i;
        }
    }
    return Found;
}

// Where, in samples, Y crosses a level between the sample before i and i.
std::optional<double> cStrokeModel::CrossingBefore(int i, double Level) const
{
    const double Step = Y(i) - Y(i - 1);
    if (Step == 0) return {};
    return i - 1 + (Level - Y(i - 1)) / Step;
}

std::optional<StrokeMeasures> cStrokeModel::MeasureForce() const
{
    const auto Found = FindTurns();
    if (!Found || Found->Finish <= Found->Catch) return {};
    const int Length = Found->Finish - Found->Catch;
    const double Level = ForceIsUp * Found->HighestY;
    int Up = Found->Catch;
    while (Up <= Found->Finish && Y(Up) < Level)
        ++Up;
    if (Up > Found->Finish) return {};
    int Down = Up;
    while (Down <= Found->Finish && Y(Down) >= Level)
        ++Down;
    if (Down > Found->Finish) Down = 1; // a force that stays up falls at the stroke's beginning
    const auto UpAt = CrossingBefore(Up, Level);
    const auto DownAt = CrossingBefore(Down, Level);
    if (!UpAt || !DownAt) return {};
    StrokeMeasures Stroke;
    Stroke.Angle = A(Found->Finish) - A(Found->Catch);
    Stroke.U1 = (*UpAt - Found->Catch) / Length;
    Stroke.D3 = (Found->Finish - *DownAt) / Length;
    Stroke.U2 = 1 - Stroke.U1 - Stroke.D3;
    return Stroke;
}

std::optional<StrokeMeasures> cStrokeModel::MeasureAcceleration(double Rate, double TimeStep) const
{
    const auto Found = FindTurns();
    if (!Found || TimeStep == 0) return {};
    StrokeMeasures Stroke;
    Stroke.LowestY = Stroke.Peak = Found->LowestY;
    const double StrokeTime = SafeDiv(60, Rate);
    const double First = Found->Lowest + RoundHalfEven(PeakFrom * StrokeTime / TimeStep);
    const double Last = Found->Lowest + RoundHalfEven(PeakTo * StrokeTime / TimeStep);
    for (double i = First; i <= Last; ++i) {
        if (!(i >= 0 && i < Room)) return {};
        const double Value = Y(static_cast<int>(i));
        if (Value <= Stroke.Peak) break;
        Stroke.Peak = Value;
    }
    Stroke.Rise = Stroke.Peak - Stroke.LowestY;
    return Stroke;
}

std::optional<double> ModelScore(const std::string& Key, const StrokeMeasures& Stroke, const ModelTarget& Target,
                                 double Rate)
{
    if (Key == "St") return 0;
    if (Key == "As") return Stroke.Rise * 8.0 - Rate * 3.25 + 76.0;
    if (Key != "U1" && Key != "U2" && Key != "D3" && Key != "At") return NoScore;
    if (!Target.Value || Target.Deviation.value_or(0) == 0) return {};
    const double Aim = *Target.Value;
    if (Key == "U1") return Score(Aim - Stroke.U1, *Target.Deviation);
    if (Key == "U2") return Score(Stroke.U2 - Aim, *Target.Deviation);
    if (Key == "D3") return Score(Aim - Stroke.D3, *Target.Deviation);
    return Score(Stroke.Angle - Aim, *Target.Deviation);
}
