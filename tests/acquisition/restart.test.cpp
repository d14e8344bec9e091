// A logger that is started again while its link is open or its recording is played.
#include "acquisition/LinkRecording.h"
#include "acquisition/mSampling.h"

TEST_CASE_FIXTURE(Recording, "a logger that was started again begins a new run on a live link, in the same recording")
{
    std::string Sent;
    for (const int Time : {600000, 600040, 600400, 0, 40, 80})
        Sent += LongFrame(Time);
    for (const int16_t Connection : {int16_t{0}, int16_t{1}}) {
        CAPTURE(Connection);
        StopAll();
        gFrameCnt = gMissed = 0;
        Path = Folder.Path(Connection == 1 ? "socket.qvn" : "serial.qvn");
        Open(Connection);
        Window.Runs.clear();
        gFirstCycle = false;
        Connection == 1 ? Socket.Feed(Sent) : Port.Feed(Sent);
        TakeRest();
        CHECK(Window.Runs == std::vector{0.0});
        CHECK(gFirstCycle);
        CHECK(gFrameCnt == 3);
        CHECK(Panel(2) == "SampleTime=000.08s, Frequency=025.000Hz, Missed=0pc, ");
        CHECK(gDeltaT == doctest::Approx(0.04));
        CHECK(Recorded() == Sent);
    }
}

TEST_CASE_FIXTURE(Recording, "only a clock that runs back by more than a second, and stays there, begins a new run")
{
    Open(0);
    const auto RunsOf = [this](const std::vector<int>& Times) {
        gLinkStream.FrameCnt = 0;
        Window.Runs.clear();
        for (const int Time : Times)
            Port.Feed(LongFrame(Time));
        return Window.Runs;
    };
    CHECK(RunsOf({5000, 4000}).empty());
    CHECK(RunsOf({5000, 3999}) == std::vector{3.999});
    CHECK(RunsOf({5000, 5040, 900000, 5080, 5120}).empty()); // one frame with a wrong time
    CHECK(RunsOf({5000, 5040, 900000, 0, 40}) == std::vector{0.0});
    // The link was cut and came back in the meantime.
    Port.Feed(LongFrame(7000) + LongFrame(7040));
    Port.Pull();
    Port.Plugged = {"/dev/ttyUSB0"};
    Clock.Wait(1000);
    Window.Runs.clear();
    Port.Feed(LongFrame(40));
    CHECK(Window.Runs == std::vector{0.04});
}

TEST_CASE_FIXTURE(Recording, "a clock that runs back in a file that is played begins no new run")
{
    REQUIRE(SaveWhole(Folder.Path("old.qvn"), LongFrame(9000) + LongFrame(40) + LongFrame(80)));
    StartReplay(Folder.Path("old.qvn"));
    Clock.Wait(3 * ReplayInterval);
    CHECK(gFrameCnt == 3);
    CHECK(Window.Runs.empty());
}
