// The logger's set-up without a window, as a process of its own against the simulated logger over real links.
#include "Programs.h"
#include "support/LinkPeers.h"

#include <algorithm>
#include <csignal>
#include <unistd.h>

namespace {
// A folder with a session and a simulated logger.
class Bench : public ProgramFolder
{
public:
    Bench() : ProgramFolder({"eight.txt"}) {}
    ~Bench() { Stop(); }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    void Simulate(const std::string& Fault, bool IsSerial)
    {
        Stop();
        Link = IsSerial ? "--serial " + Path("tty") : "--tcp 127.0.0.1:" + Port;
        const std::string Where = IsSerial ? "--pty " + Path("tty") : "--tcp " + Port;
        const std::string Command = "'" PROGRAM_FOLDER "/skarvelin-sim' " + Where + " " + Fault + " " +
                                    Path("eight.txt") + " >" + Path("sim.log") + " & echo $! >" + Path("pid");
        REQUIRE(std::system(Command.c_str()) == 0);
        for (int Turn = 0; Turn < 2500 && Bytes("sim.log").find("Streaming") == std::string::npos; ++Turn)
            usleep(2000);
    }
    void Stop()
    {
        if (std::filesystem::exists(Path("pid"))) kill(static_cast<pid_t>(Val(Bytes("pid"))), SIGTERM);
        for (int Turn = 0; Turn < 2500 && Bytes("sim.log").find("frames sent") == std::string::npos; ++Turn)
            usleep(2000);
        std::filesystem::remove(Path("pid"));
        std::filesystem::remove(Path("sim.log"));
    }
    Outcome Logger(const std::string& Words) const { return Batch("logger eight.txt " + Link + " " + Words); }

    std::string Link;

private:
    std::string Port = std::to_string(20000 + getpid() % 20000);
};
} // namespace

TEST_CASE("commands are answered over serial line and TCP, by a slow logger and one that stops within a frame too")
{
    Bench Folder;
    for (const bool IsSerial : {true, false})
        for (const char* Fault : {"", "--slow-answers", "--split-answers"}) {
            CAPTURE(IsSerial);
            CAPTURE(std::string(Fault));
            Folder.Simulate(Fault, IsSerial);
            const Outcome Done = Folder.Logger("--wait 0.8 '#SN?' '#MODE=2,40,0' '#MODE?' '#WHAT'");
            CHECK(Done.Exit == 0);
            CHECK(Done.Out == "#SETUP: OK\n#SN: SIM-0001\n#MODE: 2,40,0\n#MODE: 2,40,0\n#ERR: #WHAT\n");
            CHECK(Done.Err == "");
        }
}

TEST_CASE("all settings are read as a table, and what is set takes effect: rate, channels and the port's speed")
{
    Bench Folder;
    Folder.Simulate("", true);
    const Outcome Table = Folder.Logger("--read --wait 2");
    CHECK(Table.Exit == 0);
    CHECK(Table.Out.starts_with("Setting\tAnswer\nMODE\t2,20,0\nPORTCFG\t4,0\n"));
    CHECK(Table.Out.find("\nWLDEVCFG\t0,1,00B9,048D,0013\n") != std::string::npos);
    CHECK(std::count(Table.Out.begin(), Table.Out.end(), '\n') == 15);

    CHECK(Folder.Logger("'#PORTCFG=0,0' '#MODE=2,10,0' '#CHMSK=<0>,<E>,<E>,<E>,<E>,<E>,<E>,<E>,<E>'").Exit == 0);
    CHECK(Folder
              .Batch("--set gQVNbauds=115200 record " + Folder.Path("eight.txt") + " " + Folder.Link + " --out " +
                     Folder.Path("a.qvn") + " --seconds 1")
              .Exit == 0);
    const std::string Frames = Folder.Bytes("a.qvn");
    REQUIRE(Frames.size() > 10000);
    // Eight slaves of 4 channels and 2 more words; the time between two frames in ms.
    const std::size_t Size = 4 + 5 + 1 + 2 + 2 + 8 + 12 + 16 + 8 * (4 + 8 + 4) + 1;
    CHECK(Frames.find('\x80', 1) == Size);
    const auto Time = [&](std::size_t Frame) { return Frames[Frame * Size + 4] + 128 * Frames[Frame * Size + 5]; };
    CHECK(Time(1) - Time(0) == 10);
    // What was not saved is gone behind a reset.
    const Outcome Reset = Folder.Logger("'#RST' '#MODE?' '#MODE=2,40,0' '#SAVE' '#MODE=2,10,0' '#RST' '#MODE?'");
    CHECK(Reset.Out.find("#RST: OK\n#MODE: 2,20,0\n") != std::string::npos);
    CHECK(Reset.Out.ends_with("#RST: OK\n#MODE: 2,40,0\n"));
}

