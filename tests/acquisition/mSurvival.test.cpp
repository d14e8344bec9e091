// A recording over real links that are cut and made again.
#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "files/mSafeSave.h"
#include "platform/plain/sSerialPort.h"
#include "platform/plain/sSocket.h"
#include "support/LinkPeers.h"
#include "support/ScriptedLink.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <functional>

namespace {
struct LiveProgram : FreshState
{
    TempFolder Folder;
    sEventLoop Loop;
    sSerialPort Port{Loop};
    sSocket Socket{Loop};
    CountingWindow Window;
    std::string Path = Folder.Path("a.qvn");
    std::string Kept; // the whole frames that were sent
    int Time = 0;

    LiveProgram()
    {
        gFrameMin = 0;
        gHost.Clock = &Loop;
        gHost.SerialPort = &Port;
        gHost.Socket = &Socket;
        InitSampling();
        gFile.Model = 61;
        REQUIRE(OpenLog(Path, OldBytes::Kept));
    }
    ~LiveProgram()
    {
        StopAll();
        DropLink();
    }

    bool Until(const std::function<bool()>& Holds)
    {
        for (int Turn = 0; Turn < 10000; ++Turn) {
            if (Holds()) return true;
            Loop.Wait(1);
        }
        return false;
    }
    std::string NextFrames(int Count)
    {
        std::string Bytes;
        for (int i = 0; i < Count; ++i)
            Bytes += LongFrame(Time += 40);
        Kept += Bytes;
        return Bytes;
    }
    bool IsRecorded()
    {
        return Until([this] { return gLogFile.Length() == static_cast<int64_t>(Kept.size()); });
    }
};
} // namespace

TEST_CASE_FIXTURE(LiveProgram, "a recording over a wireless link goes on in its file when the link was cut, in any way")
{
    LoopbackServer Logger;
    gConnection = 1;
    gLinkAddress = "127.0.0.1";
    gLinkPort = Logger.Port();
    REQUIRE(OpenLink());
    SendRun();
    for (int Cut = 0; Cut < 4; ++Cut) {
        REQUIRE(Until([&] { return Logger.Accept(); }));
        std::string Heard;
        REQUIRE(Until([&] { return (Heard += Logger.Take()) == "#RUN\r"; }));
        Logger.Send(NextFrames(50) + "\x05\x06");
        Logger.Send(NextFrames(1));
        if (Cut == 2) Logger.StopListening();
        if (Cut % 2 == 0) {
            Logger.Send(LongFrame(1).substr(0, 30));
            Logger.Drop();
        } else {
            REQUIRE(IsRecorded());
            Logger.Abort();
        }
        REQUIRE(IsRecorded());
        if (Cut == 2) {
            REQUIRE(Until([&] { return Status.Shown.back().ends_with("Trying again"); }));
            Logger.Listen();
        }
    }
    CHECK(ReadWhole(Path) == Kept);
    CHECK(gLogging);
}

TEST_CASE_FIXTURE(LiveProgram,
                  "a recording over a serial line goes on in its file when the adapter was pulled and put back")
{
    PseudoTerminal Line(Folder.Path("ttyUSB0"));
    gConnection = 0;
    gCOMdevice = Folder.Path("ttyUSB0");
    REQUIRE(OpenLink());
    for (int Cut = 0; Cut < 3; ++Cut) {
        REQUIRE(Until([&] { return Port.IsOpen(); }));
        Line.Send("\x01\x02\x03" + NextFrames(30) + "\x04");
        Line.Send(NextFrames(31));
        REQUIRE(IsRecorded());
        Line.Send(LongFrame(1).substr(0, 20));
        Line.Pull();
        REQUIRE(Until([&] { return !Port.IsOpen(); }));
        Line.PutBack();
    }
    CHECK(ReadWhole(Path) == Kept);
    CHECK(Window.Drawn == 183);
    gCOMdevice.clear();
}
