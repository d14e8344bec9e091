// The detector's patterns and the scans that are built on it.
#include "processing/mProcess.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "processing/mNorm.h"
#include "processing/mSpread.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

KeyWindow gKeyWin;
double gMeanCycleT = 0;
double gCycleSD = 0;
double gRateSD = 0;
double gTestTime = 0;
int32_t gBadStrokes = 0;

namespace {
constexpr int32_t FirstKey = 2; // rows 0 and 1 of the store are never read

// The crossing lies between K[1] and K[2] and must be backed by one more sample on each side: that is all the
// debouncing there is. The newest sample counts in the peak modes only.
bool IsBoundary(const std::array<double, 5>& K, double Thr)
{
    switch (gKeyMode) {
    case KeyDecreasing:
        return K[0] > Thr && K[1] >= Thr && K[2] <= Thr && K[3] < Thr;
    case KeyIncreasing:
        return K[0] < Thr && K[1] <= Thr && K[2] >= Thr && K[3] > Thr;
    case KeyMinimum:
        return K[0] >= K[1] && K[1] >= K[2] && K[2] < K[3] && K[3] < K[4];
    case KeyMaximum:
        return K[0] <= K[1] && K[1] <= K[2] && K[2] > K[3] && K[3] > K[4];
    default:
        return false;
    }
}

double BoundaryTime(const KeyWindow& Win, double Thr)
{
    if (gKeyMode == KeyMinimum || gKeyMode == KeyMaximum) return Win.T[2];
    return Win.T[1] + (Win.T[2] - Win.T[1]) * SafeDiv(Win.K[1] - Thr, Win.K[1] - Win.K[2]);
}

// Element by element, which keeps a local window in registers.
void Shift(std::array<double, 5>& Values)
{
    for (std::size_t i = 0; i < 4; ++i)
        Values[i] = Values[i + 1];
}

// Durations of a cycle, in seconds, that are taken.
struct Band
{
    double Low = -std::numeric_limits<double>::infinity();
    double High = std::numeric_limits<double>::infinity();

    bool Holds(double Period) const { return Low <= Period && Period <= High; }
};

// The rounding of times decides nothing: a period that lies on an edge but for it is inside, and so are equal periods,
// whose band has no width. A cycle over which the clock runs back or stands still is never taken, however wide the band
// is.
Band AcceptanceBand(const CycleFigures& All)
{
    constexpr double Shortest = std::numeric_limits<double>::denorm_min();
    constexpr double Rounding = 1e-8; // s, that of a clock which has run for months
    const double Width = All.SD * StdFilter + Rounding;
    return {std::max(All.Mean - Width, Shortest), All.Mean + Width};
}

// The periods of a stretch that Wanted holds; nothing when the stretch has no boundary.
std::optional<CycleFigures> SumPeriods(KeyWindow& Win, int32_t Start, int32_t Stop, const Band& Wanted)
{
    double Prev = 0;
    if (!DetectCycle(Win, Start, Stop, Prev)) return {};
    Spread Periods;
    double CycleTime = 0;
    while (DetectCycle(Win, Start, Stop, CycleTime) && Start <= Stop) {
        const double Period = CycleTime - std::exchange(Prev, CycleTime);
        if (Wanted.Holds(Period)) Periods.Add(Period);
    }
    return CycleFigures{Periods.Count(), Periods.Mean(), Root(Periods.Variance())};
}

// The cycles of a run, of which Good holds those that are added to its pattern; gBadStrokes counts the others.
NormRun SumRun(KeyWindow& Win, int32_t Start, int32_t Stop, int Run, const Band& Good)
{
    NormRun Sums = ResetNorm(Run);
    int32_t Cur = Start;
    double CycleTime = 0;
    DetectCycle(Win, Cur, Stop, CycleTime);
    const double FirstT = CycleTime;
    double PrevT = CycleTime;
    double SetBack = 0; // s that the clock was set back, all in all
    int32_t PrevSample = Cur;
    while (DetectCycle(Win, Cur, Stop, CycleTime)) {
        if (Good.Holds(CycleTime - PrevT))
            AddStroke(Sums, PrevSample, PrevT, CycleTime);
        else
            ++gBadStrokes;
        if (CycleTime < PrevT) SetBack += PrevT - CycleTime;
        PrevSample = Cur;
        PrevT = CycleTime;
        ShowProgress(Win, Cur);
    }
    const double Span = CycleTime - FirstT;
    Sums.TestTime = Span > 0 ? Span : Span + SetBack;
    return Sums;
}
} // namespace

