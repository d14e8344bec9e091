// The link to a monitor: its steps at chosen times, and its thread.
#include "ergometer/cMonitorLink.h"

#include "support/Case.h"
#include "support/ScriptedMonitor.h"

namespace {
Texts TextsOf(const std::vector<PMLine>& Lines)
{
    Texts All;
    for (const PMLine& Each : Lines)
        All.push_back(std::to_string(Each.Tick) + " " + std::to_string(Each.Box) + " " + Each.Text.substr(0, 20));
    return All;
}

// Waits for something that another thread brings about.
template <class Check>
bool Comes(const Check& IsThere)
{
    const int64_t End = cMonitorLink::Now() + 5000;
    while (!IsThere() && cMonitorLink::Now() < End)
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    return IsThere();
}

struct Link : ScriptedMonitor
{
    cMonitorLink Own;

    Link()
    {
        Own.Use(this);
        Own.KeepNews(true);
    }
    ~Link()
    {
        Stalls = false;
        Own.Use(nullptr);
    }
    bool IsConnected() const { return Own.Snapshot().IsConnected(cMonitorLink::Now()); }
};
} // namespace

TEST_CASE("discovery says what it found, in the words of the window")
{
    ScriptedMonitor Monitor;
    cPMPoll Poll(&Monitor);
    SUBCASE("a unit is opened and tells its versions")
    {
        Poll.Discover();
        CHECK(TextsOf(Poll.TakeLines()) == Texts{"0 0 Initialised....."});
        const PMUnitInfo& Unit = Poll.Now().Unit;
        CHECK((Unit.PMCount == 1 && Unit.PMInitMsg == "Init 0k!"));
        CHECK(Unit.Product + " " + Unit.PMSerial + " " + Unit.PMHWVersion + " " + Unit.PMFWVersion ==
              "Monitor A 43001 339 27");
        CHECK(Poll.Now().Text(0) == "The monitor \"Monitor A\" is ready.");
        Poll.Shutdown();
        Poll.Shutdown();
        CHECK(TextsOf(Poll.TakeLines()) == Texts{"0 0 Shutdown Complete...", "0 0 No SDK Shutdown!...."});
    }
    SUBCASE("none is there")
    {
        Monitor.IsAttached = false;
        Poll.Discover();
        CHECK(TextsOf(Poll.TakeLines()) == Texts{"0 0 No PMs detected....."});
        CHECK(Poll.Now().State == ePMState::NoUnits);
    }
    SUBCASE("one may not be opened")
    {
        Monitor.IsRefused = true;
        Poll.Discover();
        CHECK(Poll.TakeLines().empty());
        CHECK(Poll.Now().Unit.PMInitMsg == "CSAFE Init Error(6)");
        const Texts Reports = Poll.TakeReports();
        REQUIRE(Reports.size() == 1);
        CHECK(Reports[0].starts_with("The monitor \"Monitor A\" cannot be opened (Permission denied)."));
    }
    SUBCASE("the program has no way to any")
    {
        cPMPoll None(nullptr);
        None.Discover();
        CHECK(TextsOf(None.TakeLines()) == Texts{"0 0 No PMs detected....."});
        CHECK(None.TakeReports().size() == 1);
        None.SetPolling(true, 0);
        None.Tick(20);
        CHECK(None.Now().State == ePMState::NoUnits);
    }
}

TEST_CASE("a unit that goes away is reported once, looked for once a second, and goes on when it is back")
{
    ScriptedMonitor Monitor;
    cPMPoll Poll(&Monitor);
    CHECK(Poll.Now().FiguresText(0) == "No performance monitor is connected");
    Poll.Discover();
    Poll.SetPolling(true, 0);
    Monitor.State = StateDriving;
    Poll.Tick(20);
    Poll.TakeLines();
    CHECK(Poll.Now().IsConnected(1020));
    CHECK(Poll.Now().FiguresText(1020) == "02:01.0 /500 m    28 /min    175 W    drive");
    CHECK(Poll.Now().FiguresText(1021) == "The monitor \"Monitor A\" does not answer.");
    Monitor.IsAttached = false;
    int64_t T = 40;
    for (; T < 3000; T += PollMs)
        Poll.Tick(T);
    CHECK(Poll.TakeReports() == Texts{"The monitor \"Monitor A\" was unplugged."});
    CHECK_FALSE(Poll.Now().Figures);
    CHECK(Poll.Now().Text(T) == "The monitor \"Monitor A\" was unplugged; polling goes on when it is back.");
    Monitor.IsAttached = true;
    const int64_t Back = T;
    while (!Poll.Now().Figures && T < Back + 5000)
        Poll.Tick(T += PollMs);
    CHECK(T <= Back + 1100);
    CHECK(Poll.TakeReports() == Texts{"The monitor \"Monitor A\" is back."});
    CHECK(Poll.Now().IsConnected(T));
    CHECK(Poll.TakeLines().empty()); // nothing has changed since
    CHECK(Monitor.Opened == 2);
}

