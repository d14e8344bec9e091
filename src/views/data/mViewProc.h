// Processing of what the data view shows: a selection, all, splits, single strokes, and the plot of the pattern.
#pragma once

#include "views/data/mViewLoad.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A stretch to be processed, and what is stored with its sample.
struct ProcStretch
{
    int32_t Start = 0;
    int32_t Stop = 0;            // 0: to the last sample
    double Dist = 0;             // m, as typed in
    double Time = 0;             // s, as typed in
    std::optional<double> Rowed; // m by the distance band; takes the place of Dist unless on the ergometer
};

/// Averages the strokes of the stretch into a sample of the session and writes the session data file. A run that fails
/// (reported to the user) writes start, finish, distance and time into the last sample all the same, and says so;
/// without a stroke inside the filter (reported to the user) it is not begun. False when no sample was made or the file
/// could not be written.
bool ProcSel(const ViewData& Data, const ProcStretch& Stretch);

/// Sample indices at which the splits begin and end, from 0 on: splits by time, one after the other, with SplitTime;
/// zeros otherwise.
std::vector<int32_t> FillSplits();

/// ProcSel on each split by the settings of the splits, also behind one that fails; Rowed gives the distance of a
/// stretch. False when one has failed or there are none (reported to the user).
bool ProcSplits(const ViewData& Data, const ProcStretch& Typed,
                const std::function<std::optional<double>(int32_t, int32_t)>& Rowed);

/// Makes a sample of each stroke from Start on, as many as are asked for, and writes the session data file. False when
/// cancelled, when nothing was made, or when the file could not be written (reported to the user).
bool ProcStart(int32_t Start);

/// Averages the strokes of the stretch into the typical pattern in memory. False when that fails (reported to the
/// user).
bool PlotProc(int32_t Start, int32_t Stop);
