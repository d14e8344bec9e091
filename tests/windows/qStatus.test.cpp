// The status bar: texts at the rate of the pictures, progress of long work, and how that is cancelled.
#include "ShellState.h"
#include "core/mSettings.h"

#include <QElapsedTimer>
#include <QLabel>
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

namespace {
// Counts how often a widget is painted.
class PaintCount : public QObject
{
public:
    int Count = 0;

    bool eventFilter(QObject*, QEvent* Event) override
    {
        if (Event->type() == QEvent::Paint) ++Count;
        return false;
    }
};
} // namespace

TEST_CASE_FIXTURE(ShellState, "status texts follow the picture rate, and those of long work are on the screen at once")
{
    Start();
    auto& Running = Find<QLabel>("sbStatusBar_2");
    QTest::qWait(50);
    PaintCount Paints;
    Running.installEventFilter(&Paints);
    gPictureRate = 10;
    QElapsedTimer Watch;
    Watch.start();
    int Sent = 0;
    while (Watch.elapsed() < 600) {
        Panels.SetPanel(2, "Frame " + FormatNum(++Sent, "0"));
        QTest::qWait(5);
    }
    CHECK(Paints.Count >= 1);
    CHECK(Paints.Count <= Watch.elapsed() / 100 + 2);
    CHECK(Sent > Paints.Count);
    CHECK(QTest::qWaitFor([&] { return Running.text() == "Frame " + QString::number(Sent); }));

    Panels.SetPanel(2, "reading");
    Panels.SetProgress(20);
    CHECK(Running.text() == "reading");
    Paints.Count = 0;
    Panels.SetPanel(2, "reading on");
    CHECK(Paints.Count == 0); // not by force
    Panels.SetProgress(30);
    CHECK(Paints.Count == 1);
    CHECK(Running.text() == "reading on");
    Panels.SetPanel(2, "still reading");
    CHECK_FALSE(Panels.IsCancelled());
    CHECK(Running.text() == "still reading");
}
