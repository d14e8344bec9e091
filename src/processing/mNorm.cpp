// The time grid of a cycle, the running sums over cycles, and the means made of them.
#include "processing/mNorm.h"

#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "processing/mProcess.h"

#include <algorithm>
#include <cmath>
#include <limits>

NormTable gNormAver1;
NormTable gNormCnt1;
NormTable gNormStd1;
NormTable gNormAver2;
NormTable gNormCnt2;
NormTable gNormStd2;

namespace {
const std::array<double*, 5> AllFigures = {&gMeanCycleT, &gCycleSD, &gRate, &gRateSD, &gTestTime};
const std::array<NormTable*, 6> AllPatterns = {&gNormAver1, &gNormCnt1, &gNormStd1,
                                               &gNormAver2, &gNormCnt2, &gNormStd2};

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

// Adds the values of one channel at the points of a cycle, those of which IsFar is true as zeros: whether a value is
// far follows no pattern that a branch could be foreseen by.
template <class Test>
void AddChannel(const CycleGrid& Grid, int Chan, const NormArrays& To, const Test& IsFar)
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

void StoreMean(const NormArrays& Run, int Point, int Chan)
{
    const double Count = Run.Cnt(Point, Chan);
    const double Mean = Div(Run.Aver(Point, Chan), Count);
    const double Var = SafeDiv(Run.Std(Point, Chan), Count) - Mean * Mean;
    Run.Aver(Point, Chan) = Mean;
    Run.Std(Point, Chan) = Var > 0 ? std::sqrt(Var) : 0;
}

// The nearest point with values of the channel, going by By with wrapping; after 50 steps the point reached.
int FindFilled(const NormArrays& Run, int Point, int Chan, int By)
{
    for (int Step = 0; Step < NormSteps; ++Step) {
        Point = (Point + By + NormSteps + 1) % (NormSteps + 1);
        if (Run.Cnt(Point, Chan) > 0) break;
    }
    return Point;
}

// The gap takes its value from the channel before, at the points that have values of this one. Points are finished in
// rising order: a lower neighbour is a mean already and is divided by the count again, a higher one is still a sum.
void FillGap(const NormArrays& Run, int Point, int Chan)
{
    const int P = FindFilled(Run, Point, Chan, -1);
    const int Q = FindFilled(Run, Point, Chan, 1);
    const double Value =
        (SafeDiv(Run.Aver(P, Chan - 1), Run.Cnt(P, Chan)) + SafeDiv(Run.Aver(Q, Chan - 1), Run.Cnt(Q, Chan))) / 2;
    Run.Aver(Point, Chan) = Value;
    Run.Std(Point, Chan) = Value;
}
} // namespace

NormArrays ArraysOf(int Run)
{
    if (!IsRun(Run)) throw RunError("There is no processing run of that number");
    if (Run == 1) return {gNormAver1, gNormCnt1, gNormStd1};
    return {gNormAver2, gNormCnt2, gNormStd2};
}

void ResetNorm(int Run)
{
    gStrokeCnt = 0;
    gMeanCycleT = 0;
    gRate = 0;
    gRateSD = 0;
    if (!IsRun(Run)) return;
    const NormArrays Arrays = ArraysOf(Run);
    for (NormTable* Each : {&Arrays.Aver, &Arrays.Cnt, &Arrays.Std})
        Each->Create(gFile.ChanCnt);
}

void AddCycle(int32_t CycleStart, double T0, double T1, int Run)
{
    if (!IsRun(Run)) return;
    const CycleGrid Grid = FindGrid(CycleStart, T0, T1);
    const NormArrays Arrays = ArraysOf(Run);
    for (int Chan = 1; Chan <= gFile.ChanCnt; ++Chan) {
        if (Run == 1) {
            AddChannel(Grid, Chan, Arrays, [](std::size_t, double) { return false; });
            continue;
        }
        const NormCurve& Mean = gNormAver1.Channel(Chan);
        const NormCurve& Std = gNormStd1.Channel(Chan);
        AddChannel(Grid, Chan, Arrays, [&, Width = StdFilter](std::size_t j, double V) {
            const double Lim = Width * Std[j];
            return (Lim != 0) & (std::fabs(V - Mean[j]) > Lim);
        });
    }
}

void AddStroke(int32_t CycleStart, double T0, double T1, int Run)
{
    const double Period = T1 - T0;
    const double CycleRate = SafeDiv(60, Period);
    AddCycle(CycleStart, T0, T1, Run);
    gMeanCycleT += Period;
    gStrokeCnt = ToInt16(gStrokeCnt + 1);
    gRate += CycleRate;
    gRateSD += CycleRate * CycleRate;
}

void FinishNorm(int Run)
{
    gMeanCycleT = SafeDiv(gMeanCycleT, gStrokeCnt);
    gRate = SafeDiv(gRate, gStrokeCnt);
    gRateSD = Root(Div(gRateSD, gStrokeCnt) - gRate * gRate);
    if (!IsRun(Run)) return;
    const NormArrays Arrays = ArraysOf(Run);
    for (int Point = 0; Point <= NormSteps; ++Point)
        for (int Chan = 1; Chan <= gFile.ChanCnt; ++Chan)
            if (Run == 2 && Arrays.Cnt(Point, Chan) == 0)
                FillGap(Arrays, Point, Chan);
            else
                StoreMean(Arrays, Point, Chan);
}

void CopyRun1()
{
    gNormAver2 = gNormAver1;
    gNormCnt2 = gNormCnt1;
    gNormStd2 = gNormStd1;
}

RunBackup::RunBackup()
    : StrokeCnt(gStrokeCnt), DescRows(gFile.Desc.UBound()), DataRows(gFile.Data.UBound()), STDRows(gFile.STD.UBound())
{
    for (std::size_t i = 0; i < Figures.size(); ++i)
        Figures[i] = *AllFigures[i];
    for (std::size_t i = 0; i < Patterns.size(); ++i)
        Patterns[i] = *AllPatterns[i];
}

RunBackup::~RunBackup()
{
    if (IsFinished) return;
    gStrokeCnt = StrokeCnt;
    for (std::size_t i = 0; i < Figures.size(); ++i)
        *AllFigures[i] = Figures[i];
    for (std::size_t i = 0; i < Patterns.size(); ++i)
        *AllPatterns[i] = std::move(Patterns[i]);
    gFile.Desc.Resize(DescRows);
    gFile.Data.Resize(DataRows);
    gFile.STD.Resize(STDRows);
}
