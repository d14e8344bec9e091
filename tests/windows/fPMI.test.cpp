// The performance monitor's window, clicked while a monitor answers, is unplugged and comes back.
#include "ShellState.h"
#include "ergometer/cMonitorLink.h"
#include "support/ScriptedMonitor.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {
struct MonitorWindow : ShellState
{
    ScriptedMonitor Monitor;

    MonitorWindow()
    {
        gMonitorLink.Use(&Monitor);
        Start();
        Choose("mnuSampleMonitor");
    }
    ~MonitorWindow() { gMonitorLink.Use(nullptr); }

    std::string Text(const char* Name) { return Plain(Find<QPlainTextEdit>(Name).toPlainText()); }
    std::string Label(const char* Name) { return Plain(Find<QLabel>(Name).text()); }
    bool IsEnabled(const char* Name) { return Find<QWidget>(Name).isEnabled(); }
};
} // namespace

TEST_CASE_FIXTURE(MonitorWindow, "without a monitor the window says so, and polling cannot be started")
{
    Monitor.IsAttached = false;
    CHECK(Find<QPushButton>("Command2").text() == "Start Polling");
    CHECK(!IsEnabled("Command2"));
    Click("Command1");
    REQUIRE(QTest::qWaitFor([&] { return !Text("Text1").empty(); }));
    CHECK(Text("Text1") == "No PMs detected.....");
    CHECK(Text("Text2") == "No PMs detected.....");
    CHECK(!IsEnabled("Command2"));
    CHECK(Label("lbState").starts_with("No performance monitor is attached."));
}

TEST_CASE_FIXTURE(MonitorWindow, "a monitor is discovered, polled, unplugged, found again and shut down by clicks")
{
    Click("Command1");
    REQUIRE(QTest::qWaitFor([&] { return IsEnabled("Command2"); }));
    CHECK(Text("Text1") == "Initialised.....");
    CHECK(Label("lbUnit") == "Monitor A, serial number 43001, hardware 339, firmware 27");
    Monitor.State = 2;
    Monitor.Drives = 1;
    Click("Command2");
    REQUIRE(QTest::qWaitFor([&] { return Label("lbPace") == "02:01.0" && IsEnabled("lbPace"); }));
    CHECK(Find<QPushButton>("Command2").text() == "Stop Polling");
    CHECK(Label("lbStrokeState") == "drive");
    Monitor.State = 3;
    REQUIRE(QTest::qWaitFor([&] { return Label("lbStrokeState") == "dwelling"; }));
    const std::string Line = "02:01.0, 28, 175, 3, 0:00:10.10, 50.7, 8.75, 0.94, 1.22, 1.4, 1";
    CHECK(Text("Text1").ends_with("\n" + Line));
    CHECK(Find<QPlainTextEdit>("Text1").blockCount() == 3);
    CHECK(Find<QPlainTextEdit>("Text2").blockCount() == 2);
    Monitor.IsAttached = false;
    REQUIRE(QTest::qWaitFor([&] { return !IsEnabled("lbPace"); }));
    CHECK(Label("lbReport") == "The monitor \"Monitor A\" was unplugged.");
    Monitor.IsAttached = true;
    REQUIRE(QTest::qWaitFor([&] { return IsEnabled("lbPace"); }));
    CHECK(Label("lbReport") == "The monitor \"Monitor A\" is back.");
    Click("Command2");
    REQUIRE(QTest::qWaitFor([&] { return Find<QPushButton>("Command2").text() == "Start Polling"; }));
    Click("Command3");
    REQUIRE(QTest::qWaitFor([&] { return !IsEnabled("Command2"); }));
    CHECK(Text("Text2").ends_with("\nShutdown Complete....."));
}

TEST_CASE_FIXTURE(MonitorWindow, "a stalled monitor does not keep the window from closing")
{
    Click("Command1");
    REQUIRE(QTest::qWaitFor([&] { return IsEnabled("Command2"); }));
    Click("Command2");
    REQUIRE(QTest::qWaitFor([&] { return Monitor.Polls > 0; }));
    Monitor.Stalls = true;
    REQUIRE(QTest::qWaitFor([&] { return Label("lbState").ends_with("does not answer."); }));
    CHECK(!IsEnabled("lbPace"));
    QTest::keyClick(&Find<QWidget>("fPMI"), Qt::Key_Escape);
    QTest::qWait(10);
    CHECK(!Main.findChild<QWidget*>("fPMI"));
    Monitor.Stalls = false;
    REQUIRE(QTest::qWaitFor([&] { return gMonitorLink.Snapshot().State == ePMState::Closed; }));
}
