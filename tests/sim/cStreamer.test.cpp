// The live stream over a real socket and a real pseudo-terminal, and the answers to commands.
#include "sim/cStreamer.h"

#include "files/mMain.h"
#include "platform/plain/sSerialPort.h"
#include "platform/plain/sSocket.h"
#include "sim/mRecord.h"
#include "support/Case.h"

#include <unistd.h>

namespace {
const auto Port = static_cast<uint16_t>(20000 + getpid() % 20000);

// Listens on a loop: opens the far end again whenever it is gone, sends Command once, and keeps what comes.
class Listener
{
public:
    Listener(sEventLoop& Loop, const std::string& Terminal, const std::string& Command) : Serial(Loop), Socket(Loop)
    {
        Serial.OnData = [this] { Take(Serial.InBufferCount(), Serial, &iSerialPort::Input); };
        Serial.OnError = [this](const std::string&) { Serial.OnData(); };
        Socket.OnData = [this](std::size_t Count) { Take(Count, Socket, &iSocket::GetData); };
        Socket.OnConnect = [this, Command] {
            if (Times++ == 0) Socket.SendData(Command);
        };
        Loop.StartRepeating(10, [this, Terminal, Command] {
            if (Terminal.empty() && Socket.State() == eSocketState::Closed) Socket.Connect("127.0.0.1", Port);
            if (Terminal.empty() || Serial.IsOpen()) return;
            if (Serial.Open(Terminal, "115200,n,8,1", eWaiting::Kept) && Times++ == 0) Serial.Output(Command);
        });
    }

    std::string Got;
    int Times = 0;

private:
    template <class Link, class Input>
    void Take(std::size_t Count, Link& From, Input Bytes)
    {
        std::string Room(Count, '\0');
        (From.*Bytes)({reinterpret_cast<uint8_t*>(Room.data()), Count});
        Got += Room;
    }

    sSerialPort Serial;
    sSocket Socket;
};
} // namespace

TEST_CASE_FIXTURE(FreshState, "over a link that is cut everything arrives that was sent while it was there")
{
    REQUIRE(OpenSession(SOURCE_FOLDER "/demo/eight.txt"));
    for (const bool IsSerial : {false, true}) {
        CAPTURE(IsSerial);
        SimOptions Options;
        Options.Port = Port;
        if (IsSerial) Options.Terminal = Folder.Path("tty");
        Options.Sent = Folder.Path(IsSerial ? "serial.qvn" : "socket.qvn");
        Options.Seconds = 30;
        Options.Speed = 10;
        Options.Cut = 1;
        Options.Freq = 50;
        LoggerSettings Used;
        REQUIRE(SettleLogger(Options, gFile, Used) == "");
        sEventLoop Loop;
        cStreamer Streamer(Loop, Options, Used, gFile);
        REQUIRE(Streamer.OpenLine() == "");
        Listener Ear(Loop, Options.Terminal, "#SN?\r");
        Streamer.Run();
        Loop.Wait(100); // for what is still on its way
        const std::string Answer = "#SN: SIM-0001\r";
        const auto At = Ear.Got.find(Answer);
        REQUIRE(At != std::string::npos);
        CHECK(Ear.Times >= 2);
        CHECK(Ear.Got.erase(At, Answer.size()) == ReadWhole(Options.Sent));
    }
}

TEST_CASE("commands change the logger's mode and are answered")
{
    LoggerMode Mode = SwitchedOn({.SlaveCnt = 2}, 25);
    const LocalTime Now{2026, 3, 4, 5, 6, 7};
    const std::string Mask = "<0>,<E>,<E>,<E>,<E>,<E>,<E>,<E>,<E>";
    const std::tuple<std::string, std::string, bool, int> Cases[] = {
        {"#MODE?", "#MODE: 2,40,0\r", true, 25},
        {"#SETUP", "#SETUP: OK\r", false, 25},
        {"#MODE=2,10,0", "#MODE: 2,10,0\r", false, 100},
        {"#MODE=2,7,0", "#MODE: 2,10,0\r", false, 100},
        {"#CHMSK=<0>", "#CHMSK: <0>,<1A>,<1A>,<1A>,<1A>,<1A>,<1A>,<1A>,<1A>\r", false, 100},
        {"#CHMSK=" + Mask, "#CHMSK: " + Mask + "\r", false, 100},
        {"#PORTCFG=1,0", "#PORTCFG: 1,0\r", false, 100},
        {"#WLDEVCFG=9,1,00F3", "#ERR: WLDEVCFG=9,1,00F3\r", false, 100},
        {"#WLDEVCFG=1,1,00F3", "#WLDEVCFG: 1,1,00F3\r", false, 100},
        {"#WLDEVCFG?", "#WLDEVCFG: 0,1,00B9,048D,0013\r#WLDEVCFG: 1,1,00F3\r", false, 100},
        {"#BLCON", "", false, 100},
        {"#RUN", "", true, 100},
        {"#UTC?", "#UTC: 2026/03/04-05:06:07\r", true, 100},
        {"#UTC=2020/01/01-00:00:00", "#UTC: 2020/01/01-00:00:00\r", true, 100},
        {"#WHAT", "#ERR: #WHAT\r", true, 100}};
    for (const auto& [Command, Answer, IsRunning, Freq] : Cases) {
        CAPTURE(Command);
        std::string Text;
        for (const LoggerAnswer& Line : AnswerCommand(Command, Mode, Now))
            Text += Line.Text;
        CHECK(Text == Answer);
        CHECK(Mode.IsRunning == IsRunning);
        CHECK(FreqOf(Mode) == Freq);
    }
    CHECK(SpeedOf(Mode) == 256000);
    CHECK(LayoutOf(Mode, {.SlaveCnt = 2}).SlaveChans == 6);
    AnswerCommand("#RST", Mode, Now);
    CHECK(FreqOf(Mode) == 25);
    const auto Heard = AnswerCommand("#WLDEVFND=10", Mode, Now);
    CHECK((Heard.size() == 4 && Heard.back().Delay > 8000));
}
