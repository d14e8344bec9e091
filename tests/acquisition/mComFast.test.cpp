// Opening the link by model and port, and what happens to it afterwards.
#include "acquisition/mComFast.h"

#include "acquisition/mSampling.h"
#include "core/mIni.h"
#include "files/mBinIO.h"
#include "files/mStream.h"
#include "support/Case.h"
#include "support/ScriptedLink.h"

#include <memory>

namespace {
struct Link : LinkState
{
    std::string News;

    Link()
    {
        gAppDir = Folder.Path("");
        gCOMport = 1;
        gCOMdevice.clear();
        gConnection = 0;
        gLinkWatch.OnChange = [this](const std::string& Text) {
            News += std::to_string(Clock.Milliseconds() / 1000) + " " + Text + "\n";
        };
        Clock.Wait(9000);
    }
    ~Link() { gLinkWatch.OnChange = nullptr; }
};
} // namespace

TEST_CASE_FIXTURE(Link, "each logger model sets its line, its channels and the bytes of its shortest frame")
{
    Port.Plugged = {"/dev/ttyS0"};
    gFile.SlaveCnt = 2;
    gFile.SlaveChans = 10;
    gQVNbauds = 256000;
    gDataFreq = 50;
    std::string Found;
    for (const int16_t Model : {int16_t{60}, int16_t{65}, int16_t{66}, int16_t{67}, int16_t{68}, int16_t{69}}) {
        gFile.Model = Model;
        REQUIRE(OpenLink());
        Found += Port.Settings + " " + std::to_string(gFile.ChanCnt) + " " + std::to_string(gFrameMin) + " " +
                 std::to_string(Port.RThreshold) + "\n";
    }
    CHECK(Found == "256000,n,8,1 36 87 87\n256000,n,8,1 36 87 87\n115200,n,8,1 18 53 53\n115200,n,8,1 8 53 53\n"
                   "115200,n,8,1 8 53 53\n115200,n,8,1 8 53 53\n");
    CHECK(gDeltaT == 0.02);
    // More channels than the field holds change nothing.
    gFile.Model = 61;
    gFile.SlaveCnt = 32000;
    CHECK_FALSE(Guard("Opening the link", OpenLink));
    CHECK(gFile.ChanCnt == 8);
    CHECK(gFrameMin == 53);
    gSignedADC = true;
    CloseLink();
    CHECK(gFile.Signed);
}

TEST_CASE_FIXTURE(Link, "on a machine that refuses 256000 baud the port is opened, and opened again, at 230400")
{
    Port.Plugged = {"/dev/ttyS0"};
    Port.Refused = "256000,n,8,1";
    gFile.Model = 61;
    gQVNbauds = 256000;
    REQUIRE(OpenLink());
    CHECK(Port.Settings == "230400,n,8,1");
    CHECK(Panel(2) == "This machine refuses 256000 baud on /dev/ttyS0: it is open at 230400");
    Port.Pull();
    Port.Plugged = {"/dev/ttyS1"};
    Port.Settings.clear();
    ReopenLink();
    CHECK(Port.Device == "/dev/ttyS1");
    CHECK(Port.Settings == "230400,n,8,1");
    CloseLink();
    Port.Refused = "57600,n,8,1";
    gQVNbauds = 57600;
    CHECK_FALSE(OpenLink());
}

TEST_CASE_FIXTURE(Link, "the port of the setting is tried first, then the others, and the one found is kept")
{
    gFile.Model = 61;
    CHECK_FALSE(OpenLink());
    CHECK(Panel(3) == "No COM ports found");
    Port.Plugged = {"/dev/ttyS0", "/dev/ttyUSB0"};
    gCOMport = 2;
    REQUIRE(OpenLink());
    CHECK(Port.Device == "/dev/ttyUSB0");
    CHECK(Panel(3) == "COM port 2");
    gCOMport = 9;
    REQUIRE(OpenLink());
    CHECK(gCOMport == 1);
    CHECK(Port.Device == "/dev/ttyS0");
    CHECK(ReadWhole(IniPath()).value_or("").find("COM port=1\r\n") != std::string::npos);
    gCOMdevice = "/dev/ttyUSB0";
    REQUIRE(OpenLink());
    CHECK(Port.Device == "/dev/ttyUSB0");
    CHECK(Panel(3) == "COM port /dev/ttyUSB0");
    gCOMdevice = "/dev/none";
    CHECK_FALSE(OpenLink());
    CHECK(Panel(3) == "Can't open /dev/none");
}

