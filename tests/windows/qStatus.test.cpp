#include "ShellState.h"

#include <QTimer>

TEST_CASE_FIXTURE(ShellState, "Esc gives up the work that goes on, while other keys and timers wait or do nothing")
{
    Start();
    const auto Post = [this](Qt::Key Key) {
        QCoreApplication::postEvent(&Main, new QKeyEvent(QEvent::KeyPress, Key, Qt::NoModifier));
    };
    QTimer Timer;
    bool HasFired = false;
    QObject::connect(&Timer, &QTimer::timeout, &Timer, [&] { HasFired = true; });
    Timer.setSingleShot(true);
    Timer.start(0);
    Post(Qt::Key_F4);
    CHECK_FALSE(Panels.IsCancelled());
    CHECK_FALSE(HasFired);
    Post(Qt::Key_Escape);
    CHECK(Panels.IsCancelled());
    CHECK_FALSE(Panels.IsCancelled());
    CHECK(QTest::qWaitFor([&] { return HasFired; }));
}
