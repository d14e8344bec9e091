// A calibration rig: one channel put under known physical values, on a sensor that has its own errors.
#pragma once

#include "core/mGlobData.h"

#include <optional>
#include <string>
#include <vector>

/// What hangs on a channel, and what the sensor makes of it.
struct RigSettings
{
    std::string Chan;          // number or ParamID
    std::string Calibrator;    // number or ParamID of a second channel that measures the same by its line; empty: none
    std::vector<double> Loads; // physical values, one after the other, then from the first on again
    double Hold = 4;           // s that each is held
    double Ramp = 1;           // s from one to the next
    double Noise = 1;          // standard deviation, counts
    double Hyst = 0;           // rising and falling curve lie so far apart, per cent of the range of the loads
    double Bend = 0;           // bow of the curve at its middle, per cent of the range
    double Wave = 0;           // height of an S along the curve, per cent of the range
    std::optional<double> Q0;  // the sensor's line; none: the channel's in the session
    std::optional<double> Q1;
};

/// Channel of a number or ParamID; 0 when the session has none.
int RigChannel(const DataFile& File, const std::string& Name);

/// Standard deviation to the bounds of noise that is spread evenly.
double EvenNoise(double Deviation);

class cRig
{
public:
    /// The channel must be one of File; MaxCount is its highest count.
    cRig(const RigSettings& Settings, const DataFile& File, double MaxCount);

    /// Physical value at T seconds.
    double Load(double T) const;

    /// Count at T, not rounded, without noise. T must not go back, since hysteresis remembers.
    double CountAt(double T);

    /// The physical value that stands behind a count while the load rises, and while it falls.
    double Rising(double Count) const { return Curve(Count) + Play / 2; }
    double Falling(double Count) const { return Curve(Count) - Play / 2; }

    /// Rising and falling over the counts of all loads: a header line, then a line a count.
    std::string TruthTable() const;

    /// The load that has just come to rest at T, as "H1: 200"; empty when none has since the last call.
    std::string News(double T);

    /// Why the channel cannot show the loads; empty when it can.
    std::string WhyNot() const;

    const RigSettings& Settings() const { return Wanted; }

private:
    double Curve(double Count) const;
    double CountOfCurve(double Y) const;
    double StepTime() const { return Wanted.Hold + Wanted.Ramp; }

    RigSettings Wanted;
    double Top;           // highest count
    double Q0 = 0;        // of the sensor's line
    double Q1 = 0;        // physical units a count
    double Low = 0;       // lowest load
    double Range = 0;     // to the highest
    double Play = 0;      // distance of the two branches, physical units
    double Felt = 0;      // what reaches the sensor through the play
    double Reported = -1; // step that News reported last
};