TEST_CASE("exchanges that fail change nothing, and one report stands for a row of them")
{
    ScriptedMonitor Monitor;
    cPMPoll Poll(&Monitor);
    Poll.Discover();
    Poll.SetPolling(true, 0);
    Poll.Tick(20);
    Poll.TakeLines();
    const std::vector<std::tuple<std::atomic<bool>*, const char*, bool>> Ways = {
        {&Monitor.IsMute, "CSAFE Command Error.  Command = 166", true},
        {&Monitor.IsBroken, "An answer of the monitor \"Monitor A\" was left out: the checksum is wrong.", false}};
    int64_t T = 20;
    for (const auto& [Way, Text, IsSilent] : Ways) {
        *Way = true;
        Monitor.Drives = 7;
        for (int i = 0; i < 60; ++i)
            Poll.Tick(T += PollMs);
        CHECK(Poll.TakeLines().empty());
        CHECK(Poll.Now().IsSilent(T) == IsSilent);
        const Texts Reports = Poll.TakeReports();
        REQUIRE(Reports.size() == 1);
        CHECK(Reports[0].starts_with(Text));
        *Way = false;
        Monitor.Drives = 0;
        Poll.Tick(T += PollMs);
        CHECK_FALSE(Poll.Now().IsSilent(T));
    }
    CHECK(Poll.Now().Failures == 120);
}

TEST_CASE("a monitor that stalls holds nobody up, is seen to be silent, and goes on")
{
    Link Monitor;
    Monitor.Own.Attach();
    Monitor.Own.SetPolling(true); // without a discovery: it looks for a unit itself
    REQUIRE(Comes([&] { return Monitor.IsConnected(); }));
    Monitor.Stalls = true;
    const int64_t Begin = cMonitorLink::Now();
    for (int i = 0; i < 100; ++i)
        Monitor.Own.Snapshot(), Monitor.Own.Take();
    Monitor.Own.Discover();
    Monitor.Own.SetPolling(false);
    Monitor.Own.SetPolling(true);
    CHECK(cMonitorLink::Now() - Begin < 500);
    CHECK(Comes([&] { return !Monitor.IsConnected(); }));
    CHECK(cMonitorLink::Now() - Begin >= AnswerMs - 100);
    CHECK(Monitor.Own.Snapshot().Text(cMonitorLink::Now()) == "The monitor \"Monitor A\" does not answer.");
    Monitor.Stalls = false;
    CHECK(Comes([&] { return Monitor.IsConnected(); }));
    Monitor.Own.Detach(); // the last window: the link is shut down
    CHECK(Comes([&] { return Monitor.Own.Snapshot().State == ePMState::Closed; }));
}

TEST_CASE("no change of the stroke is lost between two looks of the window")
{
    Link Monitor;
    Monitor.Own.Discover();
    Monitor.Own.SetPolling(true);
    REQUIRE(Comes([&] { return Monitor.IsConnected(); }));
    for (int Drive = 1; Drive <= 5; ++Drive) {
        Monitor.Drives = Drive;
        const int Before = Monitor.Polls;
        REQUIRE(Comes([&] { return Monitor.Polls > Before + 2; }));
    }
    std::size_t Lines = 0;
    for (const PMLine& Line : Monitor.Own.Take().Lines)
        if (Line.Box == 2) ++Lines;
    CHECK(Lines == 6); // with the first answer
    Monitor.Own.KeepNews(false);
    const int Before = Monitor.Polls;
    Monitor.Drives = 99;
    REQUIRE(Comes([&] { return Monitor.Polls > Before + 2; }));
    CHECK(Monitor.Own.Take().Lines.empty());
}
