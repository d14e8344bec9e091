// A link that a window owns, beside the main window's link and a replay.
#include "acquisition/cOwnLink.h"

#include "LinkRecording.h"
#include "acquisition/mSampling.h"
#include "core/mIni.h"
#include "files/mStream.h"

namespace {
// A program whose main link is closed, with a window that has ports of its own.
struct OwnLink : LinkState
{
    CountingWindow Window;
    ScriptedPort OwnPort;
    ScriptedSocket OwnSocket;
    cOwnLink Link{"The panel", OwnPort, OwnSocket};

    OwnLink()
    {
        gAppDir = Folder.Path("");
        gFile.Model = 67;
        gCOMport = 1;
        Port.Plugged = OwnPort.Plugged = {"/dev/none-such"};
    }

    // Lets so many milliseconds go by, with the ticks of the window's timer.
    void Go(int Milliseconds)
    {
        for (int i = 0; i < Milliseconds; i += 50) {
            Clock.Wait(50);
            Link.Tick();
        }
    }
};
} // namespace

TEST_CASE_FIXTURE(OwnLink,
                  "a window's own link brings frames to the windows and into the recording, the main link closed")
{
    Link.Open();
    CHECK(OwnPort.Settings == "115200,n,8,1");
    CHECK(OwnPort.Sent == "#RUN\r");
    CHECK(gFile.ChanCnt == 8);
    CHECK(Link.Words() == "COM port 1");
    CHECK(gLinkWatch.State() == cLinkWatch::eState::Closed);
    CHECK(IsAcquiring());
    REQUIRE(OpenLog(Folder.Path("a.qvn"), OldBytes::Kept));
    const std::string Frames = ShortFrame(20) + ShortFrame(40) + ShortFrame(60);
    OwnPort.Feed(Frames.substr(0, 70));
    CHECK(Window.Sampled == std::vector<double>{0.02});
    OwnPort.Feed(Frames.substr(70));
    CHECK(Window.Sampled == std::vector<double>{0.02, 0.04});
    Link.Tick(); // the third has fewer bytes than the port reports
    CHECK(Window.Sampled.size() == 3);
    CHECK(Window.IsShownLive);
    CHECK(gLinkStream.FrameCnt == 3);

    OwnPort.Pull();
    CHECK(Link.Words() == "COM port 1 lost: the line was hung up. Trying again");
    CHECK(gLogging);
    Go(300);
    CHECK(Link.Words() == "COM port 1 lost: no serial port was found. Trying again");
    OwnPort.Plugged = {"/dev/none-such"};
    Go(600);
    CHECK(Link.Words() == "COM port 1");
    OwnPort.Feed(ShortFrame(80) + ShortFrame(100));
    Go(2100);
    CHECK(Link.Words() == "COM port 1: no frames for 2 s");
    CHECK(Panel(2) == "RECORDING, BUT NOTHING ARRIVES");
    Link.Close();
    StopLog();
    CHECK(ReadWhole(Folder.Path("a.qvn")) == Frames + ShortFrame(80) + ShortFrame(100));
    CHECK_FALSE(IsAcquiring());
    CHECK(gFrameMin == 0);
    CHECK_FALSE(OwnPort.IsOpen());
}

TEST_CASE_FIXTURE(OwnLink, "one thing brings frames at a time: the main link, a window's own, or a replay")
{
    REQUIRE(OpenLink());
    Link.Open();
    CHECK(Link.Words() == "COM port 1 is taken by the main window's link, whose frames are shown");
    CHECK_FALSE(OwnPort.IsOpen());
    CloseLink();
    Go(50);
    CHECK(OwnPort.IsOpen());
    CHECK_FALSE(OpenLink());
    CHECK(Panel(3) == "The panel has the link; its frames are shown");
    CHECK_FALSE(Port.IsOpen());

    REQUIRE(SaveWhole(Folder.Path("a.qvn"), ShortFrame(20)));
    StartReplay(Folder.Path("a.qvn"));
    CHECK_FALSE(OwnPort.IsOpen());
    CHECK(Link.Words() == "A recording is played");
    StopReplay();
    Go(50);
    CHECK(OwnPort.IsOpen());
    EndAcquisition(); // another session is opened
    CHECK_FALSE(OwnPort.IsOpen());
    Go(50);
    CHECK(OwnPort.IsOpen());
    gConnection = 1;
    Go(50);
    CHECK_FALSE(OwnPort.IsOpen());
    OwnSocket.Answer();
    CHECK(OwnSocket.Sent == "#RUN\r");
    OwnSocket.Feed(ShortFrame(20) + ShortFrame(40));
    CHECK(Window.Sampled == std::vector<double>{0.02, 0.04});
    CHECK(Window.Drawn == 1);
    OwnSocket.Drop();
    Go(300);
    CHECK(OwnSocket.State() == eSocketState::Connecting);
    Link.Close();
    Go(1000);
    CHECK(OwnSocket.State() == eSocketState::Closed);
}

TEST_CASE_FIXTURE(OwnLink,
                  "a port that cannot be had changes nothing, and is tried until it can be had or nobody wants it")
{
    gFile.ChanCnt = 3;
    OwnPort.Plugged.clear();
    Link.Open();
    CHECK(Link.Words() == "No connection to COM port 1: no serial port was found. Trying again");
    CHECK(gFile.ChanCnt == 3);
    CHECK(gFrameMin == 0);
    CHECK_FALSE(gOwnLink);
    OwnPort.Plugged = {"/dev/other"}; // the number that is set is not there, so that others are looked at
    gCOMport = 4;
    Go(600);
    CHECK(OwnPort.Device == "/dev/other");
    CHECK(gCOMport == 1);
}
