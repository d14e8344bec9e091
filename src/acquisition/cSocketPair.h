// The connection to a wireless logger, and a second one that is tried beside it while it is silent.
#pragma once

#include "platform/iSocket.h"

/// After a gap in radio contact the first connection may stay silent for many seconds more, since TCP repeats lost data
/// at growing intervals; a new connection brings frames at once. The second connection replaces the first when it
/// brings data while the first is silent, or when the first ends.
class cSocketPair
{
public:
    /// First is the link's socket; Second may be null: then nothing is tried beside it. Both must outlive their use.
    void Use(iSocket* First, iSocket* Second);

    /// The socket of the link.
    iSocket& InUse() const { return *Current; }

    /// Starts to connect the link; what was connected before is dropped.
    void Connect(const std::string& Address, uint16_t Port);

    /// Starts an attempt beside the link; one without an answer yet is started afresh. Greeting is sent once connected.
    void TryBeside(const std::string& Greeting);

    /// Closes both; no event follows.
    void Close();

    // Events of the link's socket, as those of iSocket.
    std::function<void()> OnConnect;
    std::function<void(std::size_t BytesTotal)> OnData;
    std::function<void()> OnClose;
    std::function<void(const std::string& Reason)> OnError;

    /// The second connection is about to replace the first. What came over the first can still be taken.
    std::function<void()> OnTakeOver;

private:
    void Bind(iSocket& Socket);
    void Connected(const iSocket& Socket);
    void Arrived(const iSocket& Socket);
    bool IsReplaced();
    void TakeOver();

    iSocket* Current = nullptr;
    iSocket* Other = nullptr;
    std::string Host; // of the link
    uint16_t HostPort = 0;
    std::string Welcome; // sent over a second connection
};
