// Typical patterns: stroke cycles brought to one time grid of 51 points, summed up and averaged for every channel.
#pragma once

#include "base/mError.h"
#include "processing/mSpread.h"

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

// Means, counts and standard deviations of each run as it was finished last.
extern NormTable gNormAver1;
extern NormTable gNormCnt1;
extern NormTable gNormStd1;
extern NormTable gNormAver2;
extern NormTable gNormCnt2;
extern NormTable gNormStd2;

/// The arrays of run 1 or 2. Throws RunError for another number.
struct NormArrays
{
    NormTable& Aver;
    NormTable& Cnt;
    NormTable& Std;
};
NormArrays ArraysOf(int Run);

/// A run over stroke cycles: sums, counts and sums of squares at each point until it is finished, then means, counts
/// and standard deviations.
struct NormRun
{
    int Run = 0; // 1 or 2; another number has no pattern
    NormTable Aver;
    NormTable Cnt;
    NormTable Std;
    Spread Periods;      // s
    Spread Rates;        // strokes per minute
    double TestTime = 0; // s from the first to the last boundary

    /// Standard deviation of the rates.
    double RateSD() const;
};

/// A run without cycles.
NormRun ResetNorm(int Run);

/// Brings the cycle between the times T0 and T1 (s) to the grid and adds it to the pattern. CycleStart is the
/// detector's sample index at its start boundary. Points after the last sample receive nothing. Run 2 drops each value
/// that lies more than StdFilter deviations from the mean of run 1. Throws RunError when gFile.ChanCnt exceeds the
/// channels of the store.
void AddCycle(NormRun& Sums, int32_t CycleStart, double T0, double T1);

/// Adds a cycle to the pattern and its duration and rate to the figures. Throws RunError for more cycles than 16 bits
/// count.
void AddStroke(NormRun& Sums, int32_t CycleStart, double T0, double T1);

/// Turns the sums of the pattern into means and deviations. Points that the filter of run 2 left without a value are
/// filled from their neighbours. Throws RunError when no stroke was added or a point of run 1 has no value.
void FinishNorm(NormRun& Sums);

/// Shows a run in the arrays of its number and in gStrokeCnt, gMeanCycleT, gRate, gRateSD and gTestTime.
void PublishNorm(NormRun&& Done);

/// Copies the arrays of run 1 to those of run 2.
void CopyRun1();
