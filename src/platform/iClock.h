// Time, timers and the event loop, as the engine asks for them.
#pragma once

#include <cstdint>
#include <functional>

/// A local date and time of day.
struct LocalTime
{
    int Year = 0;
    int Month = 0; // 1 to 12
    int Day = 0;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
};

class iClock
{
public:
    virtual ~iClock() = default;

    /// Milliseconds from some moment in the past; never runs backward.
    virtual int64_t Milliseconds() const = 0;

    /// The machine's local date and time.
    virtual LocalTime Now() const = 0;

    /// Runs Work once, Delay milliseconds from now; with 0 in the next turn of the event loop. Gives the timer's
    /// number, above 0.
    virtual int StartOnce(int Delay, std::function<void()> Work) = 0;

    /// Runs Work every Interval milliseconds until the timer is stopped. Gives the timer's number, above 0.
    virtual int StartRepeating(int Interval, std::function<void()> Work) = 0;

    /// Stops the timer of that number, which may be the one whose work is running; a number not in use does nothing.
    virtual void StopTimer(int Timer) = 0;

    /// Lets events run for Delay milliseconds, with 0 those that are due.
    virtual void Wait(int Delay) = 0;
};
