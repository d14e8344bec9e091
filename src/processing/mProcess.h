// Stroke detection on the key channel, the statistics of stroke cycles, and the run that makes a typical pattern.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

/// What the detector carries from sample to sample: the last five samples of the key channel, the newest last, and the
/// progress that was shown.
struct KeyWindow
{
    std::array<double, 5> K{}; // units of the key channel
    std::array<double, 5> T{}; // s
    int16_t Percent = 0;
    int16_t LastPercent = 0;
};

/// The program's own window. It starts as zeros and lives as long as the program: a scan begins with the last samples
/// of whatever was scanned with it before, so a pattern can complete across the join.
extern KeyWindow gKeyWin;

extern double gMeanCycleT;  // s, mean cycle; the current cycle in the stroke log
extern double gCycleSD;     // s, its standard deviation
extern double gRateSD;      // strokes per minute, deviation of the rate
extern double gTestTime;    // s from the first to the last boundary of the run
extern int32_t gBadStrokes; // cycles rejected by all runs since the program began; never cleared

/// Number, mean and standard deviation in seconds of the cycles of a stretch.
struct CycleFigures
{
    int32_t Cnt = 0;
    double Mean = 0;
    double SD = 0;
};

/// Moves Cur behind the sample that completes the next cycle boundary up to Stop and gives the boundary's time in
/// seconds. False, with CycleTime as it was, when there is none. A boundary in the threshold modes lies between the
/// samples 4 and 3 before the new Cur, in the peak modes on sample Cur - 3. Throws RunError without a key channel.
bool DetectCycle(KeyWindow& Win, int32_t& Cur, int32_t Stop, double& CycleTime);

/// The window as a scan of the samples ahead of Start leaves it: a scan with it from Start finds the boundaries of the
/// recording alone, and none across the join with whatever was scanned before.
KeyWindow WindowAt(int32_t Start);

/// The cycles of a stretch, none when there is but one boundary; nothing without a boundary. A boundary that sample
/// Stop itself completes does not count here, though ProcessCycles uses it. Throws RunError when the variance is
/// negative.
std::optional<CycleFigures> CycleStats(KeyWindow& Win, int32_t Start, int32_t Stop);

/// Shows what CycleStats found in gStrokeCnt, gMeanCycleT, gCycleSD and gRate. Without a boundary they stay; without a
/// cycle mean and deviation become 0 and the others stay. False without a cycle. Throws RunError for more cycles than
/// 16 bits count.
bool PublishStats(const std::optional<CycleFigures>& Found);

/// The cycles of a stretch that lie inside the band of mean +- StdFilter x deviation of All, those of the stretch as
/// CycleStats gives them. Nothing when there is none.
std::optional<CycleFigures> CycleStatsInRange(KeyWindow& Win, const CycleFigures& All, int32_t Start, int32_t Stop);

/// One whole run: finds the cycles of a stretch, adds those inside the band of mean +- StdFilter x deviation to the
/// pattern of Run 1 or 2, and finishes it. Stop 0 becomes the last sample. Run 2 uses the pattern of run 1. False
/// (reported to the user) without a key channel, a whole cycle or a cycle inside the band. Throws RunError when a point
/// of the pattern has no value. The patterns are then as they were.
bool ProcessCycles(KeyWindow& Win, int32_t Start, int32_t& Stop, int Run);

/// Tells the user that no cycle lies inside the band.
void ReportEmptyBand();

/// Moves the progress bar to Cur's share of the recording when its whole percentage has changed.
void ShowProgress(KeyWindow& Win, int32_t Cur);

/// Whether the session's key channel is a channel of the sample store. False is reported to the user.
bool HasKeyChannel();
