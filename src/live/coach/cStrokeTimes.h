// The last strokes of an oar or of the clock, by which others are seen to have stopped.
#pragma once

#include <array>

class cStrokeTimes
{
public:
    /// Adds a stroke at a moment in seconds.
    void Add(double T)
    {
        Times = {T, Times[0], Times[1]};
        if (Cnt < 3) ++Cnt;
    }

    double Newest() const { return Times[0]; }

    /// Whether two strokes have come here since that moment. What comes once a stroke, a little earlier or later, has
    /// then missed both.
    bool HasPassed(double T) const { return Cnt == 3 && T < (Times[1] + Times[2]) / 2; }

private:
    std::array<double, 3> Times{}; // s, newest first
    int Cnt = 0;
};
