// Timers that are known by number.
#include "platform/qt/qClock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QEventLoop>

#include <utility>

qClock::qClock()
{
    Elapsed.start();
}

int64_t qClock::Milliseconds() const
{
    return Elapsed.elapsed();
}

LocalTime qClock::Now() const
{
    const QDateTime Moment = QDateTime::currentDateTime();
    const QDate Day = Moment.date();
    const QTime Time = Moment.time();
    return {Day.year(), Day.month(), Day.day(), Time.hour(), Time.minute(), Time.second()};
}

int qClock::StartOnce(int Delay, std::function<void()> Work)
{
    return Start(Delay, true, std::move(Work));
}

int qClock::StartRepeating(int Interval, std::function<void()> Work)
{
    return Start(Interval, false, std::move(Work));
}

int qClock::Start(int Delay, bool Once, std::function<void()> Work)
{
    const int Number = ++LastTimer;
    auto* Timer = new QTimer(&Owner);
    Timer->setTimerType(Qt::PreciseTimer);
    Timer->setSingleShot(Once);
    QObject::connect(Timer, &QTimer::timeout, Timer, [this, Number, Once, Work = std::move(Work)] {
        if (Once) StopTimer(Number);
        Work();
    });
    Timers[Number] = Timer;
    Timer->start(Delay);
    return Number;
}

void qClock::StopTimer(int Timer)
{
    const auto Found = Timers.find(Timer);
    if (Found == Timers.end()) return;
    // Its work may be running, so the timer itself goes later.
    Found->second->stop();
    Found->second->deleteLater();
    Timers.erase(Found);
}

void qClock::Wait(int Delay)
{
    if (Delay <= 0) return QCoreApplication::processEvents();
    QEventLoop Loop;
    QTimer::singleShot(Delay, Qt::PreciseTimer, &Loop, &QEventLoop::quit);
    Loop.exec();
}
