// The detector's patterns and the scans that are built on it.
#include "processing/mProcess.h"

#include "base/mError.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "processing/mNorm.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

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

// A cycle over which the clock runs back or stands still is never taken, however wide the band is.
Band AcceptanceBand()
{
    constexpr double Shortest = std::numeric_limits<double>::denorm_min();
    return {std::max(gMeanCycleT - gCycleSD * StdFilter, Shortest), gMeanCycleT + gCycleSD * StdFilter};
}

struct PeriodSums
{
    int32_t Cnt = 0;
    double Sum = 0;
    double SumSq = 0;

    double Mean() const { return SafeDiv(Sum, Cnt); }
    double SD() const { return Root(SafeDiv(SumSq, Cnt) - Mean() * Mean()); }
};

// Sums of the periods of a stretch that Wanted holds; nothing when the stretch has no boundary.
std::optional<PeriodSums> SumPeriods(int32_t Start, int32_t Stop, const Band& Wanted)
{
    double Prev = 0;
    if (!DetectCycle(Start, Stop, Prev)) return {};
    PeriodSums Sums;
    double CycleTime = 0;
    while (DetectCycle(Start, Stop, CycleTime) && Start <= Stop) {
        const double Period = CycleTime - Prev;
        Prev = CycleTime;
        if (!Wanted.Holds(Period)) continue;
        ++Sums.Cnt;
        Sums.Sum += Period;
        Sums.SumSq += Period * Period;
    }
    return Sums;
}
} // namespace

bool DetectCycle(int32_t& Cur, int32_t Stop, double& CycleTime)
{
    const auto Key = gRaw.Channel(gKeyChan);
    const auto Time = gRaw.Channel(0);
    const auto Thr = static_cast<double>(gFile.KeyThres);
    const int32_t Last = std::min(gRaw.UBound() - 2, Stop);
    KeyWindow Win = gKeyWin;
    bool Found = false;
    for (Cur = std::max(Cur, FirstKey); Cur <= Last && !Found; ++Cur) {
        Win.K[4] = Key[static_cast<std::size_t>(Cur)];
        Win.T[4] = Time[static_cast<std::size_t>(Cur)];
        Found = IsBoundary(Win.K, Thr);
        if (Found) CycleTime = BoundaryTime(Win, Thr);
        Shift(Win.K);
        Shift(Win.T);
    }
    gKeyWin = Win;
    return Found;
}

void ScanUpTo(int32_t Start)
{
    if (gKeyChan < 1 || gKeyChan > gRaw.ChannelUBound()) return;
    const int32_t Stop = std::clamp(Start, FirstKey, std::max(gRaw.UBound(), FirstKey));
    for (std::size_t k = 0; k < 4; ++k) {
        const int32_t i = Stop - 4 + static_cast<int32_t>(k);
        // Nothing compares with samples that are not there.
        gKeyWin.K[k] = i < FirstKey ? std::nan("") : gRaw(gKeyChan, i);
        gKeyWin.T[k] = i < FirstKey ? 0 : gRaw(0, i);
    }
}

bool CycleStats(int32_t Start, int32_t Stop)
{
    const auto Sums = SumPeriods(Start, Stop, Band{});
    if (!Sums) return false;
    if (Sums->Cnt == 0) {
        gMeanCycleT = 0;
        gCycleSD = 0;
        return false;
    }
    const int16_t Cnt = ToInt16(Sums->Cnt);
    const double SD = Sums->SD();
    gStrokeCnt = Cnt;
    gMeanCycleT = Sums->Mean();
    gRate = SafeDiv(60, gMeanCycleT);
    gCycleSD = SD;
    return true;
}

bool CycleStatsInRange(int32_t Start, int32_t Stop, int32_t& Cnt, double& Mean, double& SD)
{
    const auto Sums = SumPeriods(Start, Stop, AcceptanceBand());
    if (!Sums || Sums->Cnt == 0) return false;
    SD = Sums->SD();
    Cnt = Sums->Cnt;
    Mean = Sums->Mean();
    return true;
}

bool ProcessCycles(int32_t Start, int32_t& Stop, int Run)
{
    if (!HasKeyChannel()) return false;
    if (Stop == 0) Stop = gRaw.UBound();
    if (!CycleStats(Start, Stop)) {
        MsgBox("Could not find any cycle!", TitleWarning);
        return false;
    }
    const Band Good = AcceptanceBand();
    RunBackup Before;
    int32_t Cur = Start;
    double CycleTime = 0;
    if (DetectCycle(Cur, Stop, CycleTime)) ResetNorm(Run);
    double FirstT = CycleTime;
    double PrevT = CycleTime;
    int32_t PrevSample = Cur;
    while (DetectCycle(Cur, Stop, CycleTime)) {
        if (Good.Holds(CycleTime - PrevT))
            AddStroke(PrevSample, PrevT, CycleTime, Run);
        else
            ++gBadStrokes;
        if (CycleTime < PrevT) FirstT += CycleTime - PrevT; // the clock was set back: the time of the run goes on
        PrevSample = Cur;
        PrevT = CycleTime;
        ShowProgress(Cur);
    }
    gTestTime = CycleTime - FirstT;
    FinishNorm(Run);
    Before.Finish();
    return true;
}

void ShowProgress(int32_t Cur)
{
    gKeyWin.Percent = ToInt16(static_cast<int64_t>(Div(Cur, gRaw.UBound()) * 100));
    if (gKeyWin.Percent == gKeyWin.LastPercent) return;
    UpdateProgress(gKeyWin.Percent);
    gKeyWin.LastPercent = gKeyWin.Percent;
}

bool HasKeyChannel()
{
    if (gKeyChan >= 1 && gKeyChan <= gRaw.ChannelUBound()) return true;
    MsgBox("There is no channel \"" + gFile.KeyChanID +
               "\" to find strokes by. Set the session's key channel to one that was recorded.",
           TitleWarning);
    return false;
}
