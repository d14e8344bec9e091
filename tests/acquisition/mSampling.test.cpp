// The three frame sources: what each takes at once, how it decodes, what it records and what it shows.
#include "acquisition/mSampling.h"

#include "acquisition/LinkRecording.h"
#include "files/mStream.h"
#include "support/FullDisk.h"

#include <random>

namespace {
// Frames of both kinds with what a line may do to them, and what of it belongs into the recording.
struct Traffic
{
    std::string Sent;
    std::string Kept;

    explicit Traffic(std::mt19937& Random)
    {
        for (int i = 1; i <= 60; ++i) {
            std::string Frame = i % 3 == 0 ? ShortFrame(40 * i) : LongFrame(40 * i);
            if (Random() % 4 == 0) Sent += std::string(Random() % 90, '\x11'); // junk between frames
            if (Random() % 8 == 0) Frame[5 + Random() % 20] = '\x90';          // a byte turned into a sync byte
            Sent += Frame;
            Kept += Frame;
        }
    }
};
} // namespace

TEST_CASE_FIXTURE(Recording, "five frames of one arrival are all recorded and shown once, with the fifth in gData")
{
    Open(1);
    std::string Batch;
    for (int i = 1; i <= 5; ++i)
        Batch += LongFrame(40 * i);
    Socket.Feed(Batch);
    CHECK(Window.Drawn == 1);
    CHECK(Window.Sampled == std::vector{0.04, 0.08, 0.12, 0.16, 0.2});
    CHECK(gData[0] == 0.2);
    CHECK(gFrameCnt == 5);
    CHECK(Recorded() == Batch);
    CHECK(Panel(2) == "SampleTime=000.20s, Frequency=025.000Hz, Missed=0pc, ");

    SUBCASE("only the last frame's result counts")
    {
        std::string Bad = LongFrame(400);
        Bad[20] = '\xf0';
        Socket.Feed(Bad + LongFrame(240));
        CHECK(Window.Drawn == 2);
        Socket.Feed(LongFrame(280) + Bad);
        CHECK(Window.Drawn == 2);
        CHECK(Window.Sampled.size() == 7); // also the frame ahead of the bad one
        CHECK_FALSE(FrameSynced);
        CHECK(Recorded() == Batch + Bad + LongFrame(240) + LongFrame(280) + Bad);
    }
    SUBCASE("as many bytes as gFrameMin are left for the next arrival, and taken when the link ends")
    {
        gFrameMin = 39;
        Socket.Feed(LongFrame(240));
        CHECK(gFrameCnt == 5);
        Socket.Drop();
        CHECK(gFrameCnt == 6);
        CHECK(Window.Sampled.back() == 0.24);
        CHECK(Recorded() == Batch + LongFrame(240));
    }
    SUBCASE("a window that fails while it samples is reported once and left out until the next stream; others go on")
    {
        CountingWindow Other;
        Window.FailsInSample = true;
        Socket.Feed(LongFrame(240) + LongFrame(280));
        CHECK(Dialogs.Told ==
              Texts{"Error: Taking the frame failed: Overflow. Nothing that was stored has been changed."});
        CHECK(Window.Sampled.size() == 6);
        CHECK(Window.Drawn == 1);
        CHECK_FALSE(Window.IsShownLive);
        CHECK(Other.Sampled == std::vector{0.24, 0.28});
        CHECK(Other.Drawn == 1);
        CHECK(Recorded() == Batch + LongFrame(240) + LongFrame(280));
        Window.FailsInSample = false;
        Socket.Drop();
        Clock.Wait(600);
        Socket.Answer();
        Socket.Feed(LongFrame(320));
        CHECK(Window.Sampled.back() == 0.32);
        CHECK(Window.Drawn == 2);
    }
    SUBCASE("frames that come while a window asks a question go to the other windows, each once")
    {
        struct AskingWindow : CountingWindow
        {
            std::function<void()> Question;
            void TakeSample() override
            {
                CountingWindow::TakeSample();
                if (Question) std::exchange(Question, nullptr)();
            }
        } Asking;
        CountingWindow Last;
        Asking.Question = [this] { Socket.Feed(LongFrame(280) + LongFrame(320)); };
        Socket.Feed(LongFrame(240));
        CHECK(Asking.Sampled == std::vector{0.24});
        CHECK(Last.Sampled == std::vector{0.28, 0.32});
        Socket.Feed(LongFrame(360));
        CHECK(Asking.Sampled == std::vector{0.24, 0.36});
        CHECK(Last.Sampled == std::vector{0.28, 0.32, 0.36});
    }
}

