// What the three frame sources have in common and where they differ.
#include "acquisition/mSampling.h"

#include "acquisition/cLogWatch.h"
#include "acquisition/cOwnLink.h"
#include "acquisition/cRunClock.h"
#include "acquisition/mComFast.h"
#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "files/mDump.h"
#include "files/mFrame.h"
#include "platform/mHost.h"

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

bool FrameSynced = false;
bool gReplaying = false;
RawFile gReplayFile;

namespace {
constexpr int TickInterval = 200; // ms

cFrameFeed FromPort([](std::span<uint8_t> Room) { return gHost.SerialPort->Input(Room); },
                    [] { return gHost.SerialPort->InBufferCount(); });
cFrameFeed FromSocket([](std::span<uint8_t> Room) { return gLinkSocket.InUse().GetData(Room); },
                      [] { return gLinkSocket.InUse().BytesReceived(); });

std::function<void(std::span<const uint8_t>)> DivertTo; // null: frames are taken

int Timer1 = 0; // 0: not enabled
int Timer1Interval = ReplayInterval;

cRunClock LinkClock;

cLogWatch LogWatch;
bool IsFrameShown = false; // panel 2 shows a frame as live
std::string LinkWords;

// The watch over the link that frames come over.
cLinkWatch& WatchInUse()
{
    return gOwnLink ? gOwnLink->Watch() : gLinkWatch;
}

// A logger that was restarted begins a new run of rates, scores and losses; the recording goes on.
void WatchRun()
{
    if (gLinkStream.FrameCnt <= 1) LinkClock = {};
    if (!LinkClock.IsNewRun(gSampleTime)) return;
    gLinkStream.Missed = 0;
    gLinkStream.DeltaT = gTimeStep;
    gLinkStream.Frequency = SafeDiv(1, gTimeStep);
    PublishLive(gLinkStream);
    gFrameCnt = 1; // counted as after the opening of a link
    gFirstCycle = true;
    WatchInUse().Restarted();
    BeginRun();
}

// Decodes and records a frame, and offers it to the windows that compute. The log is a true copy of the stream,
// whatever the decoder says.
bool PassFrame(FrameSource From, const Frame& Taken)
{
    FrameSynced = DecodeLive(From, Taken, From == FrameSource::Replay ? gReplayStream : gLinkStream);
    LogFrame(Taken.Bytes);
    if (!FrameSynced) return false;
    WatchInUse().FrameCame(gHost.Clock->Milliseconds());
    DumpFrame();
    if (From != FrameSource::Replay) WatchRun();
    SampleDataWindows();
    return true;
}

void ShowFrame(const std::string& Text)
{
    DrawDataWindows();
    UpdateStatus(Text);
    IsFrameShown = true;
}

std::string FrameText()
{
    return "SampleTime=" + FormatNum(gSampleTime, "000.00") + "s, Frequency=" + FormatNum(gFrequency, "000.000") +
           "Hz, ";
}

std::string LiveText()
{
    return FrameText() + "Missed=" + FormatNum(gMissed, "0") + "pc, ";
}

std::string ReplayText()
{
    return FrameText() + "Strokes=" + FormatNum(gStrokeCnt, "000") + ", Rate=" + FormatNum(gRate, "000.0");
}

void TakeBackFrameText()
{
    const cLinkWatch& Watch = WatchInUse();
    const bool IsGone = Watch.State() == cLinkWatch::eState::Lost || Watch.IsSilent();
    if (!IsGone || !IsFrameShown) return;
    IsFrameShown = false;
    UpdateStatus("No frames");
}

// Hands the bytes that wait to the taker. False when there is none.
bool Divert(cFrameFeed& Feed)
{
    if (!DivertTo) return false;
    if (const auto Bytes = Feed.TakeBytes(); !Bytes.empty()) DivertTo(Bytes);
    return true;
}

void StartTimer1()
{
    gHost.Clock->StopTimer(Timer1);
    Timer1 = gHost.Clock->StartRepeating(Timer1Interval, Timer1_Timer);
}

void WatchLog(int64_t Now)
{
    if (!LogWatch.Look(gLogging, gLogFile.Length(), Now)) return;
    IsFrameShown = false;
    UpdateStatus("RECORDING, BUT NOTHING ARRIVES");
}
} // namespace

void InitSampling(iSocket* Second)
{
    InitLink();
    InitDataWindows();
    FromPort.Begin();
    FromSocket.Begin();
    FrameSynced = IsFrameShown = false;
    Timer1 = 0;
    Timer1Interval = ReplayInterval;
    LogWatch = {};
    LinkClock = {};
    LinkWords.clear();
    DivertTo = {};
    gLinkSocket.Use(gHost.Socket, Second);
    gHost.SerialPort->OnData = MSComm1_OnComm;
    gHost.SerialPort->OnError = LinkLost;
    gLinkSocket.OnConnect = LinkOpened;
    gLinkSocket.OnData = tcpServer_DataArrival;
    gLinkSocket.OnClose = tcpServer_Close;
    gLinkSocket.OnError = LinkLost;
    gLinkSocket.OnTakeOver = LinkReplaced;
    gLinkWatch.Reopen = ReopenLink;
    gLinkWatch.TryBeside = TryBeside;
    gHost.Clock->StartRepeating(TickInterval, TickLink);
}

std::size_t FrameMin()
{
    return static_cast<std::size_t>(std::max<int16_t>(gFrameMin, 0));
}

