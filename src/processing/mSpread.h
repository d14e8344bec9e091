// Mean and variance of values that come one by one.
#pragma once

#include "base/mNumText.h"

#include <cstdint>

/// Sums values as their distances from the first one too, so that equal values have no variance and rounding makes none
/// negative.
class Spread
{
public:
    void Add(double X)
    {
        if (Cnt++ == 0) First = X;
        Sum += X;
        Far += X - First;
        FarSq += (X - First) * (X - First);
    }

    int32_t Count() const { return Cnt; }

    /// Sum of the values divided by their number, 0 without values.
    double Mean() const { return SafeDiv(Sum, Cnt); }

    /// Mean square of the distances from the mean, 0 without values.
    double Variance() const
    {
        const double MeanFar = SafeDiv(Far, Cnt);
        return SafeDiv(FarSq, Cnt) - MeanFar * MeanFar;
    }

private:
    int32_t Cnt = 0;
    double Sum = 0;
    double First = 0;
    double Far = 0;   // sum of the distances from the first value
    double FarSq = 0; // sum of their squares
};
