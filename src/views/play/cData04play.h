// A row of the play view: its curve from a stored sample.
#pragma once

#include "core/mGlobData.h"

#include <span>
#include <vector>

class cData04play
{
public:
    /// Computes row number Row of View4 from the stored sample of row Sample of Desc, as one closed cycle. A row
    /// without arguments has no curve. Throws RunError when the sample has no rate or no points, or when the row's
    /// operation asks for an argument or a value that is not there.
    void InitViewID(int Row, int Sample);

    /// The curve, points 0 to the sample's data count; point k stands at k + 0.5. Empty for a row without arguments.
    std::span<const double> Ys() const { return CurveY; }

private:
    std::vector<double> CurveY;
};