TEST_CASE_FIXTURE(Recording, "on the serial line each frame has an event and is shown")
{
    Open(0);
    REQUIRE(gFrameMin == 39);
    Port.Feed(LongFrame(40) + "junk" + LongFrame(80) + LongFrame(120).substr(0, 38));
    CHECK(Port.Events == 2);
    CHECK(Window.Drawn == 2);
    CHECK(Window.Sampled == std::vector{0.04, 0.08});
    CHECK(Recorded() == LongFrame(40) + LongFrame(80));
    Port.Feed(LongFrame(120).substr(38));
    CHECK(Window.Drawn == 3);

    SUBCASE("a frame longer than gFrameMin is left until it is whole, and the event asked for at its size")
    {
        const std::string Longer = PlainFrame(160, 60);
        Port.Feed(Longer.substr(0, 50));
        CHECK(Port.RThreshold + 4 == Longer.size());
        Port.Feed(Longer.substr(50));
        CHECK(Port.RThreshold == 39);
        CHECK(Recorded() == LongFrame(40) + LongFrame(80) + LongFrame(120) + Longer);
    }
    SUBCASE(
        "a window that fails is reported once, though frames come while the message stands, and the recording goes on")
    {
        struct SlowReader : ScriptedDialogs
        {
            eAnswer MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons) override
            {
                const eAnswer Answer = ScriptedDialogs::MsgBox(Text, Title, Buttons);
                if (Told.size() < 3) Feed(LongFrame(200));
                return Answer;
            }
            std::function<void(const std::string&)> Feed;
        } Slow;
        Slow.Feed = [this](const std::string& Bytes) { Port.Feed(Bytes); };
        gHost.Dialogs = &Slow;
        Window.Fails = true;
        Port.Feed(LongFrame(160));
        CHECK(Window.Drawn == 4);
        CHECK(Slow.Told == Texts{"Error: Showing the frame failed: Division by zero. Nothing that was stored has been "
                                 "changed."});
        CHECK(Recorded().ends_with(LongFrame(160) + LongFrame(200)));
    }
    SUBCASE("a head that claims more than the buffer holds costs what has come, and the next frame is found")
    {
        std::string Liar = LongFrame(160);
        Liar[3] = 100;
        Port.Feed(Liar);
        CHECK_FALSE(FrameSynced);
        Port.Feed(LongFrame(200));
        CHECK(gSampleTime == 0.2);
        CHECK(Recorded() == LongFrame(40) + LongFrame(80) + LongFrame(120) + Liar + LongFrame(200));
    }
    SUBCASE("half a frame at the end of the link is no part of the recording, nor of the next link's stream")
    {
        Port.Feed(LongFrame(160).substr(0, 30));
        Port.Pull();
        Port.Plugged = {"/dev/ttyUSB0"};
        Clock.Wait(1000);
        REQUIRE(Port.IsOpen());
        Port.Feed(LongFrame(200));
        CHECK(Recorded() == LongFrame(40) + LongFrame(80) + LongFrame(120) + LongFrame(200));
    }
}

