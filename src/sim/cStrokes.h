// The strokes of a simulated crew: when each begins, how long it lasts, how far and how hard it goes.
#pragma once

#include "sim/cRandom.h"

#include <deque>

// The angles of an average oar in degrees.
inline constexpr double MeanCatch = -58;
inline constexpr double MeanFinish = 34;

/// One stroke from catch to catch. Times in seconds from the first frame, angles in degrees.
struct Stroke
{
    double Start = 0;
    double Period = 0;
    double DriveT = 0;
    double Catch = 0;
    double Finish = 0;
    double NextCatch = 0;
    double Effort = 1; // force against the crew's usual one

    double FinishTime() const { return Start + DriveT; }
    double End() const { return Start + Period; }
};

/// Where in a stroke a moment lies: Part runs from 0 to 1 through the drive, and again through the recovery.
struct StrokePhase
{
    const Stroke* In = nullptr;
    bool IsDrive = false;
    double Part = 0;
};

/// A moment as a stroke's number and its phase.
struct StrokeMark
{
    int Number = 0;
    bool IsDrive = false;
    double Part = 0;
};

/// The strokes in their order, made as they are asked for. Time 0 lies in stroke 0 or early in stroke 1, so that
/// oars that lag or lead have a stroke at any time of a recording.
class cStrokes
{
public:
    /// Rate in strokes per minute, Spread the standard deviation of the periods in per cent of their mean. KeyMode
    /// says where strokes are cut: time 0 lies well ahead of such a place, and behind none that could be taken for one.
    cStrokes(double Rate, double Spread, int KeyMode, uint64_t Seed);

    /// Stroke Number, from 0.
    const Stroke& At(int Number);

    /// Number of the stroke that time T lies in. Times before stroke 0 give 0.
    int NumberAt(double T);

    /// The stroke and the part of it that time T lies in.
    StrokePhase PhaseAt(double T);

    /// Time by which a stroke detector on an oar's angle has seen Count whole strokes and no more.
    double EndOf(int Count);

private:
    void Add();
    double TimeOf(const StrokeMark& Mark);

    double MeanPeriod;
    double Deviation;
    int KeyMode;
    cRandom Random;
    double NextCatch;
    std::deque<Stroke> Strokes; // a deque, so that references stay good while it grows
    int Last = 0;               // where the last search ended
};

/// Share of the drive in a stroke of that period: below a half but for racing starts.
double DriveShare(double Period);
