// A clock that stands until the test moves it on.
#pragma once

#include "platform/iClock.h"

#include <map>
#include <utility>

class TestClock : public iClock
{
public:
    int64_t Milliseconds() const override { return Time; }
    LocalTime Now() const override { return {2024, 5, 17, 9, 30, 0}; }
    int StartOnce(int Delay, std::function<void()> Work) override { return Start({Time + Delay, 0, std::move(Work)}); }
    int StartRepeating(int Interval, std::function<void()> Work) override
    {
        return Start({Time + Interval, Interval, std::move(Work)});
    }
    void StopTimer(int Number) override { Timers.erase(Number); }

    /// Moves the time on and runs what becomes due, in the order of the times.
    void Wait(int Delay) override
    {
        const int64_t End = Time + Delay;
        while (true) {
            auto Next = Timers.end();
            for (auto Each = Timers.begin(); Each != Timers.end(); ++Each)
                if (Each->second.Due <= End && (Next == Timers.end() || Each->second.Due < Next->second.Due))
                    Next = Each;
            if (Next == Timers.end()) break;
            Time = Next->second.Due;
            const auto Work = Next->second.Work;
            Next->second.Due += Next->second.Interval;
            if (Next->second.Interval == 0) Timers.erase(Next);
            Work();
        }
        Time = End;
    }

private:
    struct Timer
    {
        int64_t Due;
        int Interval;
        std::function<void()> Work;
    };

    int Start(Timer Item)
    {
        Timers[++Last] = std::move(Item);
        return Last;
    }

    std::map<int, Timer> Timers;
    int Last = 0;
    int64_t Time = 1000;
};
