// The coach's stroke clock: the highest points of the key channel, whatever begins a stroke elsewhere.
#pragma once

#include <array>
#include <cstdint>

class cCoachClock
{
public:
    /// Begins anew with the session's key channel.
    void Load();

    /// Takes the newest sample; the first one only fills the last key values. True when a stroke starts: the key has
    /// risen, topped, and fallen on two samples running.
    bool Take();

    double Elapsed() const { return Time; } // s since the first sample
    int32_t StrokeN() const { return Strokes; }
    double RateNow() const { return Rate; } // strokes per minute; the first one counts from the first sample
    double RateAver() const;

private:
    int16_t Chan = 0; // 0: there is none
    double Q0 = 0;
    double Q1 = 0;
    bool HasSamples = false;
    double StartT = 0; // s
    double Time = 0;
    std::array<double, 4> Keys{}; // newest first
    int32_t Strokes = 0;
    double LastT = 0; // s, elapsed at the last start
    double Rate = 0;
    double RateSum = 0;
};
