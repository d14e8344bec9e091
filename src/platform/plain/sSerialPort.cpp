// Serial input as the loop reports it, kept until it is taken.
#include "platform/plain/sSerialPort.h"

#include "base/mError.h"
#include "platform/plain/sDevices.h"
#include "platform/plain/sSerialLine.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {
constexpr std::size_t BufferLimit = 4096;
} // namespace

sSerialPort::~sSerialPort()
{
    Close();
}

std::vector<std::string> sSerialPort::Devices() const
{
    return SerialDevices();
}

bool sSerialPort::Open(const std::string& Device, const std::string& Settings, eWaiting Waiting)
{
    Close();
    Descriptor = open(Device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (Descriptor < 0) return false;
    // Two programs on one line would take each other's bytes.
    if (flock(Descriptor, LOCK_EX | LOCK_NB) != 0 || !SetSerialLine(Descriptor, Settings)) {
        Close();
        return false;
    }
    if (Waiting == eWaiting::Dropped) tcflush(Descriptor, TCIOFLUSH);
    // A pseudo-terminal has no such line; it works without. On it exclusive use would outlive a program that is killed.
    int Ready = TIOCM_DTR;
    if (ioctl(Descriptor, TIOCMBIS, &Ready) == 0) ioctl(Descriptor, TIOCEXCL);
    WatchLine(true);
    return true;
}

std::size_t sSerialPort::Input(std::span<uint8_t> Bytes)
{
    const std::size_t Count = Received.Take(Bytes);
    if (IsHeld && InBufferCount() < BufferLimit) WatchLine(true);
    return Count;
}

// A command is a few bytes, which the kernel takes whole unless the line stands still.
bool sSerialPort::Output(const std::string& Text)
{
    return IsOpen() && write(Descriptor, Text.data(), Text.size()) == static_cast<ssize_t>(Text.size());
}

void sSerialPort::Close()
{
    CloseLine();
    Loop.StopTimer(NextTurn);
    Loop.StopTimer(Failure);
    NextTurn = Failure = 0;
    Received.Clear();
}

void sSerialPort::CloseLine()
{
    if (!IsOpen()) return;
    Loop.Unwatch(Descriptor);
    close(Descriptor);
    Descriptor = -1;
    IsHeld = false;
}

void sSerialPort::WatchLine(bool WantsBytes)
{
    IsHeld = !WantsBytes;
    Loop.Watch(Descriptor, WantsBytes ? POLLIN : 0, [this](short) { Read(); });
}

void sSerialPort::Read()
{
    std::array<uint8_t, BufferLimit> Room{};
    const ssize_t Got = read(Descriptor, Room.data(), Room.size());
    if (Got > 0) {
        Received.Add(std::span(Room).first(static_cast<std::size_t>(Got)));
        if (InBufferCount() >= BufferLimit) WatchLine(false);
        Tell();
    } else if (Got == 0) {
        Fail("the line was hung up");
    } else if (errno != EAGAIN && errno != EINTR) {
        Fail(SystemReason(errno));
    }
}

void sSerialPort::Tell()
{
    const auto IsEnough = [this] { return InBufferCount() >= std::max<std::size_t>(RThreshold, 1); };
    if (NextTurn != 0 || !IsEnough()) return;
    NextTurn = Loop.StartOnce(0, [this, IsEnough] {
        NextTurn = 0;
        if (OnData && IsEnough()) OnData();
        if (OnData) Tell();
    });
}

// A broken line would be reported again and again, so it is closed at once; what came before can still be taken.
void sSerialPort::Fail(const std::string& Reason)
{
    CloseLine();
    Failure = Loop.StartOnce(0, [this, Reason] {
        Failure = 0;
        if (OnError) OnError(Reason);
        if (!IsOpen()) Received.Clear();
    });
}
