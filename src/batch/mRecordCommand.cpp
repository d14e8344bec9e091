// Recording without a window: the sampling path of the desktop program on a plain event loop.
#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "base/mNumText.h"
#include "batch/mBatchLink.h"
#include "batch/mCommands.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"

#include <filesystem>
#include <utility>

namespace {
constexpr int LookInterval = 50; // ms

class Recorder
{
public:
    Recorder(std::string Out, double Time);
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
    cBatchLink Link;
};

Recorder::Recorder(std::string Out, double Time)
    : OutPath(std::move(Out)), Seconds(Time), WasThere(std::filesystem::exists(OutPath))
{
    Link.OnSignal = [this] {
        IsSignalled = true;
        Link.Loop.Quit();
    };
}

bool Recorder::Run()
{
    gLinkWatch.OnChange = [](const std::string& News) { MsgBox(News, TitleInformation); };
    Link.Loop.StartRepeating(LookInterval, [this] { Look(); });
    const bool Started = Start();
    if (Started) Link.Loop.Run();
    Finish();
    return Started && gLogFile.Failure().empty() && ReportLength();
}

bool Recorder::Start()
{
    if (!OpenLog(OutPath, OldBytes::Dropped)) return false;
    Begin = Link.Loop.Milliseconds();
    if (!OpenLink()) return ReportNoPort();
    SendRun();
    return true;
}

void Recorder::Look()
{
    const int64_t Now = Link.Loop.Milliseconds();
    if (!WasOpen && gLinkWatch.State() == cLinkWatch::eState::Open) {
        WasOpen = true;
        Begin = Now;
    }
    if (!gLogging || (Seconds > 0 && static_cast<double>(Now - Begin) >= Seconds * 1000)) Link.Loop.Quit();
}

void Recorder::Finish()
{
    StopAll();
    DropLink();
    Link.Loop.Wait(0); // messages that wait for their turn
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
    return LinkObjection(Line);
}

bool DoRecord(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    const std::string Out = Line.Text("--out", "");
    if (std::filesystem::is_regular_file(Out) && !AskYesNo("Are you sure to replace file " + Out + "?", TitleWarning))
        return false;
    SelectLink(Line);
    return Recorder(Out, Line.Real("--seconds", 0)).Run();
}
