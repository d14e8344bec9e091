// Sockets and pseudo-terminals without waiting.
#include "sim/cLine.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "platform/plain/sSerialLine.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
std::string WhyNot()
{
    return SystemReason(errno);
}

void CloseFile(int& Descriptor)
{
    if (Descriptor >= 0) close(Descriptor);
    Descriptor = -1;
}
} // namespace

std::string cLine::OpenPort(uint16_t Port)
{
    Listener = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int Yes = 1;
    setsockopt(Listener, SOL_SOCKET, SO_REUSEADDR, &Yes, sizeof Yes);
    sockaddr_in Address{};
    Address.sin_family = AF_INET;
    Address.sin_port = htons(Port);
    Address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const auto* const Generic = reinterpret_cast<const sockaddr*>(&Address);
    if (Listener < 0 || bind(Listener, Generic, sizeof Address) != 0 || listen(Listener, 1) != 0) {
        const std::string Reason = WhyNot();
        CloseFile(Listener);
        return Reason;
    }
    Loop.Watch(Listener, POLLIN, [this](short) { Accept(); });
    return {};
}

std::string cLine::OpenTerminal(const std::string& Path)
{
    const int Near = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 64> Name{};
    if (Near < 0 || grantpt(Near) != 0 || unlockpt(Near) != 0 || ptsname_r(Near, Name.data(), Name.size()) != 0)
        return WhyNot();
    FarEnd = open(Name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    Attach(Near);
    if (FarEnd < 0 || !SetSerialLine(FarEnd, "115200,n,8,1")) return WhyNot();
    // A link left by a simulator that was killed is replaced, a file of the user's is not.
    std::array<char, 64> Old{};
    if (readlink(Path.c_str(), Old.data(), Old.size()) > 0) unlink(Path.c_str());
    if (symlink(Name.data(), Path.c_str()) != 0) return WhyNot();
    Link = Path;
    return {};
}

int cLine::Speed() const
{
    return SerialSpeed(FarEnd);
}

void cLine::SetSpeed(int Baud) const
{
    if (FarEnd >= 0) SetSerialLine(FarEnd, FormatNum(Baud, "0") + ",n,8,1");
}

void cLine::Close()
{
    Detach();
    CloseFile(FarEnd);
    if (Listener >= 0) Loop.Unwatch(Listener);
    CloseFile(Listener);
    if (!Link.empty()) unlink(Link.c_str());
    Link.clear();
}

void cLine::Accept()
{
    const int Descriptor = accept4(Listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (Descriptor < 0) return;
    const int Yes = 1;
    setsockopt(Descriptor, IPPROTO_TCP, TCP_NODELAY, &Yes, sizeof Yes);
    // The logger serves one listener; the one who comes last has it.
    Detach();
    Attach(Descriptor);
}

void cLine::Attach(int Descriptor)
{
    Peer = Descriptor;
    Loop.Watch(Peer, POLLIN, [this](short Events) { React(Events); });
    if (OnConnect) OnConnect();
}

void cLine::Detach()
{
    Waiting.clear();
    if (Peer >= 0) Loop.Unwatch(Peer);
    CloseFile(Peer);
}

void cLine::React(short Events)
{
    if ((Events & POLLOUT) != 0) Flush();
    if (Peer < 0 || (Events & (POLLIN | POLLHUP | POLLERR)) == 0) return;
    std::array<char, 512> Room;
    const ssize_t Got = read(Peer, Room.data(), Room.size());
    if (Got > 0) {
        OnText(std::string(Room.data(), static_cast<std::size_t>(Got)));
        return;
    }
    if (Got == 0 || (errno != EAGAIN && errno != EINTR)) Detach();
}

bool cLine::IsDrained() const
{
    int Unread = 0;
    if (FarEnd >= 0 && ioctl(FarEnd, FIONREAD, &Unread) != 0) Unread = 0;
    return Waiting.empty() && Unread == 0;
}

void cLine::Send(std::span<const uint8_t> Bytes)
{
    if (Peer < 0) return;
    Waiting.insert(Waiting.end(), Bytes.begin(), Bytes.end());
    Flush();
}

void cLine::Flush()
{
    while (!Waiting.empty()) {
        const bool IsSocket = Listener >= 0;
        const ssize_t Written = IsSocket ? send(Peer, Waiting.data(), Waiting.size(), MSG_NOSIGNAL)
                                         : write(Peer, Waiting.data(), Waiting.size());
        if (Written < 0 && errno == EINTR) continue;
        if (Written < 0 && errno != EAGAIN) {
            Detach();
            return;
        }
        if (Written < 0) break;
        Waiting.erase(Waiting.begin(), Waiting.begin() + Written);
    }
    Loop.Watch(Peer, Waiting.empty() ? POLLIN : POLLIN | POLLOUT, [this](short Events) { React(Events); });
}
