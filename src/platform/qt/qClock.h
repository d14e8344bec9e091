// Time and timers on the toolkit's event loop.
#pragma once

#include "platform/iClock.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <map>

class qClock : public iClock
{
public:
    qClock();

    int64_t Milliseconds() const override;
    LocalTime Now() const override;
    int StartOnce(int Delay, std::function<void()> Work) override;
    int StartRepeating(int Interval, std::function<void()> Work) override;
    void StopTimer(int Timer) override;
    void Wait(int Delay) override;

private:
    int Start(int Delay, bool Once, std::function<void()> Work);

    QElapsedTimer Elapsed;
    QObject Owner; // of the timers
    std::map<int, QTimer*> Timers;
    int LastTimer = 0;
};