TEST_CASE_FIXTURE(Link, "a link that cannot be opened changes neither the session nor the link or replay in use")
{
    gFile.Model = 66;
    gFile.ChanCnt = 26;
    const auto IsAsBefore = [] { return gFile.ChanCnt == 26 && gFrameMin == 0; };
    CHECK_FALSE(OpenLink());
    CHECK(IsAsBefore());
    REQUIRE(SaveWhole(Folder.Path("r.qvn"), LongFrame(40) + LongFrame(80)));
    StartReplay(Folder.Path("r.qvn"));
    CHECK_FALSE(OpenLink());
    CHECK(gReplaying);
    StopReplay();

    SUBCASE("a serial link")
    {
        gFile.Model = 69;
        Port.Plugged = {"/dev/ttyUSB0"};
        REQUIRE(OpenLink());
        gCOMdevice = "/dev/none";
        gFile.Model = 66;
        CHECK_FALSE(OpenLink());
        CHECK(IsAsBefore());
        Port.Feed(ShortFrame(3000));
        CHECK(gSampleTime == 3);
        // One that cannot be taken up again at once is tried again.
        Port.Plugged.clear();
        CHECK_FALSE(OpenLink());
        Port.Plugged = {"/dev/ttyUSB0"};
        Clock.Wait(1000);
        Port.Feed(ShortFrame(5000));
        CHECK(gSampleTime == 5);
    }
    SUBCASE("a wireless link")
    {
        gConnection = 1;
        REQUIRE(OpenLink());
        Socket.Answer();
        gConnection = 0;
        CHECK_FALSE(OpenLink());
        CHECK(IsAsBefore());
        Socket.Feed(ShortFrame(3000));
        CHECK(gSampleTime == 3);
    }
}

TEST_CASE_FIXTURE(Link, "a recording that is read after a link was closed has the samples that it has without a link")
{
    gFile.Model = 61;
    for (int16_t Chan = 1; Chan <= 16; ++Chan)
        gFile.Calibr.Grow().Chan = Chan;
    Port.Plugged = {"/dev/ttyS0"};
    REQUIRE(SaveWhole(Folder.Path("r.qvn"), LongFrame(40) + LongFrame(80) + LongFrame(120)));
    const auto Samples = [this] {
        int32_t Start = 0;
        int32_t Stop = 0;
        REQUIRE(ReadRawFile(Folder.Path("r.qvn"), Start, Stop));
        return gRaw.UBound();
    };
    const auto Without = Samples();
    REQUIRE(OpenLink());
    REQUIRE(gFrameMin == 39);
    CloseLink();
    CHECK(gFrameMin == 0);
    CHECK(Samples() == Without);
    REQUIRE(OpenLink());
    StartReplay(Folder.Path("r.qvn"));
    CHECK(Samples() == Without);
}

TEST_CASE_FIXTURE(Link, "a link closes behind the last window that needs it, but not under a recording")
{
    gFile.Model = 61;
    Port.Plugged = {"/dev/ttyS0"};
    REQUIRE(OpenLink());
    Clock.Wait(1000);
    CHECK(Port.IsOpen()); // the window may still come
    struct StoredWindow : CountingWindow
    {
        bool NeedsLink() const override { return false; }
    } Stored;
    auto First = std::make_unique<CountingWindow>();
    auto Second = std::make_unique<CountingWindow>();
    Second->Tag.clear(); // its data are not started yet
    Clock.Wait(200);
    First.reset();
    Clock.Wait(1000);
    CHECK(Port.IsOpen());
    SUBCASE("with a recording")
    {
        REQUIRE(OpenLog(Folder.Path("a.qvn"), OldBytes::Kept));
        Second.reset();
        Clock.Wait(1000);
        Port.Feed(LongFrame(40));
        CHECK(gLogFile.Length() > 0);
        StopAll();
    }
    Second.reset();
    gSignedADC = true;
    Clock.Wait(200);
    CHECK_FALSE(Port.IsOpen());
    CHECK(gFile.Signed);
    Clock.Wait(5000);
    CHECK(Panel(3) == "");
}

