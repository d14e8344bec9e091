// Pacing of the stream. Frames that are due together go out together, so that any speed can be kept up with.
#include "sim/cStreamer.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int CutMs = 1000; // how long the link stays away
constexpr int LookMs = 25;  // between two looks whether everything has arrived
constexpr int MostLooks = 20;
constexpr double LongestLag = 2; // s that a listener may lag behind
constexpr int LongestNap = 20;   // ms between two looks at what is due
constexpr double MsPerSecond = 1000;
constexpr std::size_t LongestCommand = 200;
} // namespace

cStreamer::cStreamer(sEventLoop& EventLoop, const SimOptions& Options, const LoggerSettings& Settings,
                     const DataFile& File)
    : Loop(EventLoop), Wanted(Options), Used(Settings), Session(File), Line(EventLoop)
{
    Mode.Freq = Used.Freq;
    Logger = std::make_unique<cLogger>(Session, Used);
    if (Wanted.Strokes > 0) Wanted.Seconds = Logger->Model().Strokes().EndOf(Wanted.Strokes);
    Line.OnConnect = [this] { Begin(); };
    Line.OnText = [this](const std::string& Text) { Obey(Text); };
}

std::string cStreamer::OpenLine()
{
    return Wanted.Terminal.empty() ? Line.OpenPort(Wanted.Port) : Line.OpenTerminal(Wanted.Terminal);
}

void cStreamer::Begin()
{
    if (StartMs >= 0) return;
    StartMs = Loop.Milliseconds();
    PlanCut();
    Loop.StartOnce(0, [this] { SendDue(); });
}

std::string cStreamer::Run()
{
    Loop.Run();
    Line.Close();
    std::string Summary = FormatNum(static_cast<double>(FramesSent), "0") + " frames sent, " +
                          FormatNum(static_cast<double>(FramesLost), "0") + " lost while nobody listened";
    if (!Wanted.Sent.empty() && !SaveWhole(Wanted.Sent, SentBytes)) Summary += "; can't write file: " + Wanted.Sent;
    return Summary;
}

double cStreamer::SimulatedNow() const
{
    return static_cast<double>(Loop.Milliseconds() - StartMs) / MsPerSecond * Wanted.Speed;
}

void cStreamer::SendDue()
{
    const double Now = SimulatedNow();
    // A listener that lags a little holds the stream up instead of losing frames: the buffers between are far smaller
    // than a lossless stream at many times the speed needs. One that does not listen misses what it would have heard.
    while (StartTime + Logger->Time() <= Now && !Line.IsFull())
        SendFrame();
    while (StartTime + Logger->Time() <= Now - LongestLag * Wanted.Speed)
        LoseFrame();
    if (Wanted.Seconds > 0 && StartTime + Logger->Time() >= Wanted.Seconds) {
        Drain(MostLooks, [this] { Stop(); });
        return;
    }
    const double Nap = std::ceil((StartTime + Logger->Time() - SimulatedNow()) / Wanted.Speed * MsPerSecond);
    Loop.StartOnce(static_cast<int>(std::clamp(Nap, 1.0, double{LongestNap})), [this] { SendDue(); });
}

void cStreamer::SendFrame()
{
    if (!Line.IsConnected() || IsDraining) {
        LoseFrame();
        return;
    }
    if (const std::string News = Logger->News(); !News.empty() && OnNews) OnNews(News);
    Bytes.clear();
    Logger->NextFrame(Bytes);
    if (!Mode.IsRunning) return;
    ++FramesSent;
    if (!Wanted.Sent.empty()) SentBytes.append(Bytes.begin(), Bytes.end());
    Line.Send(Bytes);
}

void cStreamer::LoseFrame()
{
    Bytes.clear();
    Logger->NextFrame(Bytes);
    if (Mode.IsRunning) ++FramesLost;
}

void cStreamer::Obey(const std::string& Text)
{
    for (const char C : Text) {
        if (C != '\r' && C != '\n') {
            if (Command.size() < LongestCommand) Command += C;
            continue;
        }
        if (Command.empty()) continue;
        const std::string Answer = AnswerCommand(Command, Mode, Loop.Now());
        Line.Send({reinterpret_cast<const uint8_t*>(Answer.data()), Answer.size()});
        Command.clear();
        if (Mode.Freq != Used.Freq) SetFreq();
    }
}

// A logger with another sampling period begins its time anew.
void cStreamer::SetFreq()
{
    StartTime += Logger->Time();
    Used.Freq = Mode.Freq;
    Logger = std::make_unique<cLogger>(Session, Used);
}

// Sends no more and calls Then when what was sent has been taken, or nobody takes it. The system moves bytes along a
// terminal in its own time, so the first look is not taken at once.
void cStreamer::Drain(int Looks, const std::function<void()>& Then)
{
    IsDraining = true;
    Loop.StartOnce(LookMs, [this, Looks, Then] {
        if (Looks > 0 && !Line.IsDrained())
            Drain(Looks - 1, Then);
        else
            Then();
    });
}

void cStreamer::PlanCut()
{
    if (Wanted.Cut > 0)
        Loop.StartOnce(static_cast<int>(Wanted.Cut * MsPerSecond), [this] { Drain(MostLooks, [this] { Cut(); }); });
}

void cStreamer::Cut()
{
    Line.Close();
    Loop.StartOnce(CutMs, [this] {
        IsDraining = false;
        OpenLine();
        PlanCut();
    });
}
