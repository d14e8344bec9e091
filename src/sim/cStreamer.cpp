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
constexpr int SlowMs = 300; // that a slow answer comes late
constexpr int SplitMs = 4;  // between the bytes of a split one

// The session of the same sensors at the same inputs of slaves that send another number of channels.
DataFile WithSlaves(const DataFile& File, const FrameLayout& Before, const FrameLayout& Now)
{
    constexpr int Master = 16;
    const int Old = Before.SlaveChans / 4 * 4;
    const int New = Now.SlaveChans / 4 * 4;
    DataFile Changed = File;
    Changed.SlaveChans = static_cast<int16_t>(Now.SlaveChans);
    Changed.Signed = Now.Signed;
    if (New == Old) return Changed;
    Changed.Calibr.Resize(std::min(Master, File.Calibr.UBound()));
    Changed.Calibr.Resize(Master + File.SlaveCnt * New);
    for (int Slave = 0; Slave < File.SlaveCnt; ++Slave)
        for (int Input = 1; Input <= std::min(Old, New); ++Input)
            if (const int From = Master + Slave * Old + Input; From <= File.Calibr.UBound())
                Changed.Calibr[Master + Slave * New + Input] = File.Calibr[From];
    for (int Chan = 1; Chan <= Changed.Calibr.UBound(); ++Chan)
        Changed.Calibr[Chan].Chan = static_cast<int16_t>(Chan);
    return Changed;
}
} // namespace

cStreamer::cStreamer(sEventLoop& EventLoop, const SimOptions& Options, const LoggerSettings& Settings,
                     const DataFile& File)
    : Loop(EventLoop), Wanted(Options), Used(Settings), Session(File), Line(EventLoop),
      Layout(LayoutOf(File, Settings.Model)), Current(Layout)
{
    Mode = SwitchedOn(Layout, Used.Freq);
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
        if (const int Speed = Line.Speed(); Speed > 0) Mode.LineSpeed = Speed;
        const bool WasRunning = Mode.IsRunning;
        const auto Lines = AnswerCommand(Command, Mode, Loop.Now());
        if (Wanted.SplitAnswers && WasRunning && !Mode.IsRunning) BreakOffFrame();
        if (!Wanted.Mute) Answer(Lines);
        Command.clear();
        FollowMode();
    }
}

void cStreamer::Answer(const std::vector<LoggerAnswer>& Lines)
{
    const int64_t Now = Loop.Milliseconds();
    for (const LoggerAnswer& Each : Lines) {
        const int64_t Due = std::max(LastDue, Now + Each.Delay + (Wanted.SlowAnswers ? SlowMs : 0));
        if (!Wanted.SplitAnswers) {
            SendLater(Due, Each.Text);
            continue;
        }
        for (std::size_t i = 0; i < Each.Text.size(); ++i)
            SendLater(Due + static_cast<int64_t>(i) * SplitMs, Each.Text.substr(i, 1));
    }
}

void cStreamer::SendLater(int64_t Due, const std::string& Text)
{
    LastDue = Due;
    Loop.StartOnce(static_cast<int>(Due - Loop.Milliseconds()), [this, Text] {
        Line.Send({reinterpret_cast<const uint8_t*>(Text.data()), Text.size()});
    });
}

// The logger stops in the middle of a frame.
void cStreamer::BreakOffFrame()
{
    Bytes.clear();
    Logger->NextFrame(Bytes);
    Line.Send(std::span(Bytes).first(Bytes.size() / 2));
}

// A logger with another sampling period or other channels, or one that was reset, begins its time anew. The port's
// speed changes behind the answer, which still goes out at the old one.
void cStreamer::FollowMode()
{
    if (const int Speed = SpeedOf(Mode); Speed > 0 && Speed != Line.Speed()) Line.SetSpeed(Speed);
    const FrameLayout Set = LayoutOf(Mode, Layout);
    const bool IsSame = FreqOf(Mode) == Used.Freq && Set == Current && Mode.Resets == Resets;
    if (IsSame) return;
    StartTime += Logger->Time();
    Resets = Mode.Resets;
    Current = Set;
    Used.Freq = FreqOf(Mode);
    Shown = WithSlaves(Session, Layout, Set);
    Logger = std::make_unique<cLogger>(Shown, Used);
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
