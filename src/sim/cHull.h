// The movement of the simulated hull: speed, acceleration, distance, turning and place on the lake.
#pragma once

#include "sim/cStrokes.h"

#include <string>

/// The hull that a crew's strokes move. Speed is the steady function of the stroke's course that acceleration is the
/// derivative of and distance the integral.
class cHull
{
public:
    /// BoatType: "1x" to "8+". Strokes must outlive the hull.
    cHull(const std::string& BoatType, double Rate, cStrokes& Strokes);

    double Speed(double T);        // m/s
    double Acceleration(double T); // m/s2 along the course
    double Distance(double T);     // m from time 0
    double Sway(double T);         // m/s2 to the side
    double Heave(double T);        // m/s2 upward, without gravity
    double Roll(double T);         // degrees/s
    double Pitch(double T);        // degrees/s
    double Yaw(double T);          // degrees/s
    double Latitude(double T);     // degrees
    double Longitude(double T);    // degrees

private:
    // Part of a stroke, 0 to 1 from catch to catch.
    double PartAt(double T, double& Period);
    // Way gained on the mean speed since the running stroke began; over whole strokes there is none.
    double Swung(double T);
    double Wave(double T, double Times, double Shift);

    cStrokes& Strokes;
    double Mean;        // m/s
    double Surge;       // m/s, size of the swing about the mean
    double SwungBefore; // m, at time 0
};