TEST_CASE("a scan waits as long as it takes, and a logger left with --stay sends no frames until it is asked to")
{
    Bench Folder;
    Folder.Simulate("--seconds 4", false);
    const Outcome Scan = Folder.Logger("--stay '#BLSCAN=1'");
    CHECK(Scan.Out.find("#BLSCAN: F2219C04E1D8-EmPower 0982\n") != std::string::npos);
    for (int Turn = 0; Turn < 2500 && Folder.Bytes("sim.log").find("sent") == std::string::npos; ++Turn)
        usleep(2000);
    const std::string Log = Folder.Bytes("sim.log");
    CHECK(Val(Log.substr(Log.find('\n') + 1)) < 50); // of 100 in four seconds
    Folder.Simulate("--seconds 3", false);
    const Outcome Lost = Folder.Logger("--wait 2 '#SN?'"); // its link breaks off within the second wait
    CHECK((Lost.Exit == 1 && Lost.Err.find("closed by the logger") != std::string::npos));
    CHECK(Lost.Out == "#SETUP: OK\n#SN: SIM-0001\n");
    PseudoTerminal Line(Folder.Path("line"));
    Folder.Link = "--serial " + Folder.Path("line");
    CHECK(Folder.Logger("--wait 0.05 --stay '#SN?'").Exit == 1);
    CHECK(Line.Take() == "#SETUP\r#SN?\r#RUN\r"); // no answer at all: it may have heard
}

TEST_CASE("what keeps the logger from being set up is reported, and one that does not answer is asked to run")
{
    Bench Folder;
    Folder.Simulate("--mute", true);
    const Outcome Mute = Folder.Logger("'#SN?'");
    CHECK(Mute.Exit == 1);
    CHECK(Mute.Err.find("does not answer") != std::string::npos);
    CHECK(Folder
              .Batch("record " + Folder.Path("eight.txt") + " " + Folder.Link + " --out " + Folder.Path("a.qvn") +
                     " --seconds 1")
              .Exit == 0); // it runs
    Folder.Stop();
    CHECK(Folder.Logger("'#SN?'").Err.find("Can't open serial port") != std::string::npos);
    Folder.Link = "--tcp 127.0.0.1:1";
    CHECK(Folder.Logger("'#SN?'").Err.find("No connection to 127.0.0.1:1") != std::string::npos);
    for (const char* Wrong : {"", "SN?", "--read '#SN?'", "--wait 0 '#SN?'"}) {
        CAPTURE(std::string(Wrong));
        CHECK(Folder.Logger(Wrong).Exit == 2);
    }
}

TEST_CASE("#SETUP goes out once with a CR, each command behind it, and #RUN even to a logger that does not answer")
{
    Bench Folder;
    PseudoTerminal Line(Folder.Path("line"));
    Folder.Link = "--serial " + Folder.Path("line");
    CHECK(Folder.Logger("--wait 0.05 '#SN?' '#UTC?'").Exit == 1);
    CHECK(Line.Take() == "#SETUP\r#SN?\r#UTC?\r#RUN\r");
}
