// The recogniser of strokes on an ergometer: catches and finishes of the handle, and the figures of each stroke.
#pragma once

#include <array>
#include <cstdint>

/// A stroke that has ended with a finish. The first one after a start is no whole stroke: its cycle counts from time 0,
/// and its drive from a catch that was not seen.
struct ErgStroke
{
    int16_t StrokeCnt = 0;
    double CycleTime = 0; // s, from finish to finish
    double Rate = 0;      // strokes per minute
    double RateAver = 0;
    double DriveTime = 0; // s
    double RecovTime = 0;
    double Length = 0;    // handle travel of the drive, units of the key channel
    double MaxForce = 0;  // N
    double MaxForceT = 0; // s behind the catch
    double Work = 0;      // J
    double Power = 0;     // W, mean of the cycle
    double AverForce = 0; // work by drive time
    double Impulse = 0;   // N s of the drive
    bool IsWhole = false; // the finish and the catch before it were seen

    /// Mean force over the handle's travel, N.
    double MeanForce() const;
};

class cErgStrokes
{
public:
    /// Begins with the sample that is taken next.
    void Begin() { *this = {}; }

    /// Takes the handle's value and force (N) at Time (s). True when a stroke has ended. The first sample only fills
    /// the history.
    bool Take(double Time, double Key, double Force);

    /// The stroke that ended last.
    const ErgStroke& Last() const { return Ended; }

    /// Sum of all cycles, s.
    double CycleSum() const { return Sum; }

private:
    void Drive(double Time, double Key, double Force);
    void Catch(double Time);
    void Finish(double Time);

    // What runs from finish to finish.
    struct Running
    {
        double MaxForce = 0;
        double MaxForceT = 0; // s of the clock
        double WorkSum = 0;
        double ImpulseSum = 0;
    };

    std::array<double, 4> K{}; // key values before this one, newest first
    double PrevForce = 0;
    double PrevTime = 0;
    bool HasSamples = false;
    Running Now;
    double CatchT = 0;
    double CatchKey = 0;
    double FinishPrevT = 0;
    bool HasCatch = false; // since the last finish
    bool HasFinish = false;
    double Sum = 0;
    ErgStroke Ended;
};
