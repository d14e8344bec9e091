// Opening, losing and giving back a window's own link.
#include "acquisition/cOwnLink.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "platform/plain/sDevices.h"

#include <algorithm>
#include <utility>

cOwnLink* gOwnLink = nullptr;

namespace {
constexpr int32_t LastTCPport = 65535;

std::string RunLine()
{
    return std::string(RunCommand) + "\r";
}

int64_t Now()
{
    return gHost.Clock->Milliseconds();
}
} // namespace

cOwnLink::cOwnLink(std::string Name, iSerialPort& InitPort, iSocket& InitSocket)
    : Window(std::move(Name)), Port(InitPort), Socket(InitSocket),
      FromPort([this](std::span<uint8_t> Room) { return Port.Input(Room); }, [this] { return Port.InBufferCount(); }),
      FromSocket([this](std::span<uint8_t> Room) { return Socket.GetData(Room); },
                 [this] { return Socket.BytesReceived(); })
{
    Port.OnData = [this] {
        if (TakeOne(Port, FromPort)) ShowLive();
    };
    Port.OnError = [this](const std::string& Reason) { Lost(Reason); };
    Socket.OnConnect = [this] { Opened(); };
    Socket.OnData = [this](std::size_t) {
        if (TakeAll(FrameSource::Socket, FromSocket, FrameMin() + 1)) ShowLive();
    };
    Socket.OnClose = [this] { Lost("closed by the logger"); };
    Socket.OnError = [this](const std::string& Reason) { Lost(Reason); };
    State.Reopen = [this] { TryOpen(); };
}

void cOwnLink::Open()
{
    IsWanted = true;
    TryOpen();
}

void cOwnLink::Close()
{
    Suspend();
    IsWanted = WasOpen = false;
}

void cOwnLink::Suspend()
{
    if (gOwnLink == this) {
        if (gLogging) TakeRest();
        gOwnLink = nullptr;
        gLinkStream.IsOpen = false;
        gFile.Signed = gSignedADC;
        gFrameMin = 0; // recordings are read as without a link
    }
    Port.Close();
    Socket.Close();
    State.Closed();
}

void cOwnLink::Tick()
{
    if (!IsWanted) return;
    if (gOwnLink == this) TakeRest();
    if (Tried != LinkName() && !gLogging) Suspend();
    if (State.State() == cLinkWatch::eState::Closed)
        TryOpen();
    else
        State.Tick(Now());
}

void cOwnLink::TakeRest()
{
    const bool IsPortGood = TakeAll(FrameSource::Serial, FromPort, 0);
    const bool IsSocketGood = TakeAll(FrameSource::Socket, FromSocket, 0);
    if (IsPortGood || IsSocketGood) ShowLive();
}

std::string cOwnLink::Words() const
{
    if (IsReplayOpen()) return "A recording is played";
    if (gLinkWatch.State() != cLinkWatch::eState::Closed)
        return LinkName() + " is taken by the main window's link, whose frames are shown";
    return State.Words(Now());
}

// What is open elsewhere stays open: the user asked for it, too, and its frames would be lost.
void cOwnLink::TryOpen()
{
    if (IsReplayOpen() || gLinkWatch.State() != cLinkWatch::eState::Closed) return State.Closed();
    Tried = LinkName();
    if (gOwnLink && gOwnLink != this) return Refuse(gOwnLink->Owner() + " has the link");
    if (gConnection == ConnectionTCP)
        Connect();
    else
        OpenSerial();
}

void cOwnLink::OpenSerial()
{
    const std::string Line = LineOfModel();
    if (SelectedDevice(Port).empty() && !FindPort(Port, Line)) return Refuse("no serial port was found");
    const std::string Device = SelectedDevice(Port);
    if (!Port.Open(Device, Line, WasOpen ? eWaiting::Kept : eWaiting::Dropped)) return Refuse(WhyShut(Device));
    TakeModelSizes();
    if (gOwnLink != this) BeginLive();
    gOwnLink = this;
    Opened();
}

void cOwnLink::Connect()
{
    if (gOwnLink != this) BeginLive();
    gOwnLink = this;
    State.Connecting(LinkName(), Now());
    Socket.Connect(gLinkAddress, static_cast<uint16_t>(std::clamp(gLinkPort, 0, LastTCPport)));
}

void cOwnLink::Opened()
{
    WasOpen = true;
    Tried = LinkName(); // another port may have been found
    FromPort.Begin();
    FromSocket.Begin();
    Port.RThreshold = FrameMin();
    FrameSynced = false;
    RetryDataWindows();
    State.Opened(LinkName(), Now());
    if (Port.IsOpen())
        Port.Output(RunLine());
    else
        Socket.SendData(RunLine());
}

// A link that was open stays this window's while it is lost: the recording goes on when it is back.
void cOwnLink::Lost(const std::string& Reason)
{
    TakeRest();
    State.Lost(Reason, Now());
}

void cOwnLink::Refuse(const std::string& Reason)
{
    if (State.State() == cLinkWatch::eState::Closed) State.Connecting(LinkName(), Now());
    State.Lost(Reason, Now());
}
