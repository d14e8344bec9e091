// Connecting without waiting, one address of a name after another, and receiving.
#include "platform/plain/sSocket.h"

#include "base/mError.h"
#include "base/mNumText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
void SetOption(int Descriptor, int Level, int Name, int Value)
{
    setsockopt(Descriptor, Level, Name, &Value, sizeof Value);
}
} // namespace

void WatchPeer(int Descriptor)
{
    SetOption(Descriptor, SOL_SOCKET, SO_KEEPALIVE, 1);
    SetOption(Descriptor, IPPROTO_TCP, TCP_KEEPIDLE, 3);  // s of silence before the first probe
    SetOption(Descriptor, IPPROTO_TCP, TCP_KEEPINTVL, 3); // s between probes
    SetOption(Descriptor, IPPROTO_TCP, TCP_KEEPCNT, 8);   // probes without an answer
}

sSocket::~sSocket()
{
    Close();
}

void sSocket::Connect(const std::string& Address, uint16_t Port)
{
    Close();
    Connection = eSocketState::Connecting;
    addrinfo Wanted{};
    Wanted.ai_socktype = SOCK_STREAM;
    addrinfo* Found = nullptr;
    const int Wrong = getaddrinfo(Address.c_str(), FormatNum(Port, "0").c_str(), &Wanted, &Found);
    if (Wrong != 0)
        return End([this] {
            if (OnError) OnError("no computer of that name is known");
        });
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> Owner(Found, freeaddrinfo);
    for (const addrinfo* Each = Found; Each != nullptr; Each = Each->ai_next) {
        const auto* Bytes = reinterpret_cast<const uint8_t*>(Each->ai_addr);
        Places.push_back({Each->ai_family, {Bytes, Bytes + Each->ai_addrlen}});
    }
    TryNext(EHOSTUNREACH);
}

// Error is why the address before was given up.
void sSocket::TryNext(int Error)
{
    CloseLine();
    if (Places.empty())
        return End([this, Error] {
            if (OnError) OnError(SystemReason(Error));
        });
    const Place Next = Places.front();
    Places.erase(Places.begin());
    Descriptor = socket(Next.Family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (Descriptor < 0) return TryNext(errno);
    const auto Failed = connect(Descriptor, reinterpret_cast<const sockaddr*>(Next.Bytes.data()),
                                static_cast<socklen_t>(Next.Bytes.size())) != 0;
    if (Failed && errno != EINPROGRESS) return TryNext(errno);
    Loop.Watch(Descriptor, POLLOUT, [this](short) { Finish(); });
}

void sSocket::Finish()
{
    int Error = 0;
    socklen_t Size = sizeof Error;
    getsockopt(Descriptor, SOL_SOCKET, SO_ERROR, &Error, &Size);
    if (Error != 0) return TryNext(Error);
    Connection = eSocketState::Connected;
    SetOption(Descriptor, IPPROTO_TCP, TCP_NODELAY, 1);
    WatchPeer(Descriptor);
    Loop.Watch(Descriptor, POLLIN, [this](short) { Read(); });
    if (OnConnect) OnConnect();
}

void sSocket::Read()
{
    std::array<uint8_t, 16384> Room{};
    const ssize_t Got = recv(Descriptor, Room.data(), Room.size(), 0);
    if (Got > 0) {
        Received.Add(std::span(Room).first(static_cast<std::size_t>(Got)));
        if (OnData) OnData(BytesReceived());
    } else if (Got == 0) {
        End([this] {
            if (OnClose) OnClose();
        });
    } else if (errno != EAGAIN && errno != EINTR) {
        End([this, Error = errno] {
            if (OnError) OnError(SystemReason(Error));
        });
    }
}

// Reported from the event loop; what came before can still be taken then.
void sSocket::End(const std::function<void()>& Report)
{
    CloseLine();
    Connection = eSocketState::Closed;
    Outcome = Loop.StartOnce(0, [this, Report] {
        Outcome = 0;
        Report();
        if (Connection == eSocketState::Closed) Received.Clear();
    });
}

bool sSocket::SendData(const std::string& Text)
{
    if (Connection != eSocketState::Connected) return false;
    return send(Descriptor, Text.data(), Text.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(Text.size());
}

void sSocket::CloseLine()
{
    if (Descriptor < 0) return;
    Loop.Unwatch(Descriptor);
    close(Descriptor);
    Descriptor = -1;
}

void sSocket::Close()
{
    CloseLine();
    Connection = eSocketState::Closed;
    Loop.StopTimer(Outcome);
    Outcome = 0;
    Places.clear();
    Received.Clear();
}