TEST_CASE_FIXTURE(Link, "asking for the link that is open takes a changed frequency up and leaves the stream alone")
{
    gFile.Model = 61;
    Port.Plugged = {"/dev/ttyS0"};
    gDataFreq = 25;
    REQUIRE(OpenLink());
    Port.Feed(LongFrame(40) + LongFrame(80).substr(0, 10));
    gDataFreq = 100;
    REQUIRE(OpenLink());
    CHECK(gTimeStep == 0.01);
    CHECK(gDeltaT == 0.01);
    Port.Feed(LongFrame(80).substr(10));
    CHECK(gFrameCnt == 2);
}

TEST_CASE_FIXTURE(Link, "an adapter that was pulled is taken up again, under a new name too, but no other device is")
{
    gFile.Model = 61;
    Port.Plugged = {"/dev/ttyUSB0", "/dev/ttyUSB1"};
    REQUIRE(OpenLink());
    SendRun();
    Port.Pull();
    Clock.Wait(20000);
    CHECK_FALSE(Port.IsOpen());
    Port.Plugged.push_back("/dev/ttyUSB2");
    Clock.Wait(700);
    CHECK(Port.Device == "/dev/ttyUSB2");
    Port.Pull();
    Port.Plugged.push_back("/dev/ttyUSB0");
    Clock.Wait(700);
    CHECK(Port.Device.empty());
    Port.Plugged.push_back("/dev/ttyUSB2");
    Clock.Wait(700);
    CHECK(Port.Device == "/dev/ttyUSB2");
    CHECK(Port.Sent == "#RUN\r#RUN\r#RUN\r");
    // Another window that asks for the link in the middle of a frame does not open it anew.
    Port.Feed(LongFrame(80).substr(0, 10));
    REQUIRE(OpenLink());
    Port.Feed(LongFrame(80).substr(10));
    CHECK(gData[0] == 0.08);
    CHECK(News == "10 Connected to COM port 1\n"
                  "10 COM port 1 lost: the line was hung up. Trying again\n30 COM port 1 is back\n"
                  "30 COM port 1 lost: the line was hung up. Trying again\n31 COM port 1 is back\n");
}

TEST_CASE_FIXTURE(Link, "a wireless link is made in the background, lost, silent and made again, each reported once")
{
    gConnection = 1;
    gLinkAddress = "127.0.0.1";
    gLinkPort = 6000;
    gTCPaddress = "10.1.1.1"; // has no say
    gTCPport = 7000;
    REQUIRE(OpenLink());
    SendRun();
    CHECK(Socket.Place == "127.0.0.1:6000");
    Clock.Wait(20000); // nobody answers
    Socket.OnError("Connection refused");
    Clock.Wait(2000);
    Socket.Answer();
    CHECK(Socket.Sent == "#RUN\r");
    Clock.Wait(2000);
    CHECK(Panel(3) == "127.0.0.1:6000: no frames for 2 s");
    Clock.Wait(2000);
    CHECK(Panel(3) == "127.0.0.1:6000: no frames for 4 s");
    Socket.Feed(LongFrame(40));
    Socket.Drop();
    Clock.Wait(600);
    Socket.Answer();
    Socket.Feed(LongFrame(80));
    CHECK(News == "10 Connecting to 127.0.0.1:6000\n"
                  "15 No connection to 127.0.0.1:6000: no answer. Trying again\n"
                  "30 No connection to 127.0.0.1:6000: Connection refused. Trying again\n"
                  "32 Connected to 127.0.0.1:6000\n"
                  "34 127.0.0.1:6000: no frames for 2 s\n"
                  "36 127.0.0.1:6000: frames again\n"
                  "36 127.0.0.1:6000 lost: closed by the logger. Trying again\n"
                  "36 127.0.0.1:6000 is back\n");
    CloseLink();
    Clock.Wait(10000);
    CHECK(Socket.State() == eSocketState::Closed);
    CHECK(Panel(3) == "");
}

