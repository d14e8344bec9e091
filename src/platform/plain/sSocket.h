// A TCP client on a plain event loop.
#pragma once

#include "platform/iSocket.h"
#include "platform/plain/sByteQueue.h"
#include "platform/plain/sEventLoop.h"

#include <vector>

/// Turns on TCP keep-alive with an interval of a few seconds, so that a connection whose other end
/// lost power breaks within half a minute, while a wireless gap shorter than that loses nothing.
void WatchPeer(int Descriptor);

class sSocket : public iSocket
{
public:
    explicit sSocket(sEventLoop& InitLoop) : Loop(InitLoop) {}
    ~sSocket() override;
    sSocket(const sSocket&) = delete;
    sSocket& operator=(const sSocket&) = delete;

    void Connect(const std::string& Address, uint16_t Port) override;
    eSocketState State() const override { return Connection; }
    std::size_t BytesReceived() const override { return Received.Count(); }
    std::size_t GetData(std::span<uint8_t> Bytes) override { return Received.Take(Bytes); }
    bool SendData(const std::string& Text) override;
    void Close() override;

private:
    struct Place // an address in the kernel's form
    {
        int Family = 0;
        std::vector<uint8_t> Bytes;
    };

    void TryNext(int Error);
    void Finish();
    void Read();
    void End(const std::function<void()>& Report);
    void CloseLine();

    sEventLoop& Loop;
    eSocketState Connection = eSocketState::Closed;
    int Descriptor = -1;
    std::vector<Place> Places; // still to be tried
    ByteQueue Received;
    int Outcome = 0; // timer that reports how the connection ended
};
