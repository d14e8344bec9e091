// The recorder as a process of its own, over real links that are cut, with signals, a full disk and a kill.
#include "support/Case.h"
#include "support/LinkPeers.h"

#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
// A recorder at work in a folder with a session, and what a logger sends.
class Boat : public TempFolder
{
public:
    Boat()
    {
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/single.txt", Path("single.txt"));
        REQUIRE(Wait(Start("skarvelin-sim", {"--file", Path("a.qvn"), Path("single.txt"), "--strokes=12"})) == 0);
        Frames = Bytes("a.qvn");
        REQUIRE(Frames.size() > 10000);
    }
    ~Boat()
    {
        if (Recorder > 0) End(SIGKILL);
    }
    Boat(const Boat&) = delete;
    Boat& operator=(const Boat&) = delete;

    void Record(const std::string& Link, const std::string& Place, const std::string& Seconds = "0",
                rlim_t Room = RLIM_INFINITY)
    {
        Recorder =
            Start("skarvelin-batch",
                  {"record", Path("single.txt"), Link, Place, "--out", Path("new.qvn"), "--seconds", Seconds}, Room);
    }

    /// The exit code, or less than 0 by a signal.
    int End(int Signal)
    {
        if (Signal != 0) kill(Recorder, Signal);
        return Wait(std::exchange(Recorder, 0));
    }

    bool Until(const std::function<bool()>& Holds) const
    {
        for (int Turn = 0; Turn < 5000; ++Turn) {
            if (Holds()) return true;
            usleep(2000);
        }
        return false;
    }
    bool HasRecorded(const std::string& Expected) const
    {
        return Until([&] { return Bytes("new.qvn").size() >= Expected.size(); }) && Bytes("new.qvn") == Expected;
    }

    /// Part of the stream from about one place to another, in whole frames.
    std::string Stretch(double From, double To) const
    {
        const auto Sync = [&](double Part) {
            return std::min(Frames.find('\x80', static_cast<std::size_t>(static_cast<double>(Frames.size()) * Part)),
                            Frames.size());
        };
        return Frames.substr(Sync(From), Sync(To) - Sync(From));
    }
    std::string Bytes(const std::string& Name) const { return ReadWhole(Path(Name)).value_or("(none)"); }
    std::string Told() const { return Bytes("told"); }

private:
    pid_t Start(const std::string& Program, std::vector<std::string> Words, rlim_t Room = RLIM_INFINITY) const
    {
        const std::string File = std::string(PROGRAM_FOLDER "/") + Program;
        const std::string Messages = Path("told");
        std::vector<char*> Line{const_cast<char*>(File.c_str())};
        for (std::string& Word : Words)
            Line.push_back(Word.data());
        Line.push_back(nullptr);
        const pid_t Child = fork();
        if (Child != 0) return Child;
        const rlimit Limit{Room, Room};
        setrlimit(RLIMIT_FSIZE, &Limit);
        dup2(open(Messages.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execv(File.c_str(), Line.data());
        _exit(127);
    }
    static int Wait(pid_t Child)
    {
        int Status = 0;
        waitpid(Child, &Status, 0);
        return WIFEXITED(Status) ? WEXITSTATUS(Status) : -WTERMSIG(Status);
    }

    std::string Frames;
    pid_t Recorder = 0;
};
} // namespace

TEST_CASE("a wireless recording goes on in its file when the link was cut, ends with a signal, and changes no session")
{
    Boat Single;
    LoopbackServer Logger;
    const std::string Session = Single.Bytes("single.txt");
    Single.Record("--tcp", "127.0.0.1:" + std::to_string(Logger.Port()));
    for (int Part = 0; Part < 3; ++Part) {
        REQUIRE(Single.Until([&] { return Logger.Accept(); }));
        Logger.Send("junk\r\n" + Single.Stretch(Part * 0.3, Part * 0.3 + 0.3));
        if (Part == 2) break;
        Logger.Send(Single.Stretch(0.9, 1).substr(0, 20));
        // With the command unread the drop becomes a reset.
        if (Part == 0) REQUIRE(Single.Until([&] { return Logger.Take() == "#RUN\r"; }));
        Logger.Drop();
    }
    CHECK(Single.HasRecorded(Single.Stretch(0, 0.9)));
    int Signal = SIGTERM;
    SUBCASE("a kill loses nothing that was read")
    {
        Signal = SIGKILL;
    }
    CHECK(Single.End(Signal) == (Signal == SIGKILL ? -SIGKILL : 0));
    CHECK(Single.Bytes("new.qvn") == Single.Stretch(0, 0.9));
    CHECK(Single.Bytes("single.txt") == Session);
    const std::string Told = Single.Told();
    CHECK(Told.find(" lost: closed by the logger. Trying again\n") != std::string::npos);
    CHECK(Told.find(" lost: Connection reset by peer. Trying again\n") != std::string::npos);
    CHECK(Told.find(" is back\n") != std::string::npos);
}

TEST_CASE("a serial recording goes on in its file when the adapter was pulled and put back")
{
    Boat Single;
    PseudoTerminal Line(Single.Path("ttyUSB0"));
    Single.Record("--serial", Single.Path("ttyUSB0"));
    // The command to stream is the sign that the port is open; what was sent before would be dropped.
    REQUIRE(Single.Until([&] { return Line.Take() == "#RUN\r"; }));
    Line.Send(Single.Stretch(0, 0.5));
    REQUIRE(Single.HasRecorded(Single.Stretch(0, 0.5)));
    Line.Pull();
    REQUIRE(Single.Until([&] { return Single.Told().find(" lost: ") != std::string::npos; }));
    Line.PutBack();
    Line.Send(Single.Stretch(0.5, 0.6)); // ahead of the next try
    REQUIRE(Single.Until([&] { return Line.Take() == "#RUN\r"; }));
    Line.Send(Single.Stretch(0.6, 1));
    CHECK(Single.HasRecorded(Single.Stretch(0, 1)));
    CHECK(Single.End(SIGINT) == 0);
}

TEST_CASE("a recording without a logger, without a port or without room says so and fails")
{
    Boat Single;
    REQUIRE(SaveWhole(Single.Path("new.qvn"), "an older recording"));
    SUBCASE("no logger")
    {
        LoopbackServer Nobody;
        Nobody.StopListening();
        Single.Record("--tcp", "127.0.0.1:" + std::to_string(Nobody.Port()), "0.5");
        CHECK(Single.End(0) == 1);
        CHECK(Single.Told().find("Error: No frame came, nothing was recorded: ") != std::string::npos);
        CHECK(Single.Bytes("new.qvn") == "an older recording");
    }
    SUBCASE("no port")
    {
        Single.Record("--serial", Single.Path("none"));
        CHECK(Single.End(0) == 1);
        CHECK(Single.Told().ends_with("Error: Can't open serial port: " + Single.Path("none") +
                                      " (not there, or another program has it)\n"));
        CHECK(Single.Bytes("new.qvn") == "an older recording");
    }
    SUBCASE("no room")
    {
        LoopbackServer Logger;
        Single.Record("--tcp", "127.0.0.1:" + std::to_string(Logger.Port()), "0", 4000);
        REQUIRE(Single.Until([&] { return Logger.Accept(); }));
        Logger.Send(Single.Stretch(0, 1));
        CHECK(Single.End(0) == 1);
        const std::string Kept = Single.Bytes("new.qvn");
        CHECK(Kept.size() > 3500);
        CHECK(Single.Stretch(0, 1).starts_with(Kept + "\x80"));
        CHECK(Single.Told().find("(File too large). The recording has stopped") != std::string::npos);
    }
}
