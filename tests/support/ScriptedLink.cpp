// Ports fed by hand.
#include "support/ScriptedLink.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mError.h"
#include "core/mGlobData.h"

#include <algorithm>

namespace {
void Add(ByteQueue& Queue, const std::string& Bytes)
{
    Queue.Add({reinterpret_cast<const uint8_t*>(Bytes.data()), Bytes.size()});
}

char Low(int Value)
{
    return static_cast<char>(Value % 128);
}
} // namespace

std::string PlainFrame(int Time, int BodySize)
{
    std::string Body(static_cast<std::size_t>(BodySize), '\0');
    Body[0] = Low(Time);
    Body[1] = Low(Time / 128);
    Body[2] = Low(Time / 16384);
    const int Length = BodySize - 1;
    return std::string{'\xff', 'h', Low(Length), Low(Length / 128)} + Body;
}

std::string LongFrame(int Time)
{
    std::string Frame = PlainFrame(Time, 35);
    Frame[4 + 5] = 1;
    Frame[4 + 6] = 26;
    return Frame;
}

std::string ShortFrame(int Time)
{
    return PlainFrame(Time, 29);
}

void ScriptedPort::Feed(const std::string& Bytes)
{
    Add(Queue, Bytes);
    while (IsOpen() && InBufferCount() >= std::max<std::size_t>(RThreshold, 1)) {
        ++Events;
        OnData();
    }
}

void ScriptedPort::Pull()
{
    std::erase(Plugged, Device);
    Device.clear();
    OnError("the line was hung up");
    if (!IsOpen()) Queue.Clear();
}

bool ScriptedPort::Open(const std::string& Path, const std::string& Line)
{
    Close();
    if (std::find(Plugged.begin(), Plugged.end(), Path) == Plugged.end()) return false;
    Device = Path;
    Settings = Line;
    return true;
}

bool ScriptedPort::Output(const std::string& Text)
{
    if (IsOpen()) Sent += Text;
    return IsOpen();
}

void ScriptedPort::Close()
{
    Device.clear();
    Queue.Clear();
}

void ScriptedSocket::Connect(const std::string& Address, uint16_t Port)
{
    Close();
    Place = Address + ":" + std::to_string(Port);
    Connection = eSocketState::Connecting;
}

void ScriptedSocket::Answer()
{
    Connection = eSocketState::Connected;
    OnConnect();
}

void ScriptedSocket::Feed(const std::string& Bytes)
{
    Add(Queue, Bytes);
    OnData(Queue.Count());
}

void ScriptedSocket::Drop()
{
    Connection = eSocketState::Closed;
    OnClose();
    Queue.Clear();
}

bool ScriptedSocket::SendData(const std::string& Text)
{
    if (Connection == eSocketState::Connected) Sent += Text;
    return Connection == eSocketState::Connected;
}

void ScriptedSocket::Close()
{
    Connection = eSocketState::Closed;
    Queue.Clear();
}

void CountingWindow::DrawData()
{
    ++Drawn;
    if (Fails) throw RunError("Division by zero");
}

LinkState::LinkState()
{
    gFile = {};
    gFrameCnt = gMissed = 0;
    gFrameMin = 0;
    gHost.Clock = &Clock;
    gHost.SerialPort = &Port;
    gHost.Socket = &Socket;
    InitSampling();
}

LinkState::~LinkState()
{
    StopAll();
    DropLink();
}

std::string LinkState::Panel(int Number) const
{
    const std::string Start = std::string(1, static_cast<char>('0' + Number)) + ": ";
    for (auto Text = Status.Shown.rbegin(); Text != Status.Shown.rend(); ++Text)
        if (Text->starts_with(Start)) return Text->substr(3);
    return "";
}
