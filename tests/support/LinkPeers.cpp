// Pseudo-terminals and loopback sockets.
#include "support/LinkPeers.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <stdlib.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace {
void Check(bool Done, const char* What)
{
    if (!Done) throw std::runtime_error(What);
}

std::string TakeAll(int Descriptor)
{
    std::string Bytes;
    std::array<char, 4096> Room{};
    while (true) {
        const ssize_t Got = read(Descriptor, Room.data(), Room.size());
        if (Got <= 0) return Bytes;
        Bytes.append(Room.data(), static_cast<std::size_t>(Got));
    }
}

void SendAll(int Descriptor, const std::string& Bytes)
{
    for (std::size_t Done = 0; Done < Bytes.size();) {
        const ssize_t Sent = write(Descriptor, Bytes.data() + Done, Bytes.size() - Done);
        if (Sent > 0) {
            Done += static_cast<std::size_t>(Sent);
            continue;
        }
        Check(errno == EAGAIN, "the link takes no bytes");
        pollfd Waiting{Descriptor, POLLOUT, 0};
        Check(poll(&Waiting, 1, 5000) == 1, "the other side does not read");
    }
}
} // namespace

PseudoTerminal::PseudoTerminal(const std::string& Link) : Path(Link)
{
    PutBack();
}

PseudoTerminal::~PseudoTerminal()
{
    Pull();
}

void PseudoTerminal::PutBack()
{
    Master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    Check(Master >= 0 && grantpt(Master) == 0 && unlockpt(Master) == 0, "no pseudo-terminal");
    // As with an adapter: the line gives no byte a special meaning.
    termios Line{};
    tcgetattr(Master, &Line);
    cfmakeraw(&Line);
    tcsetattr(Master, TCSANOW, &Line);
    std::filesystem::create_symlink(ptsname(Master), Path);
}

void PseudoTerminal::Pull()
{
    if (Master < 0) return;
    std::filesystem::remove(Path);
    close(Master);
    Master = -1;
}

void PseudoTerminal::Send(const std::string& Bytes) const
{
    SendAll(Master, Bytes);
}

std::string PseudoTerminal::Take() const
{
    return TakeAll(Master);
}

LoopbackServer::LoopbackServer()
{
    Listen();
}

LoopbackServer::~LoopbackServer()
{
    Drop();
    if (Silent >= 0) close(Silent);
    StopListening();
}

void LoopbackServer::Listen()
{
    Door = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int Yes = 1;
    setsockopt(Door, SOL_SOCKET, SO_REUSEADDR, &Yes, sizeof Yes);
    sockaddr_in Place{};
    Place.sin_family = AF_INET;
    Place.sin_port = htons(Number);
    Place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* Address = reinterpret_cast<sockaddr*>(&Place);
    socklen_t Size = sizeof Place;
    Check(bind(Door, Address, Size) == 0 && listen(Door, 1) == 0 && getsockname(Door, Address, &Size) == 0,
          "no loopback server");
    Number = ntohs(Place.sin_port);
}

void LoopbackServer::StopListening()
{
    if (Door >= 0) close(Door);
    Door = -1;
}

bool LoopbackServer::Accept()
{
    const int Found = accept4(Door, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (Found < 0) return false;
    Drop();
    Peer = Found;
    return true;
}

bool LoopbackServer::AcceptBeside()
{
    const int First = std::exchange(Peer, -1);
    const bool IsThere = Accept();
    (IsThere ? Silent : Peer) = First;
    return IsThere;
}

void LoopbackServer::ServeFirst()
{
    std::swap(Peer, Silent);
}

bool LoopbackServer::IsFirstClosed() const
{
    char Byte = 0;
    return recv(Silent, &Byte, 1, MSG_PEEK) == 0;
}

void LoopbackServer::Send(const std::string& Bytes) const
{
    SendAll(Peer, Bytes);
}

std::string LoopbackServer::Take() const
{
    return TakeAll(Peer);
}

void LoopbackServer::Drop()
{
    if (Peer >= 0) close(Peer);
    Peer = -1;
}

void LoopbackServer::Abort()
{
    const linger Forget{1, 0};
    setsockopt(Peer, SOL_SOCKET, SO_LINGER, &Forget, sizeof Forget);
    Drop();
}
