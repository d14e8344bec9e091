// The timer between asking and doing.
#include "platform/qt/qPace.h"

#include <utility>

qPace::qPace(std::function<void()> InitWork) : Work(std::move(InitWork))
{
    Clock.start();
    Timer.setSingleShot(true);
    Timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&Timer, &QTimer::timeout, &Timer, [this] {
        Pace.Shown(Clock.elapsed());
        Work();
    });
}

void qPace::Ask()
{
    if (!Timer.isActive()) Timer.start(Pace.Wait(Clock.elapsed()));
}
