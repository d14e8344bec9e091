// The simulated crew and boat as a logger's sensors see them: the physical signal of any channel at any time.
#pragma once

#include "core/mGlobData.h"
#include "sim/cHull.h"
#include "sim/cOar.h"
#include "sim/cStrokes.h"

#include <functional>

/// A channel's sensor: its physical value at a time in seconds from the first frame, and its noise in counts.
struct Sensor
{
    std::function<double(double)> Value; // none: the channel rests at its zero level
    double Noise = 0.6;                  // counts to either side
};

/// A crew in its boat. The seed decides the strokes and what sets the seats apart.
class cRowerModel
{
public:
    /// Rate in strokes per minute, Spread the standard deviation of the periods in per cent. KeyMode says where the
    /// session cuts strokes, which decides where in a stroke time begins.
    cRowerModel(const std::string& BoatType, double Rate, double Spread, int KeyMode, uint64_t Seed);
    cRowerModel(const cRowerModel&) = delete;
    cRowerModel& operator=(const cRowerModel&) = delete;

    /// The sensor that the channel's ParamID, Seat and Side stand for. Known are A, V, H, G, S and T with the seat's
    /// number, or any number when the row names a seat, on an ergometer L, H, S and T; Acc, AccY, AccZ, Roll, Pitch,
    /// Yaw, Vs, Dist, Lat and Lon. It must not outlive the model.
    Sensor SensorOf(const CalibrRow& Row);

    /// The oar that the channel belongs to.
    Oar OarOf(const CalibrRow& Row) const;

    cStrokes& Strokes() { return Crew; }

    /// Whether the crew is one rower on an ergometer.
    bool IsErg() const { return OnErg; }

private:
    using HullSignal = double (cHull::*)(double);
    struct HullSensor
    {
        const char* ParamID;
        HullSignal Signal;
        double Noise;
    };
    static const std::vector<HullSensor>& HullSensors();
    Sensor SeatSensor(char Kind, const Oar& Each);
    Sensor ErgSensor(char Kind, const Oar& Each);

    bool IsScullBoat;
    bool OnErg;
    double Rate;
    uint64_t Seed;
    cStrokes Crew;
    cHull Hull;
};