TEST_CASE_FIXTURE(Recording, "however the stream is cut, its frames are recorded byte for byte and its junk is not")
{
    std::mt19937 Random(7);
    for (const int16_t Connection : {int16_t{0}, int16_t{1}}) {
        StopAll();
        Path = Folder.Path(Connection == 1 ? "socket.qvn" : "serial.qvn");
        Open(Connection);
        for (int Round = 0; Round < 40; ++Round) {
            const Traffic Part(Random);
            const std::string Before = Recorded();
            for (std::size_t At = 0, Size = 0; At < Part.Sent.size(); At += Size) {
                Size = 1 + Random() % (Round % 2 == 0 ? 20 : 500);
                const std::string Piece = Part.Sent.substr(At, Size);
                Connection == 1 ? Socket.Feed(Piece) : Port.Feed(Piece);
            }
            TakeRest();
            REQUIRE(Recorded() == Before + Part.Kept);
        }
    }
}

TEST_CASE_FIXTURE(Recording, "the three frame sources tell short frames from long ones by different sizes")
{
    for (int16_t Source = 0; Source < 3; ++Source) {
        for (const int BodySize : {33, 34, 35}) {
            CAPTURE(Source);
            CAPTURE(BodySize);
            const std::string Bytes = PlainFrame(400, BodySize);
            REQUIRE(SaveWhole(Folder.Path("r.qvn"), Bytes));
            if (Source < 2) Open(Source, 69);
            if (Source == 0) Port.Feed(Bytes);
            if (Source == 1) Socket.Feed(Bytes);
            if (Source == 2) StartReplay(Folder.Path("r.qvn"));
            Timer1_Timer();
            StopAll();
            const bool IsShort = gSampleTime == 0; // the short decoder rounds to a whole second
            CHECK(IsShort == (BodySize == 33 || (BodySize == 34 && Source == 2)));
            CHECK(std::exchange(gSampleTime, -1) != -1);
        }
    }
}

TEST_CASE_FIXTURE(Recording,
                  "a replay with a log open makes an equal file less the junk, and closes everything at its end")
{
    std::mt19937 Random(3);
    const Traffic Part(Random);
    const std::string Tail = LongFrame(3000).substr(0, 20); // cut off by the end of the file
    REQUIRE(SaveWhole(Folder.Path("old.qvn"), "junk" + LongFrame(40) + Part.Sent + Tail));
    Open(0);
    StartReplay(Folder.Path("none.qvn"));
    CHECK(Port.IsOpen());
    StartReplay(Path);
    CHECK(Dialogs.Told == Texts{"Warning!: The recording is still running: " + Path});
    StartReplay(Folder.Path("old.qvn"));
    CHECK_FALSE(Port.IsOpen());
    gStrokeCnt = 7;
    gRate = 31.25;
    Clock.Wait(40);
    CHECK(gFromFile);
    CHECK(Window.Sampled == std::vector{0.04});
    CHECK(Panel(2).ends_with("Hz, Strokes=007, Rate=031.2"));
    SetReplayInterval(4);
    gReplaying = false;
    Clock.Wait(1000);
    CHECK(gFrameCnt == 1);
    gReplaying = true;
    Clock.Wait(4 * 63);
    CHECK(Window.IsUnloaded);
    CHECK_FALSE(gLogging);
    CHECK_FALSE(gReplaying);
    CHECK(Recorded() == LongFrame(40) + Part.Kept + Tail);
}

