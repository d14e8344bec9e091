// Cutting and changing what the data view shows, in memory only, with an undo of the last step.
#pragma once

#include "views/data/mViewLoad.h"

#include <functional>

/// The last change, as the function that undoes it; empty when there is none.
class ViewUndo
{
public:
    void Set(std::function<void()> Work) { Restore = std::move(Work); }
    void Clear() { Restore = {}; }

    /// Undoes the last change. False when there is none.
    bool Run();

private:
    std::function<void()> Restore;
};

/// Removes the samples from Start up to, but not including, Stop, all channels. The last sample of the store goes with
/// them. False when there is nothing between the two.
bool DeleteSamples(int32_t Start, int32_t Stop, FrameMap& Map, ViewUndo& Undo);

/// Sets the times to zero and repairs spikes in all channels. False with too few samples.
bool FilterSamples(ViewUndo& Undo);

/// Keeps the rows of gScanRows that lie strictly between two rows; the row ahead of them becomes row 0, at which their
/// data begin. False when there are none.
bool TrimRows(int FirstRow, int LastRow, ViewUndo& Undo);

/// Integrates the boat's acceleration, channel 5, from Start to Stop by the trapezoid rule over the times and stores
/// the running sum as its velocity, channel 15. False without such channels (reported to the user) or samples.
bool AccToVel(int32_t Start, int32_t Stop, ViewUndo& Undo);
