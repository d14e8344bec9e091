// The way back from a physical value to the raw count that a channel's calibration turns into it.
#pragma once

#include "core/mGlobData.h"

/// The count, not yet rounded, that CalcPhysVal turns into Y or, where it never does, the nearest one. Prev is the
/// channel's last count, which decides the branch of a hysteresis; MaxCount the highest count of the channel.
/// A calibration without a slope gives Log0.
double CountOf(const CalibrRow& Row, double Y, double Prev, double MaxCount);

/// The count of a sensor that feels nothing.
double ZeroLevel(const CalibrRow& Row, double MaxCount);
