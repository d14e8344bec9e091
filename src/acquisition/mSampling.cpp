// What the three frame sources have in common and where they differ.
#include "acquisition/mSampling.h"

#include "acquisition/cLogWatch.h"
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

bool FrameSynced = false;
bool gReplaying = false;
RawFile gReplayFile;

namespace {
constexpr std::size_t InBufferSize = 2000; // bytes; a longer frame is never waited for
constexpr int TickInterval = 200;          // ms

ByteSource FromPort([](std::span<uint8_t> Room) { return gHost.SerialPort->Input(Room); }, Reading::AsAsked);
ByteSource FromSocket([](std::span<uint8_t> Room) { return gLinkSocket.InUse().GetData(Room); }, Reading::AsAsked);

int Timer1 = 0; // 0: not enabled
int Timer1Interval = ReplayInterval;

cRunClock LinkClock;

cLogWatch LogWatch;
bool IsFrameShown = false; // panel 2 shows a frame as live
std::string LinkWords;

// Bytes of the next frame that have arrived, from its sync byte on, and how many it takes to read it.
struct NextFrame
{
    std::size_t Waiting;
    std::size_t Needed;

    bool IsReady() const { return Waiting >= Needed; }
};

// InPort gives the bytes that wait in the port once those before the sync byte are dropped.
template <class Count>
NextFrame FindNext(ByteSource& Source, const Count& InPort, std::size_t Least)
{
    FindSync(Source);
    NextFrame Next{Source.Held() + InPort(), std::max(Least, FrameHeadSize)};
    if (Next.Waiting < FrameHeadSize) return Next;
    const std::size_t Size = Frame{Source.Peek(FrameHeadSize)}.Size();
    if (Size <= InBufferSize) Next.Needed = std::max(Least, Size);
    return Next;
}

NextFrame NextInPort(std::size_t Least)
{
    return FindNext(
        FromPort, [] { return gHost.SerialPort->InBufferCount(); }, Least);
}

NextFrame NextInSocket(std::size_t Least)
{
    return FindNext(
        FromSocket, [] { return gLinkSocket.InUse().BytesReceived(); }, Least);
}

std::size_t FrameMin()
{
    return static_cast<std::size_t>(std::max<int16_t>(gFrameMin, 0));
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
    gLinkWatch.Restarted();
    BeginRun();
}

// Takes, decodes and records the next frame, and offers it to the windows that compute. The log is a true copy of the
// stream, whatever the decoder says.
bool PassFrame(FrameSource From, const Frame& Taken)
{
    FrameSynced = DecodeLive(From, Taken, From == FrameSource::Replay ? gReplayStream : gLinkStream);
    LogFrame(Taken.Bytes);
    if (!FrameSynced) return false;
    gLinkWatch.FrameCame(gHost.Clock->Milliseconds());
    DumpFrame();
    if (From != FrameSource::Replay) WatchRun();
    SampleDataWindows();
    return true;
}

bool PassFrame(FrameSource From, ByteSource& Source)
{
    const auto Taken = TakeFrame(Source);
    return Taken && PassFrame(From, *Taken);
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
    const bool IsGone = gLinkWatch.State() == cLinkWatch::eState::Lost || gLinkWatch.IsSilent();
    if (!IsGone || !IsFrameShown) return;
    IsFrameShown = false;
    UpdateStatus("No frames");
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
    FromPort.Skip(FromPort.Held());
    FromSocket.Skip(FromSocket.Held());
    FrameSynced = IsFrameShown = false;
    Timer1 = 0;
    Timer1Interval = ReplayInterval;
    LogWatch = {};
    LinkClock = {};
    LinkWords.clear();
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

void MSComm1_OnComm()
{
    iSerialPort& Port = *gHost.SerialPort;
    const NextFrame Next = NextInPort(FrameMin());
    if (!Next.IsReady()) {
        Port.RThreshold = Next.Needed - FromPort.Held();
        return;
    }
    Port.RThreshold = FrameMin();
    if (PassFrame(FrameSource::Serial, FromPort)) ShowFrame(LiveText());
}

void tcpServer_DataArrival(std::size_t)
{
    bool IsLastGood = false;
    while (NextInSocket(FrameMin() + 1).IsReady())
        IsLastGood = PassFrame(FrameSource::Socket, FromSocket);
    if (IsLastGood) ShowFrame(LiveText());
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

void StopAll()
{
    if (gLogging) TakeRest();
    StopLog();
    StopReplay();
    StopDump();
}

bool IsAcquiring()
{
    return gLogging || IsReplayOpen() || gLinkWatch.State() != cLinkWatch::eState::Closed;
}

void EndAcquisition()
{
    StopAll();
    CloseLink();
    CreateData();
}

void BeginStream()
{
    FromPort.Skip(FromPort.Held());
    FromSocket.Skip(FromSocket.Held());
    gHost.SerialPort->RThreshold = FrameMin();
    FrameSynced = false;
    RetryDataWindows();
}

void TakeRest()
{
    bool IsLastGood = false;
    while (NextInPort(0).IsReady())
        IsLastGood = PassFrame(FrameSource::Serial, FromPort);
    while (NextInSocket(0).IsReady())
        IsLastGood = PassFrame(FrameSource::Socket, FromSocket);
    if (IsLastGood) ShowFrame(LiveText());
}

void TickLink()
{
    const int64_t Now = gHost.Clock->Milliseconds();
    gLinkWatch.Tick(Now);
    CloseUnusedLink();
    CheckLive();
    TakeBackFrameText();
    WatchLog(Now);
    if (const std::string Words = gLinkWatch.Words(Now); Words != LinkWords) {
        LinkWords = Words;
        ShowReading(Words);
    }
}

bool IsLogStarving()
{
    return LogWatch.IsStarving();
}
