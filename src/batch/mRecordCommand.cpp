// Recording without a window: the sampling path of the desktop program on a plain event loop.
#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "base/mNumText.h"
#include "batch/mCommands.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "platform/plain/sSerialPort.h"
#include "platform/plain/sSocket.h"

#include <charconv>
#include <csignal>
#include <filesystem>
#include <optional>
#include <poll.h>
#include <unistd.h>

namespace {
constexpr int LookInterval = 50; // ms

// "HOST:PORT", a numeric IPv6 address in brackets.
struct Place
{
    std::string Host;
    uint16_t Port = 0;
};

std::optional<Place> ReadPlace(const std::string& Text)
{
    const std::size_t Colon = Text.rfind(':');
    if (Colon == std::string::npos || Colon == 0) return {};
    Place Found{Text.substr(0, Colon), 0};
    if (Found.Host.starts_with('[') && Found.Host.ends_with(']')) Found.Host = Found.Host.substr(1, Colon - 2);
    const char* End = Text.data() + Text.size();
    const auto [Last, Error] = std::from_chars(Text.data() + Colon + 1, End, Found.Port);
    if (Error != std::errc{} || Last != End || Found.Port == 0) return {};
    return Found;
}

class Recorder
{
public:
    Recorder(std::string Out, double Time);
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// Records until the time is over, a signal comes or the log fails. False when a failure was reported.
    bool Run();

private:
    bool Start();
    void Look();
    void Finish();
    bool ReportLength() const;

    std::string OutPath;
    double Seconds; // 0: until a signal
    bool WasThere;
    bool WasOpen = false;
    bool IsSignalled = false;
    int64_t Begin = 0; // ms of the clock: when the link was opened first
    sEventLoop Loop;
    sSerialPort Port{Loop};
    sSocket Socket{Loop};
    sSocket SecondSocket{Loop};
    int Signals;
};

Recorder::Recorder(std::string Out, double Time)
    : OutPath(std::move(Out)), Seconds(Time), WasThere(std::filesystem::exists(OutPath)), Signals(WatchEndSignals())
{
    // Whoever read the messages may go; the recording stays.
    std::signal(SIGPIPE, SIG_IGN);
    gHost.Clock = &Loop;
    gHost.SerialPort = &Port;
    gHost.Socket = &Socket;
}

Recorder::~Recorder()
{
    close(Signals);
    gLinkWatch.OnChange = nullptr;
    gHost.Clock = nullptr;
    gHost.SerialPort = nullptr;
    gHost.Socket = nullptr;
}

bool Recorder::Run()
{
    InitSampling(&SecondSocket);
    gLinkWatch.OnChange = [](const std::string& News) { MsgBox(News, TitleInformation); };
    Loop.Watch(Signals, POLLIN, [this](short) {
        IsSignalled = true;
        Loop.Quit();
    });
    Loop.StartRepeating(LookInterval, [this] { Look(); });
    const bool Started = Start();
    if (Started) Loop.Run();
    Finish();
    return Started && gLogFile.Failure().empty() && ReportLength();
}

bool Recorder::Start()
{
    if (!OpenLog(OutPath, OldBytes::Dropped)) return false;
    Begin = Loop.Milliseconds();
    if (!OpenLink()) {
        return FileFailed("Can't open serial port: ", gCOMdevice, TitleError, "not there, or another program has it");
    }
    SendRun();
    return true;
}

void Recorder::Look()
{
    const int64_t Now = Loop.Milliseconds();
    if (!WasOpen && gLinkWatch.State() == cLinkWatch::eState::Open) {
        WasOpen = true;
        Begin = Now;
    }
    if (!gLogging || (Seconds > 0 && static_cast<double>(Now - Begin) >= Seconds * 1000)) Loop.Quit();
}

void Recorder::Finish()
{
    StopAll();
    DropLink();
    Loop.Wait(0); // messages that wait for their turn
    std::error_code Ignored;
    if (gLogFile.Length() == 0 && !WasThere) std::filesystem::remove(OutPath, Ignored);
}

// An empty recording is a failure unless whoever ended it was there.
bool Recorder::ReportLength() const
{
    const auto Length = static_cast<double>(gLogFile.Length());
    if (Length > 0)
        MsgBox(FormatNum(gFrameCnt, "0") + " frames, " + FormatNum(Length, "0") + " bytes recorded: " + OutPath,
               TitleInformation);
    else
        MsgBox("No frame came, nothing was recorded: " + OutPath, IsSignalled ? TitleInformation : TitleError);
    return Length > 0 || IsSignalled;
}
} // namespace

std::string RecordObjection(const Args& Line)
{
    if (!Line.Has("--out")) return "--out FILE is missing";
    if (!Line.Has("--seconds")) return "--seconds N is missing";
    if (Line.Real("--seconds", 0) < 0) return "--seconds cannot be negative";
    if (Line.Has("--serial") == Line.Has("--tcp")) return "one of --serial DEVICE and --tcp HOST:PORT is wanted";
    if (Line.Has("--tcp") && !ReadPlace(Line.Text("--tcp", ""))) return "--tcp takes HOST:PORT";
    return {};
}

bool DoRecord(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    const std::string Out = Line.Text("--out", "");
    if (std::filesystem::is_regular_file(Out) && !AskYesNo("Are you sure to replace file " + Out + "?", TitleWarning))
        return false;
    gConnection = Line.Has("--tcp") ? 1 : 0;
    gCOMdevice = Line.Text("--serial", "");
    if (const auto Where = ReadPlace(Line.Text("--tcp", ""))) {
        gLinkAddress = Where->Host;
        gLinkPort = Where->Port;
    }
    return Recorder(Out, Line.Real("--seconds", 0)).Run();
}
