// Ports that a test feeds by hand, a window that counts, and the frames to feed.
#pragma once

#include "base/mError.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "platform/iSerialPort.h"
#include "platform/iSocket.h"
#include "platform/plain/sByteQueue.h"
#include "support/ScriptedDialogs.h"
#include "support/TestClock.h"

#include <algorithm>
#include <string>

/// A frame of a master without slaves: S is 35, the time is in milliseconds. Its kind is 26.
std::string LongFrame(int Time);

/// A frame of a slave of 8 channels: S is 29.
std::string ShortFrame(int Time);

/// A frame with that many bytes in its body, all of them 0 behind the time.
std::string PlainFrame(int Time, int BodySize);

class ScriptedPort : public iSerialPort
{
public:
    /// What Devices gives, and what can be opened.
    std::vector<std::string> Plugged;
    std::string Device;   // that is open
    std::string Settings; // that it was opened with last
    std::string Refused;  // the settings with which it cannot be opened
    std::string Sent;
    int Events = 0;

    /// Bytes come in: the events that follow at once.
    void Feed(const std::string& Bytes)
    {
        Queue.Add({reinterpret_cast<const uint8_t*>(Bytes.data()), Bytes.size()});
        for (; IsOpen() && InBufferCount() >= std::max<std::size_t>(RThreshold, 1); OnData())
            ++Events;
    }

    /// The line breaks.
    void Pull()
    {
        std::erase(Plugged, Device);
        Device.clear();
        OnError("the line was hung up");
        if (!IsOpen()) Queue.Clear();
    }

    std::vector<std::string> Devices() const override { return Plugged; }
    bool Open(const std::string& Path, const std::string& Line, eWaiting) override
    {
        Close();
        if (std::find(Plugged.begin(), Plugged.end(), Path) == Plugged.end() || Line == Refused) return false;
        Device = Path;
        Settings = Line;
        return true;
    }
    bool IsOpen() const override { return !Device.empty(); }
    std::size_t InBufferCount() const override { return Queue.Count(); }
    std::size_t Input(std::span<uint8_t> Bytes) override { return Queue.Take(Bytes); }
    bool Output(const std::string& Text) override
    {
        if (IsOpen()) Sent += Text;
        return IsOpen();
    }
    void Close() override
    {
        Device.clear();
        Queue.Clear();
    }

private:
    ByteQueue Queue;
};

class ScriptedSocket : public iSocket
{
public:
    std::string Place; // "address:port" of the last Connect
    std::string Sent;

    void Answer()
    {
        Connection = eSocketState::Connected;
        OnConnect();
    }
    void Feed(const std::string& Bytes)
    {
        Queue.Add({reinterpret_cast<const uint8_t*>(Bytes.data()), Bytes.size()});
        OnData(Queue.Count());
    }
    void Drop()
    {
        Connection = eSocketState::Closed;
        OnClose();
        Queue.Clear();
    }

    void Connect(const std::string& Address, uint16_t Port) override
    {
        Close();
        Place = Address + ":" + std::to_string(Port);
        Connection = eSocketState::Connecting;
    }
    eSocketState State() const override { return Connection; }
    std::size_t BytesReceived() const override { return Queue.Count(); }
    std::size_t GetData(std::span<uint8_t> Bytes) override { return Queue.Take(Bytes); }
    bool SendData(const std::string& Text) override
    {
        if (Connection == eSocketState::Connected) Sent += Text;
        return Connection == eSocketState::Connected;
    }
    void Close() override
    {
        Connection = eSocketState::Closed;
        Queue.Clear();
    }

private:
    ByteQueue Queue;
    eSocketState Connection = eSocketState::Closed;
};

/// A data window that counts its frames.
class CountingWindow : public cDataWindow
{
public:
    CountingWindow() : cDataWindow(DataTag) {}
    int Drawn = 0;
    std::vector<double> Sampled; // times of the frames
    std::vector<double> Runs;    // times of the first frames of new runs
    bool IsShownLive = false;
    bool IsUnloaded = false;
    bool Fails = false;
    bool FailsInSample = false;

    void NewRun() override { Runs.push_back(gData[0]); }
    void TakeSample() override
    {
        Sampled.push_back(gData[0]);
        if (FailsInSample) throw RunError("Overflow");
    }
    void DrawData() override
    {
        ++Drawn;
        if (Fails) throw RunError("Division by zero");
    }
    void SetLive(bool Live) override { IsShownLive = Live; }
    void Unload() override { IsUnloaded = true; }
};

/// A program with a link, as far as a test moves it.
class LinkState : public FreshState
{
public:
    LinkState();
    ~LinkState();
    LinkState(const LinkState&) = delete;
    LinkState& operator=(const LinkState&) = delete;

    ScriptedPort Port;
    ScriptedSocket Socket;
    ScriptedSocket SecondSocket;
    TestClock Clock;

    /// The last text of a status panel.
    std::string Panel(int Number) const;
};
