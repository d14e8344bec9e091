// The clock, timers and event loop of a program without a toolkit: one poll over descriptors and timers.
#pragma once

#include "platform/iClock.h"

#include <map>

/// Keeps Ctrl-C and the system's wish to end the program from ending it, and gives a descriptor that can be read when
/// either came.
int WatchEndSignals();

class sEventLoop : public iClock
{
public:
    int64_t Milliseconds() const override;
    LocalTime Now() const override;
    int StartOnce(int Delay, std::function<void()> Work) override;
    int StartRepeating(int Interval, std::function<void()> Work) override;
    void StopTimer(int Number) override;
    void Wait(int Delay) override;

    /// Calls Work with the events that poll reports for Descriptor, among those of Events, until Unwatch.
    void Watch(int Descriptor, short Events, std::function<void(short)> Work);
    void Unwatch(int Descriptor);

    /// Runs until Quit is called.
    void Run();
    void Quit() { IsRunning = false; }

private:
    struct Timer
    {
        int64_t Due = 0;
        int Interval = 0; // 0: once
        std::function<void()> Work;
    };
    struct Source
    {
        int Number = 0; // distinguishes sources that used the same descriptor one after the other
        short Events = 0;
        std::function<void(short)> Work;
    };

    int Start(Timer Item);
    void RunDue();
    void RunSources(int Time);
    void Turn(int64_t Until);

    std::map<int, Timer> Timers;
    std::map<int, Source> Sources;
    int LastTimer = 0;
    int LastSource = 0;
    bool IsRunning = false;
};
