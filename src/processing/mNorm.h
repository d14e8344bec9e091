// Typical patterns: stroke cycles brought to one time grid of 51 points, summed up and averaged for every channel.
#pragma once

#include "base/mError.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// A stroke is cut into this many equal times: a pattern has one point more.
inline constexpr int NormSteps = 50;

/// A value at each point of a normalised stroke, from its start boundary to its end boundary.
using NormCurve = std::array<double, NormSteps + 1>;

/// A curve for each channel; that of channel 0 stays 0.
class NormTable
{
public:
    /// Makes curves of zeros for the channels 0 to LastChannel.
    void Create(int LastChannel) { Curves.assign(static_cast<std::size_t>(std::max(LastChannel, 0)) + 1, NormCurve{}); }

    /// Index of the last channel, -1 before the first run.
    int ChannelUBound() const { return static_cast<int>(Curves.size()) - 1; }

    /// Value of a point and a channel, and the curve of a channel. Throw RunError outside the table.
    double& operator()(int Point, int Chan) { return At(Channel(Chan), Point); }
    NormCurve& Channel(int Chan) { return At(Curves, Chan); }
    const NormCurve& Channel(int Chan) const { return At(Curves, Chan); }

private:
    std::vector<NormCurve> Curves;
};

// Means, counts and standard deviations of each run; sums, counts and sums of squares while it goes on. They live until
// the next ResetNorm.
extern NormTable gNormAver1;
extern NormTable gNormCnt1;
extern NormTable gNormStd1;
extern NormTable gNormAver2;
extern NormTable gNormCnt2;
extern NormTable gNormStd2;

/// The arrays of one run.
struct NormArrays
{
    NormTable& Aver;
    NormTable& Cnt;
    NormTable& Std;
};

/// The arrays of run 1 or 2. Throws RunError for another number.
NormArrays ArraysOf(int Run);

/// Clears the stroke figures gStrokeCnt, gMeanCycleT, gRate and gRateSD and the arrays of run 1 or 2; another number
/// clears the figures only.
void ResetNorm(int Run);

/// Brings the cycle between the times T0 and T1 (s) to the grid and adds it to the arrays of run 1 or 2. CycleStart is
/// the detector's sample index at its start boundary. Points behind the last sample receive nothing. Run 2 drops each
/// value that lies more than StdFilter deviations from the mean of run 1. Throws RunError when gFile.ChanCnt exceeds
/// the channels of the store.
void AddCycle(int32_t CycleStart, double T0, double T1, int Run);

/// Adds a cycle to the arrays of a run and its duration and rate to the stroke figures.
void AddStroke(int32_t CycleStart, double T0, double T1, int Run);

/// Turns the sums of the figures and of a run's arrays into means and deviations. Points that the filter of run 2 left
/// without a value are filled from their neighbours. Throws RunError, with the work half done, when no stroke was
/// added or a point of run 1 has no value.
void FinishNorm(int Run);

/// Copies the arrays of run 1 to those of run 2.
void CopyRun1();

/// The stroke figures, the patterns and the sizes of the sample tables as they were when a run began. Unless the run is
/// finished they are put back at the end of the scope, so that a failure leaves nothing half made. The detector's
/// window and gBadStrokes, which nothing ever clears, go on.
class RunBackup
{
public:
    RunBackup();
    ~RunBackup();
    RunBackup(const RunBackup&) = delete;
    RunBackup& operator=(const RunBackup&) = delete;

    void Finish() { IsFinished = true; }

private:
    bool IsFinished = false;
    int16_t StrokeCnt;
    std::array<double, 5> Figures;
    std::array<NormTable, 6> Patterns;
    int DescRows;
    int DataRows;
    int STDRows;
};
