// Stroke detection on the key channel, the statistics of stroke cycles, and the run that makes a typical pattern.
#pragma once

#include <array>
#include <cstdint>

/// The last five samples of the key channel, the newest last, and the progress that was shown.
struct KeyWindow
{
    std::array<double, 5> K{}; // units of the key channel
    std::array<double, 5> T{}; // s
    int16_t Percent = 0;
    int16_t LastPercent = 0;
};

/// The detector's window. It starts as zeros and lives as long as the program: a scan begins with the last samples of
/// whatever was scanned before, so a pattern can complete across the join.
extern KeyWindow gKeyWin;

extern double gMeanCycleT;  // s, mean cycle; a sum during a run, the current cycle in the stroke log
extern double gCycleSD;     // s, its standard deviation
extern double gRateSD;      // strokes per minute, deviation of the rate; a sum of squares during a run
extern double gTestTime;    // s from the first to the last boundary of the run
extern int32_t gBadStrokes; // cycles rejected by all runs since the program began; never cleared

/// Moves Cur behind the sample that completes the next cycle boundary up to Stop and gives the boundary's time in
/// seconds. False, with CycleTime as it was, when there is none. A boundary in the threshold modes lies between the
/// samples 4 and 3 before the new Cur, in the peak modes on sample Cur - 3. Throws RunError without a key channel.
bool DetectCycle(int32_t& Cur, int32_t Stop, double& CycleTime);

/// Leaves the detector's window as a scan of the samples ahead of Start does: the next scan from Start then finds the
/// boundaries of the recording alone, and none across the join with whatever was scanned before.
void ScanUpTo(int32_t Start);

/// Counts the cycles of a stretch into gStrokeCnt, gMeanCycleT, gCycleSD and gRate. False without a whole cycle. A
/// boundary that sample Stop itself completes does not count here, though ProcessCycles uses it. Throws RunError when
/// rounding makes the variance negative.
bool CycleStats(int32_t Start, int32_t Stop);

/// Count, mean and deviation in seconds of the cycles of a stretch that lie inside the band of the last CycleStats.
/// False, with the results as they were, when there is none.
bool CycleStatsInRange(int32_t Start, int32_t Stop, int32_t& Cnt, double& Mean, double& SD);

/// One whole run: finds the cycles of a stretch, adds those inside the band of mean +- StdFilter x deviation to the
/// pattern of Run 1 or 2, and finishes it. Stop 0 becomes the last sample. Run 2 uses the pattern of run 1. False,
/// told, without a key channel or a whole cycle. Throws RunError, with the patterns as they were, when no cycle is
/// accepted or a point of the pattern has no value.
bool ProcessCycles(int32_t Start, int32_t& Stop, int Run);

/// Moves the progress bar to Cur's share of the recording when its whole percentage has changed.
void ShowProgress(int32_t Cur);

/// Whether the session's key channel is a channel of the sample store; tells when it is not.
bool HasKeyChannel();