TEST_CASE_FIXTURE(Link, "beside a wireless link that is silent for four seconds a second connection is tried")
{
    gConnection = 1;
    gLinkAddress = "127.0.0.1";
    gLinkPort = 6000;
    REQUIRE(OpenLink());
    Socket.Answer();
    Socket.Feed(LongFrame(40));
    Clock.Wait(10000);
    CHECK(SecondSocket.Place.empty()); // nobody asked the logger to stream
    SendRun();
    Socket.Feed(LongFrame(80) + LongFrame(120).substr(0, 20));
    Clock.Wait(3800);
    CHECK(SecondSocket.Place.empty());
    Clock.Wait(400);
    CHECK(SecondSocket.Place == "127.0.0.1:6000");

    SUBCASE("an attempt without an answer is made anew, one that is connected waits")
    {
        SecondSocket.Place.clear();
        Clock.Wait(2000);
        CHECK(SecondSocket.Place == "127.0.0.1:6000");
        SecondSocket.Answer();
        SecondSocket.Place.clear();
        Clock.Wait(4000);
        CHECK(SecondSocket.Place.empty());
        CHECK(SecondSocket.Sent == "#RUN\r");
        CHECK(Socket.State() == eSocketState::Connected);
    }
    SUBCASE("it is given up when the first speaks again")
    {
        SecondSocket.Answer();
        Socket.Feed(LongFrame(120).substr(20));
        CHECK(SecondSocket.State() == eSocketState::Closed);
        CHECK(gSampleTime == 0.12);
        CHECK(gFrameCnt == 3);
    }
    SUBCASE("it replaces the first when it brings data, and the next gap is bridged the other way round")
    {
        SecondSocket.Answer();
        SecondSocket.Feed(LongFrame(9000));
        CHECK(Socket.State() == eSocketState::Closed);
        CHECK(gSampleTime == 9);
        CHECK(gFrameCnt == 3);
        CHECK(News.ends_with("127.0.0.1:6000: a second connection took over\n24 127.0.0.1:6000: frames again\n"));
        Clock.Wait(4200);
        CHECK(Socket.State() == eSocketState::Connecting);
        Socket.Answer();
        Socket.Feed(LongFrame(15000));
        CHECK(SecondSocket.State() == eSocketState::Closed);
        CHECK(gSampleTime == 15);
    }
    SUBCASE("it replaces a first that ends, and a logger that stays silent is tried ever more rarely")
    {
        SecondSocket.Answer();
        Socket.Drop();
        CHECK(gLinkWatch.State() == cLinkWatch::eState::Open);
        Clock.Wait(7800);
        CHECK(Socket.State() == eSocketState::Closed);
        Clock.Wait(400);
        CHECK(Socket.State() == eSocketState::Connecting);
        Socket.OnError("Connection refused"); // of no interest
        CHECK(gLinkWatch.State() == cLinkWatch::eState::Open);
        SecondSocket.Feed(LongFrame(9000));
        CHECK(gSampleTime == 9);
    }
    SUBCASE("it ends with a link that is closed, and one that is lost is made anew as ever")
    {
        Socket.Drop();
        CHECK(SecondSocket.State() == eSocketState::Closed);
        CHECK(gLinkWatch.State() == cLinkWatch::eState::Lost);
        Clock.Wait(400);
        CHECK(Socket.State() == eSocketState::Connecting);
        CloseLink();
        Clock.Wait(20000);
        CHECK(SecondSocket.State() == eSocketState::Closed);
    }
}
