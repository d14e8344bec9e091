// The performance monitor of the simulated rower of seat 1: what it answers while he rows.
#pragma once

#include "core/mGlobData.h"
#include "sim/cRowerModel.h"

#include <span>
#include <string>
#include <vector>

/// The figures of a monitor at one moment, in the units of its answers.
struct MonitorFigures
{
    int Pace = 0;    // s per km
    int Cadence = 0; // strokes per minute
    int Power = 0;   // W
    int State = 0;
    int64_t Time = 0;       // 0.01 s
    int64_t Distance = 0;   // 0.1 m
    int StrokeDistance = 0; // 0.01 m
    int Drive = 0;          // 0.01 s
    int Recovery = 0;       // 0.01 s
    int Length = 0;         // 0.01 m
    int Drives = 0;
    int PeakForce = 0; // 0.1 pound
    int MeanForce = 0; // 0.1 pound
    int Work = 0;      // 0.1 J
};

class cMonitor
{
public:
    static constexpr double Step = 0.02; // s from one poll to the next

    /// The monitor is switched on at time 0: strokes that began earlier do not count. Model must outlive it.
    cMonitor(const DataFile& File, cRowerModel& Model);

    /// The figures at T seconds, which must not go back: of a drive from its end on, of a whole stroke from the catch
    /// of the next one on.
    const MonitorFigures& At(double T);

    /// The answer to the next poll, the first at time 0, as hexadecimal bytes.
    std::string NextReply();

private:
    // What a stroke comes to.
    struct Measured
    {
        double Length = 0; // m
        double Work = 0;   // J
        double MeanForce = 0;
        double Speed = 0; // m/s
    };

    Measured Measure(const Stroke& In) const;
    Measured MeasureOar(const Stroke& In) const;
    Measured MeasureErg(const Stroke& In) const;
    void EndDrive(const Stroke& In);
    void EndStroke(const Stroke& In);
    void Begin(int Number);

    cStrokes& Strokes;
    bool OnErg; // the session is one of an ergometer, not of a boat
    Oar Rower;
    Oar Force;
    MonitorFigures Now;
    Measured Running;    // the stroke that is rowed now
    double Rowed = 0;    // m at its catch
    int Counted = -1;    // its number
    bool Counts = false; // it began when the monitor was on
    bool HasDriven = false;
    int64_t Polls = 0;
};
