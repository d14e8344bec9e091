// The live stream over a real socket and a real pseudo-terminal, and the answers to commands.
#include "sim/cStreamer.h"

#include "core/mMain.h"
#include "sim/mRecord.h"
#include "support/Case.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
constexpr uint16_t Port = 16483;

// Listens on a loop: opens the far end again whenever it is gone, sends Command once, and keeps what comes.
class Listener
{
public:
    Listener(sEventLoop& EventLoop, std::string Path, std::string Text)
        : Loop(EventLoop), Terminal(std::move(Path)), Command(std::move(Text))
    {
        Loop.StartRepeating(10, [this] { Open(); });
    }

    std::string Got;
    int Times = 0;

private:
    int Dial() const
    {
        if (!Terminal.empty()) return open(Terminal.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        const int New = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in Address{};
        Address.sin_family = AF_INET;
        Address.sin_port = htons(Port);
        Address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (connect(New, reinterpret_cast<const sockaddr*>(&Address), sizeof Address) == 0) return New;
        close(New);
        return -1;
    }

    void Open()
    {
        if (File >= 0 || (File = Dial()) < 0) return;
        if (Times++ == 0) CHECK(write(File, Command.data(), Command.size()) == static_cast<ssize_t>(Command.size()));
        Loop.Watch(File, POLLIN, [this](short) { Take(); });
    }

    void Take()
    {
        char Room[4096];
        const ssize_t Count = read(File, Room, sizeof Room);
        if (Count > 0) {
            Got.append(Room, static_cast<std::size_t>(Count));
            return;
        }
        Loop.Unwatch(File);
        close(File);
        File = -1;
    }

    sEventLoop& Loop;
    std::string Terminal;
    std::string Command;
    int File = -1;
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
    LoggerMode Mode;
    const LocalTime Now{2026, 3, 4, 5, 6, 7};
    const std::tuple<const char*, const char*, bool, int> Cases[] = {
        {"#MODE?", "#MODE: 2,40,0\r", true, 25},
        {"#SETUP<CR>", "#SETUP: OK\r", false, 25},
        {"#MODE=2,10,0", "#MODE: 2,10,0\r", false, 100},
        {"#MODE=2,7,0", "#MODE: 2,10,0\r", false, 100},
        {"#RUN", "", true, 100},
        {"#UTC?", "#UTC: 2026/03/04-05:06:07\r", true, 100},
        {"#UTC=2020/01/01-00:00:00", "#UTC: 2020/01/01-00:00:00\r", true, 100},
        {"#WHAT", "#ERR: #WHAT\r", true, 100}};
    for (const auto& [Command, Answer, IsRunning, Freq] : Cases) {
        CAPTURE(Command);
        CHECK(AnswerCommand(Command, Mode, Now) == Answer);
        CHECK(Mode.IsRunning == IsRunning);
        CHECK(Mode.Freq == Freq);
    }
}