TEST_CASE_FIXTURE(Recording, "a file that is read beside a live link leaves the link's measures and values alone")
{
    const auto WordFrame = [](int Time, int Word11) {
        return LongFrame(Time).replace(34, 1, 1, static_cast<char>(Word11));
    };
    REQUIRE(SaveWhole(Folder.Path("old.qvn"), WordFrame(40, 7) + WordFrame(80, 8) + WordFrame(800, 9)));
    gFile.ChanCnt = 0;
    int32_t Start = 0;
    int32_t Stop = 0;
    REQUIRE(ReadRawFile(Folder.Path("old.qvn"), Start, Stop));
    CHECK(gLastGPS[0] == 9);
    CHECK(gSampleTime == 0.8);
    CHECK(gDeltaT == doctest::Approx(0.72));
    CHECK(gFrameCnt == 0);
    CHECK(gMissed == 0);

    Open(0);
    gFile.ChanCnt = 0;
    Port.Feed(WordFrame(100040, 5));
    REQUIRE(ReadRawFile(Folder.Path("old.qvn"), Start, Stop));
    CHECK(gRaw.UBound() > 0);
    CHECK(gLastGPS[0] == 5);
    CHECK(gData[11] == 5);
    CHECK(gSampleTime == 100.04);
    Port.Feed(PlainFrame(100080, 35));
    CHECK(gLastGPS[0] == 5);
    Port.Feed(LongFrame(100120));
    CHECK(gDeltaT == doctest::Approx(0.04));
    CHECK(Panel(2) == "SampleTime=100.12s, Frequency=025.000Hz, Missed=0pc, ");
    CHECK(gFrameCnt == 3);
}

TEST_CASE_FIXTURE(Recording,
                  "a recording into which nothing flows says so, and so do windows and status after a silence")
{
    Open(0);
    Port.Feed(LongFrame(40));
    CHECK(Window.IsShownLive);
    Clock.Wait(1200);
    CHECK_FALSE(Window.IsShownLive);
    CHECK_FALSE(IsLogStarving());
    CHECK(Panel(3) == "COM port 1");
    Clock.Wait(1000);
    CHECK(IsLogStarving());
    CHECK(Panel(2) == "RECORDING, BUT NOTHING ARRIVES");
    CHECK(Panel(3) == "COM port 1: no frames for 2 s");
    Port.Feed(LongFrame(80));
    Clock.Wait(200);
    CHECK_FALSE(IsLogStarving());
    CHECK(Panel(2).starts_with("SampleTime=000.08s"));
    CHECK(Panel(3) == "COM port 1");
    StopAll();
    Port.Pull();
    Clock.Wait(200);
    CHECK(Panel(2) == "No frames");
    CHECK(Panel(3) == "COM port 1 lost: the line was hung up. Trying again");
    const auto Notes = [this] { return std::count(Status.Shown.begin(), Status.Shown.end(), "2: No frames"); };
    const auto Once = Notes();
    Clock.Wait(5000);
    CHECK_FALSE(IsLogStarving());
    CHECK(Notes() == Once);
}

TEST_CASE_FIXTURE(Recording, "a full disk ends the recording with one message, and the windows go on")
{
    Open(0);
    {
        const FullDisk Full(100);
        Port.Feed(LongFrame(40) + LongFrame(80) + LongFrame(120) + LongFrame(160));
        CHECK(Dialogs.Told.empty());
        Clock.Wait(0);
        Port.Feed(LongFrame(200));
        Clock.Wait(1000);
    }
    CHECK(Dialogs.Told == Texts{"Error: Can't write Log file: " + Path +
                                " (File too large). The recording has stopped; what was recorded until now is whole."});
    CHECK_FALSE(gLogging);
    CHECK(Window.Drawn == 5);
    CHECK(Recorded() == LongFrame(40) + LongFrame(80));
}

TEST_CASE_FIXTURE(Recording, "ending the acquisition records what waits and closes recording, replay and link")
{
    CHECK_FALSE(IsAcquiring());
    Open(1);
    gFrameMin = 39;
    Socket.Feed(LongFrame(40)); // too short to be taken yet
    CHECK(IsAcquiring());
    EndAcquisition();
    CHECK_FALSE(IsAcquiring());
    CHECK_FALSE(gLogging);
    CHECK(Socket.State() == eSocketState::Closed);
    CHECK(Recorded() == LongFrame(40));
    CHECK(Window.Sampled == std::vector{0.04});
    CHECK(gData[0] == 0);
    StartReplay(Path);
    CHECK(IsAcquiring());
    EndAcquisition();
    CHECK_FALSE(IsReplayOpen());
    CHECK_FALSE(IsAcquiring());
}
