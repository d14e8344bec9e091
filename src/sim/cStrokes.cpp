// Strokes drawn one behind the other from the seed.
#include "sim/cStrokes.h"

#include "core/mModes.h"

#include <algorithm>
#include <array>

namespace {
// Where a recording of no whole stroke begins and ends. The beginning of each key mode is a place from which a detector
// that starts with zeros in its memory sees no boundary that is none; the end leaves it the samples that it wants
// behind the last boundary.
struct Stretch
{
    StrokeMark First;
    StrokeMark Last;
};
constexpr std::array<Stretch, 4> Stretches = {{
    {{1, true, 0.8}, {2, true, 0.15}},   // angle falling through a threshold
    {{0, false, 0.85}, {1, false, 0.2}}, // angle rising through a threshold
    {{0, false, 0.4}, {1, true, 0.6}},   // catch
    {{1, true, 0.1}, {1, false, 0.5}},   // finish
}};

const Stretch& StretchOf(int KeyMode)
{
    return Stretches[IsKeyMode(KeyMode) ? static_cast<std::size_t>(KeyMode) : 0];
}

constexpr double CatchDeviation = 0.7; // degrees
constexpr double FinishDeviation = 0.5;
constexpr double EffortDeviation = 0.025;
} // namespace

double DriveShare(double Period)
{
    const double Rate = 60 / Period;
    return std::clamp(0.35 + (Rate - 18) * 0.0085, 0.3, 0.55);
}

cStrokes::cStrokes(double Rate, double Spread, int Mode, uint64_t Seed)
    : MeanPeriod(60 / Rate), Deviation(Spread / 100), KeyMode(Mode), Random(Seed), NextCatch(MeanCatch)
{
    const double Zero = TimeOf(StretchOf(KeyMode).First);
    for (Stroke& Each : Strokes)
        Each.Start -= Zero;
}

void cStrokes::Add()
{
    Stroke New;
    New.Start = Strokes.empty() ? 0 : Strokes.back().End();
    New.Period = MeanPeriod * std::max(1 + Deviation * Random.Bell(), 0.2);
    New.DriveT = New.Period * DriveShare(New.Period);
    New.Catch = NextCatch;
    New.Finish = MeanFinish + FinishDeviation * Random.Bell();
    New.NextCatch = MeanCatch + CatchDeviation * Random.Bell();
    New.Effort = 1 + EffortDeviation * Random.Bell();
    NextCatch = New.NextCatch;
    Strokes.push_back(New);
}

const Stroke& cStrokes::At(int Number)
{
    const auto i = static_cast<std::size_t>(Number);
    while (Strokes.size() <= i)
        Add();
    return Strokes[i];
}

int cStrokes::NumberAt(double T)
{
    while (Last > 0 && T < At(Last).Start)
        --Last;
    while (T >= At(Last).End())
        ++Last;
    return Last;
}

StrokePhase cStrokes::PhaseAt(double T)
{
    const Stroke& In = At(NumberAt(T));
    const double Since = T - In.Start;
    if (Since < In.DriveT) return {&In, true, Since / In.DriveT};
    return {&In, false, (Since - In.DriveT) / (In.Period - In.DriveT)};
}

double cStrokes::TimeOf(const StrokeMark& Mark)
{
    const Stroke& In = At(Mark.Number);
    return Mark.IsDrive ? In.Start + Mark.Part * In.DriveT : In.FinishTime() + Mark.Part * (In.Period - In.DriveT);
}

double cStrokes::EndOf(int Count)
{
    StrokeMark Mark = StretchOf(KeyMode).Last;
    Mark.Number += Count;
    return TimeOf(Mark);
}
