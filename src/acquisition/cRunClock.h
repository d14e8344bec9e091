// Detects a restart of the logger from the times of a live link's frames.
#pragma once

/// A logger that is restarted counts its time from 0 again.
class cRunClock
{
public:
    /// Whether the frame at Time (s) begins a new run: the clock ran back by more than a second. A single frame
    /// with a wrong, later time is not followed by a new run.
    bool IsNewRun(double Time)
    {
        const bool IsBack = Last - Time > LongestStep;
        const bool IsReturn = IsBack && Time >= Before && Time - Before <= LongestStep;
        Before = IsReturn ? Time : Last;
        Last = Time;
        return IsBack && !IsReturn;
    }

private:
    static constexpr double LongestStep = 1; // s

    double Last = 0;   // time of the last frame
    double Before = 0; // and of the one before it
};
