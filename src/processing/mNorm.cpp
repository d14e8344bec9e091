// The time grid of a cycle, the running sums over cycles, and the means made of them.
#include "processing/mNorm.h"

#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "processing/mProcess.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

NormTable gNormAver1;
NormTable gNormCnt1;
NormTable gNormStd1;
NormTable gNormAver2;
NormTable gNormCnt2;
NormTable gNormStd2;

namespace {
// Walks along the time column to the pair of samples around a time.
class BracketWalk
{
public:
    BracketWalk() : Time(gRaw.Channel(0)) {}

    // Goes to time T, starting from sample Guess. False at the end of the data.
    bool GoTo(double T, int32_t Guess);

    int32_t Lo = 0;
    int32_t Hi = 0;

    double Fraction(double T) const { return SafeDiv(T - Low(), High() - Low()); }

private:
    void Begin(double T, int32_t Guess);
    void Step(int32_t By)
    {
        Lo += By;
        Hi = Lo + 1;
    }
    int32_t Last() const { return static_cast<int32_t>(Time.size()) - 1; }
    double Low() const { return Time[static_cast<std::size_t>(Lo)]; }
    double High() const
    {
        return Hi < 0 ? -std::numeric_limits<double>::infinity() : Time[static_cast<std::size_t>(Hi)];
    }
    bool IsEmpty() const { return Low() == 0 && High() == 0; }

    std::span<const double> Time;
    double LastT = 0;
    bool HasRisen = false; // the last point was found by rising only
};

// Times rise from point to point: where the last walk rose over the new guess, every sample below its end would be
// passed again, so the walk goes on from there and a long cycle costs one pass.
void BracketWalk::Begin(double T, int32_t Guess)
{
    if (!HasRisen || Lo < Guess || T < LastT) {
        // The upper sample is that of the guess also where the lower one is moved to row 1.
        Lo = std::max(Guess, 1);
        Hi = Guess + 1;
        HasRisen = Guess >= 1;
    }
    LastT = T;
}

bool BracketWalk::GoTo(double T, int32_t Guess)
{
    if (Last() < 1 || Guess + 1 > Last()) return false;
    Begin(T, Guess);
    while (!IsEmpty() && Low() <= T && High() < T) {
        Step(1);
        if (Hi > Last()) return false;
    }
    while (!IsEmpty() && !(Low() <= T)) {
        HasRisen = false;
        if (Lo == 1) {
            Hi = 1; // before the first row: its values
            return true;
        }
        Step(-1);
    }
    return !IsEmpty();
}

// Where the points of a cycle lie between the samples.
struct CycleGrid
{
    std::size_t Points = 0;
    std::array<int32_t, NormSteps + 1> Lo;
    std::array<int32_t, NormSteps + 1> Hi;
    NormCurve F;
};

CycleGrid FindGrid(int32_t CycleStart, double T0, double T1)
{
    CycleGrid Grid;
    BracketWalk Walk;
    const double Dt = (T1 - T0) / NormSteps;
    for (int j = 0; j <= NormSteps; ++j) {
        const double T = j * Dt + T0;
        if (!Walk.GoTo(T, CycleStart + j - 2)) break;
        Grid.Lo[Grid.Points] = Walk.Lo;
        Grid.Hi[Grid.Points] = Walk.Hi;
        Grid.F[Grid.Points] = Walk.Fraction(T);
        ++Grid.Points;
    }
    return Grid;
}

// Adds the values of one channel at the points of a cycle, those of which IsFar is true as zeros: the processor could
// not predict a branch on it.
template <class Test>
void AddChannel(const CycleGrid& Grid, int Chan, NormRun& To, const Test& IsFar)
{
    const auto X = gRaw.Channel(Chan);
    NormCurve& Sum = To.Aver.Channel(Chan);
    NormCurve& Cnt = To.Cnt.Channel(Chan);
    NormCurve& SumSq = To.Std.Channel(Chan);
    for (std::size_t j = 0; j < Grid.Points; ++j) {
        const double A = X[static_cast<std::size_t>(Grid.Lo[j])];
        const double B = X[static_cast<std::size_t>(Grid.Hi[j])];
        const double V = (B - A) * Grid.F[j] + A;
        const bool Drop = IsFar(j, V);
        Sum[j] += Drop ? 0.0 : V;
        Cnt[j] += Drop ? 0.0 : 1.0;
        SumSq[j] += Drop ? 0.0 : V * V;
    }
}

bool IsRun(int Run)
{
    return Run == 1 || Run == 2;
}

void StoreMean(NormRun& Sums, int Point, int Chan)
{
    const double Count = Sums.Cnt(Point, Chan);
    const double Mean = Div(Sums.Aver(Point, Chan), Count);
    const double Var = SafeDiv(Sums.Std(Point, Chan), Count) - Mean * Mean;
    Sums.Aver(Point, Chan) = Mean;
    Sums.Std(Point, Chan) = Var > 0 ? std::sqrt(Var) : 0;
}

// The nearest point with values of the channel, going by By with wrapping; after 50 steps the point reached.
int FindFilled(NormRun& Sums, int Point, int Chan, int By)
{
    for (int Step = 0; Step < NormSteps; ++Step) {
        Point = (Point + By + NormSteps + 1) % (NormSteps + 1);
        if (Sums.Cnt(Point, Chan) > 0) break;
    }
    return Point;
}

// The gap takes its value from the channel before, at the points that have values of this one. Points are finished in
// rising order: a lower neighbour is a mean already and is divided by the count again, a higher one is still a sum.
void FillGap(NormRun& Sums, int Point, int Chan)
{
    const int P = FindFilled(Sums, Point, Chan, -1);
    const int Q = FindFilled(Sums, Point, Chan, 1);
    const double Value =
        (SafeDiv(Sums.Aver(P, Chan - 1), Sums.Cnt(P, Chan)) + SafeDiv(Sums.Aver(Q, Chan - 1), Sums.Cnt(Q, Chan))) / 2;
    Sums.Aver(Point, Chan) = Value;
    Sums.Std(Point, Chan) = Value;
}
} // namespace