bool TakeOne(iSerialPort& Port, cFrameFeed& Feed)
{
    const auto Taken = Feed.Take(FrameMin());
    Port.RThreshold = Taken ? FrameMin() : Feed.Missing();
    return Taken && PassFrame(FrameSource::Serial, *Taken);
}

bool TakeAll(FrameSource From, cFrameFeed& Feed, std::size_t Least)
{
    bool IsLastGood = false;
    while (const auto Taken = Feed.Take(Least))
        IsLastGood = PassFrame(From, *Taken);
    return IsLastGood;
}

void ShowLive()
{
    ShowFrame(LiveText());
}

void MSComm1_OnComm()
{
    if (Divert(FromPort)) return;
    if (TakeOne(*gHost.SerialPort, FromPort)) ShowLive();
}

void tcpServer_DataArrival(std::size_t)
{
    if (Divert(FromSocket)) return;
    if (TakeAll(FrameSource::Socket, FromSocket, FrameMin() + 1)) ShowLive();
}

void tcpServer_Close()
{
    LinkLost("closed by the logger");
    if (gLinkSocket.InUse().State() != eSocketState::Closed) gLinkSocket.InUse().Close();
}

void Timer1_Timer()
{
    if (!gReplaying) return;
    if (gReplayFile.AtEnd()) {
        if (IsAsking()) return; // the end closes windows, and one of them may wait for the answer
        const bool IsEmpty = gFrameCnt == 0;
        StopAll();
        CloseDForms();
        if (IsEmpty) MsgBox("There are no frames of a logger in the file: " + gReplayFile.Path(), TitleInformation);
        ReportUnread(gReplayFile.Left);
        return;
    }
    const auto Taken = gReplayFile.Take();
    if (!Taken) return;
    if (!PassFrame(FrameSource::Replay, *Taken))
        return gReplayFile.Left.AddBroken(gReplayFile.FrameAt(), static_cast<int64_t>(Taken->Bytes.size()));
    gReplayFile.Left.AddFrame(gSampleTime);
    ShowFrame(ReplayText());
}

void StartReplay(const std::string& Path)
{
    std::error_code Ignored;
    if (gLogging && std::filesystem::equivalent(Path, gLogFile.Path(), Ignored)) {
        MsgBox("The recording is still running: " + Path, TitleWarning);
        return;
    }
    if (!gReplayFile.Open(Path)) return;
    DropLink();
    CreateData();
    gReplayStream = NewStream();
    gReplayStream.IsOpen = true;
    RetryDataWindows();
    gFrameCnt = 0;
    gFirstCycle = true;
    gReplaying = true;
    gFromFile = true;
    StartTimer1();
}

void SetReplayInterval(int Milliseconds)
{
    Timer1Interval = std::max(Milliseconds, 1); // a session may have no sampling period
    if (Timer1 != 0) StartTimer1();
}

void StopReplay()
{
    gHost.Clock->StopTimer(Timer1);
    Timer1 = 0;
    Timer1Interval = ReplayInterval;
    gReplaying = false;
    gFromFile = false;
    gReplayStream.IsOpen = false;
    gReplayFile.Close();
}

bool IsReplayOpen()
{
    return Timer1 != 0;
}

void StartRecording()
{
    const bool IsIdle = !IsAcquiring();
    if (IsIdle && !OpenLink()) return;
    if (IsIdle) SendRun();
    StartLog();
    if (IsIdle && !gLogging) CloseLink();
    CloseUnusedLink(); // takes note that the recording uses it
}

void StopAll()
{
    if (gLogging) TakeRest();
    StopLog();
    StopReplay();
    StopDump();
}

bool IsAcquiring()
{
    return gLogging || IsReplayOpen() || gOwnLink || gLinkWatch.State() != cLinkWatch::eState::Closed;
}

void EndAcquisition()
{
    StopAll();
    CloseLink();
    CreateData();
}

void BeginStream()
{
    FromPort.Begin();
    FromSocket.Begin();
    gHost.SerialPort->RThreshold = DivertTo ? 1 : FrameMin();
    FrameSynced = false;
    RetryDataWindows();
}

void DivertLink(std::function<void(std::span<const uint8_t>)> Taker)
{
    DivertTo = std::move(Taker);
    if (Divert(gLinkSocket.InUse().State() == eSocketState::Connected ? FromSocket : FromPort))
        gHost.SerialPort->RThreshold = 1;
    else
        BeginStream();
}

bool IsLinkDiverted()
{
    return static_cast<bool>(DivertTo);
}

void TakeRest()
{
    if (gOwnLink) return gOwnLink->TakeRest();
    if (Divert(FromPort) && Divert(FromSocket)) return;
    const bool IsPortGood = TakeAll(FrameSource::Serial, FromPort, 0);
    const bool IsSocketGood = TakeAll(FrameSource::Socket, FromSocket, 0);
    if (IsPortGood || IsSocketGood) ShowLive();
}

void TickLink()
{
    const int64_t Now = gHost.Clock->Milliseconds();
    gLinkWatch.Tick(Now);
    CloseUnusedLink();
    CheckLive();
    TakeBackFrameText();
    WatchLog(Now);
    if (const std::string Words = WatchInUse().Words(Now); Words != LinkWords) {
        LinkWords = Words;
        ShowReading(Words);
    }
}

bool IsLogStarving()
{
    return LogWatch.IsStarving();
}
