// The numbers beside the plot of the data view: those of the selection and those at the cursor.
#pragma once

#include "views/data/cDataRange.h"

#include <array>
#include <string>

/// A number of the selection. One of a former selection is kept, but no longer current.
struct ViewNumber
{
    std::string Text;
    bool IsCurrent = true;
};

class cDataNumbers
{
public:
    std::array<ViewNumber, 13> Selected; // 1 to 12, in the order of SelLabels
    std::array<std::string, 2> AtCursor; // time, and distance by its band
    std::string LoggedAtCursor;          // distance by its channel

    /// Shows the numbers of the selection. Those of the former one are kept, as not current, when it holds no whole
    /// stroke; of a start without a stop there is its time, and that the stop is missing.
    void Show(const cDataRange& Range);

    /// Shows the distance of the selection and its speed.
    void ShowDist(const cDataRange& Range);

    /// Shows the values at the cursor.
    void ShowCursor(int32_t Sample);

    /// The selection that the numbers belong to is no longer there.
    void MarkOld();

private:
    void ShowOpenStart(int32_t Start);

    bool HasOpenStart = false; // a start without a stop is shown
};