bool DetectCycle(KeyWindow& Win, int32_t& Cur, int32_t Stop, double& CycleTime)
{
    const auto Key = gRaw.Channel(gKeyChan);
    const auto Time = gRaw.Channel(0);
    const auto Thr = static_cast<double>(gFile.KeyThres);
    const int32_t Last = std::min(gRaw.UBound() - 2, Stop);
    KeyWindow Now = Win; // a local one stays in registers
    bool Found = false;
    for (Cur = std::max(Cur, FirstKey); Cur <= Last && !Found; ++Cur) {
        Now.K[4] = Key[static_cast<std::size_t>(Cur)];
        Now.T[4] = Time[static_cast<std::size_t>(Cur)];
        Found = IsBoundary(Now.K, Thr);
        if (Found) CycleTime = BoundaryTime(Now, Thr);
        Shift(Now.K);
        Shift(Now.T);
    }
    Win = Now;
    return Found;
}

KeyWindow WindowAt(int32_t Start)
{
    KeyWindow Win;
    if (gKeyChan < 1 || gKeyChan > gRaw.ChannelUBound()) return Win;
    const int32_t Stop = std::clamp(Start, FirstKey, std::max(gRaw.UBound(), FirstKey));
    for (std::size_t k = 0; k < 4; ++k) {
        const int32_t i = Stop - 4 + static_cast<int32_t>(k);
        // No comparison holds with samples that are not there.
        Win.K[k] = i < FirstKey ? std::nan("") : gRaw(gKeyChan, i);
        Win.T[k] = i < FirstKey ? 0 : gRaw(0, i);
    }
    return Win;
}

std::optional<CycleFigures> CycleStats(KeyWindow& Win, int32_t Start, int32_t Stop)
{
    return SumPeriods(Win, Start, Stop, Band{});
}

bool PublishStats(const std::optional<CycleFigures>& Found)
{
    if (!Found) return false;
    const int16_t Cnt = ToInt16(Found->Cnt);
    gMeanCycleT = Found->Mean;
    gCycleSD = Found->SD;
    if (Cnt == 0) return false;
    gStrokeCnt = Cnt;
    gRate = SafeDiv(60, gMeanCycleT);
    return true;
}

std::optional<CycleFigures> CycleStatsInRange(KeyWindow& Win, const CycleFigures& All, int32_t Start, int32_t Stop)
{
    const auto Found = SumPeriods(Win, Start, Stop, AcceptanceBand(All));
    if (!Found || Found->Cnt == 0) return {};
    return Found;
}

bool ProcessCycles(KeyWindow& Win, int32_t Start, int32_t& Stop, int Run)
{
    if (!HasKeyChannel()) return false;
    if (Stop == 0) Stop = gRaw.UBound();
    const auto All = CycleStats(Win, Start, Stop);
    if (!PublishStats(All)) {
        MsgBox("Could not find any cycle!", TitleWarning);
        return false;
    }
    NormRun Sums = SumRun(Win, Start, Stop, Run, AcceptanceBand(*All));
    if (Sums.Rates.Count() == 0) {
        ReportEmptyBand();
        return false;
    }
    FinishNorm(Sums);
    PublishNorm(std::move(Sums));
    return true;
}

void ReportEmptyBand()
{
    MsgBox("No stroke lies within the filter of " + FormatShortest(StdFilter) +
               " SD around the mean: widen it. Nothing that was stored has been changed.",
           TitleWarning);
}

void ShowProgress(KeyWindow& Win, int32_t Cur)
{
    Win.Percent = ToInt16(static_cast<int64_t>(Div(Cur, gRaw.UBound()) * 100));
    if (Win.Percent == Win.LastPercent) return;
    UpdateProgress(Win.Percent);
    Win.LastPercent = Win.Percent;
}

bool HasKeyChannel()
{
    if (gKeyChan >= 1 && gKeyChan <= gRaw.ChannelUBound()) return true;
    MsgBox("There is no channel \"" + gFile.KeyChanID +
               "\" to find strokes by. Set the session's key channel to one that was recorded.",
           TitleWarning);
    return false;
}
