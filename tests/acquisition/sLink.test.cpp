// The engine's own links over a real pseudo-terminal and a real connection.
#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "platform/plain/sSerialPort.h"
#include "platform/plain/sSocket.h"
#include "support/Case.h"
#include "support/LinkChecks.h"
#include "support/LinkPeers.h"
#include "support/ScriptedLink.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {
struct PlainLoop
{
    sEventLoop Loop;
    LinkWait Wait = [this](int Milliseconds) { Loop.Wait(Milliseconds); };
};
} // namespace

TEST_CASE_FIXTURE(PlainLoop, "a plain serial port reports bytes from its threshold on, and again of those left")
{
    sSerialPort Port(Loop);
    CheckSerialPort(Port, Wait);
}

TEST_CASE_FIXTURE(PlainLoop, "a plain serial line that hangs up is reported once, and gives what came before")
{
    sSerialPort Port(Loop);
    CheckHangUps(Port, Wait);
}

TEST_CASE_FIXTURE(PlainLoop, "two programs do not share a serial line, and what is no line is refused")
{
    const TempFolder Folder;
    const PseudoTerminal Line(Folder.Path("port"));
    sSerialPort First(Loop), Second(Loop);
    REQUIRE(First.Open(Folder.Path("port"), "57600,n,8,1", eWaiting::Dropped));
    CHECK_FALSE(Second.Open(Folder.Path("port"), "57600,n,8,1", eWaiting::Dropped));
    CHECK_FALSE(First.Open("/dev/null", "57600,n,8,1", eWaiting::Dropped));
    CHECK(Second.Open(Folder.Path("port"), "57600,n,8,1", eWaiting::Dropped));
}

TEST_CASE_FIXTURE(PlainLoop, "parity, stop bits and speed of a line are those of its settings")
{
    const TempFolder Folder;
    const PseudoTerminal Line(Folder.Path("port")); // which has no parity bit and no seven bits
    sSerialPort Port(Loop);
    CHECK(std::abs(Loop.Now().Year - 1970 - static_cast<int>(time(nullptr) / 31556952)) <= 1);
    const std::tuple<const char*, bool, tcflag_t> Cases[] = {
        {"9600,n,8,1", true, 0},      {"9600,e,8,1", true, 0},
        {"9600,o,8,1", true, PARODD}, {"9600,O,8,2", true, PARODD | CSTOPB},
        {"1,n,8,2", true, CSTOPB},    {"4000000,n,8,1", true, 0},
        {"4000001,n,8,1", false, 0},  {"0,n,8,1", false, 0},
        {"9600,n,8", false, 0},       {"9600,n,8,1,1", false, 0}};
    for (const auto& [Settings, IsOpen, Flags] : Cases) {
        CAPTURE(Settings);
        CHECK(Port.Open(Folder.Path("port"), Settings, eWaiting::Dropped) == IsOpen);
        const int File = open(Folder.Path("port").c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK);
        termios Set{};
        tcgetattr(File, &Set);
        close(File);
        if (IsOpen) CHECK((Set.c_cflag & (PARODD | CSTOPB)) == Flags);
        Port.Close();
    }
}

TEST_CASE_FIXTURE(PlainLoop, "a plain socket reports connection, data, close and breaks")
{
    sSocket Socket(Loop);
    CheckSocket(Socket, Wait);
}

namespace {
// A recording over real connections to a logger that falls silent without closing, on a clock that the case moves.
struct SilentLogger : LinkState
{
    sEventLoop Loop;
    sSocket First{Loop};
    sSocket Second{Loop};
    LoopbackServer Server;
    CountingWindow Window;

    SilentLogger()
    {
        gHost.Socket = &First;
        InitSampling(&Second);
        gConnection = 1;
        gLinkAddress = "127.0.0.1";
        gLinkPort = Server.Port();
        REQUIRE(OpenLog(Folder.Path("a.qvn"), OldBytes::Kept));
        REQUIRE(OpenLink());
        SendRun();
        REQUIRE(Until([this] { return Server.Accept(); }));
        REQUIRE(Until([this] { return Server.Take() == "#RUN\r"; }));
        Server.Send(LongFrame(40) + LongFrame(80));
        REQUIRE(Until([this] { return Window.Sampled.size() == 2; }));
        Clock.Wait(4200);
        REQUIRE(Until([this] { return Server.AcceptBeside(); }));
        REQUIRE(Until([this] { return Server.Take() == "#RUN\r"; }));
    }
    ~SilentLogger()
    {
        StopAll();
        DropLink();
        gHost.Socket = &Socket;
        InitSampling(&SecondSocket);
    }
    template <class Condition>
    bool Until(const Condition& Holds)
    {
        for (int Turn = 0; Turn < 5000; ++Turn) {
            if (Holds()) return true;
            Loop.Wait(1);
        }
        return false;
    }
    std::string Recorded() const { return ReadWhole(Folder.Path("a.qvn")).value_or("none"); }
};
} // namespace

TEST_CASE_FIXTURE(SilentLogger, "a second real connection takes over from one that fell silent without closing")
{
    Server.Send(LongFrame(6000) + LongFrame(6040));
    CHECK(Until([this] { return Window.Sampled.size() == 4; }));
    CHECK(Recorded() == LongFrame(40) + LongFrame(80) + LongFrame(6000) + LongFrame(6040));
    CHECK(Until([this] { return Server.IsFirstClosed(); }));
    CHECK(gLinkWatch.State() == cLinkWatch::eState::Open);
}

TEST_CASE_FIXTURE(SilentLogger, "a real connection that speaks again keeps its place, and nothing of it is lost")
{
    Server.ServeFirst();
    Server.Send(LongFrame(120) + LongFrame(160));
    CHECK(Until([this] { return Window.Sampled.size() == 4; }));
    CHECK(Recorded() == LongFrame(40) + LongFrame(80) + LongFrame(120) + LongFrame(160));
    CHECK(Until([this] { return Server.IsFirstClosed(); })); // after the change of places: the second
}
