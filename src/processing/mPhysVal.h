// From raw counts to physical values, by the calibration of a channel's row.
#pragma once

#include <span>

/// Physical value of raw count X of a channel by its ProcMode. Prev is the caller's last count of this channel and
/// is updated with hysteresis (mode 2) only. Throws RunError for a channel without a row.
double CalcPhysVal(int Chan, double X, double& Prev);

/// CalcPhysVal of a run of a channel's counts in their order, in place.
void CalcPhysVals(int Chan, std::span<double> Values, double& Prev);