NormArrays ArraysOf(int Run)
{
    if (!IsRun(Run)) throw RunError("There is no processing run of that number");
    if (Run == 1) return {gNormAver1, gNormCnt1, gNormStd1};
    return {gNormAver2, gNormCnt2, gNormStd2};
}

double NormRun::RateSD() const
{
    return std::sqrt(std::max(Rates.Variance(), 0.0));
}

NormRun ResetNorm(int Run)
{
    NormRun Begun;
    Begun.Run = Run;
    if (!IsRun(Run)) return Begun;
    for (NormTable* Each : {&Begun.Aver, &Begun.Cnt, &Begun.Std})
        Each->Create(gFile.ChanCnt);
    return Begun;
}

void AddCycle(NormRun& Sums, int32_t CycleStart, double T0, double T1)
{
    if (!IsRun(Sums.Run)) return;
    const CycleGrid Grid = FindGrid(CycleStart, T0, T1);
    for (int Chan = 1; Chan <= gFile.ChanCnt; ++Chan) {
        if (Sums.Run == 1) {
            AddChannel(Grid, Chan, Sums, [](std::size_t, double) { return false; });
            continue;
        }
        const NormCurve& Mean = gNormAver1.Channel(Chan);
        const NormCurve& Std = gNormStd1.Channel(Chan);
        AddChannel(Grid, Chan, Sums, [&, Width = StdFilter](std::size_t j, double V) {
            const double Lim = Width * Std[j];
            return (Lim != 0) & (std::fabs(V - Mean[j]) > Lim);
        });
    }
}

void AddStroke(NormRun& Sums, int32_t CycleStart, double T0, double T1)
{
    AddCycle(Sums, CycleStart, T0, T1);
    Sums.Periods.Add(T1 - T0);
    Sums.Rates.Add(SafeDiv(60, T1 - T0));
    ToInt16(Sums.Rates.Count());
}

void FinishNorm(NormRun& Sums)
{
    if (Sums.Rates.Count() == 0) throw RunError("Division by zero");
    if (!IsRun(Sums.Run)) return;
    for (int Point = 0; Point <= NormSteps; ++Point)
        for (int Chan = 1; Chan <= gFile.ChanCnt; ++Chan)
            if (Sums.Run == 2 && Sums.Cnt(Point, Chan) == 0)
                FillGap(Sums, Point, Chan);
            else
                StoreMean(Sums, Point, Chan);
}

void PublishNorm(NormRun&& Done)
{
    gStrokeCnt = ToInt16(Done.Rates.Count());
    gMeanCycleT = Done.Periods.Mean();
    gRate = Done.Rates.Mean();
    gRateSD = Done.RateSD();
    gTestTime = Done.TestTime;
    if (!IsRun(Done.Run)) return;
    const NormArrays Arrays = ArraysOf(Done.Run);
    Arrays.Aver = std::move(Done.Aver);
    Arrays.Cnt = std::move(Done.Cnt);
    Arrays.Std = std::move(Done.Std);
}

void CopyRun1()
{
    gNormAver2 = gNormAver1;
    gNormCnt2 = gNormCnt1;
    gNormStd2 = gNormStd1;
}
