// A TCP client socket, as the acquisition asks for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

enum class eSocketState
{
    Closed,
    Connecting,
    Connected
};

class iSocket
{
public:
    virtual ~iSocket() = default;

    /// Starts to connect; a connection that exists is dropped first. OnConnect, OnClose or OnError report the outcome.
    virtual void Connect(const std::string& Address, uint16_t Port) = 0;

    virtual eSocketState State() const = 0;

    /// Bytes received and not yet taken.
    virtual std::size_t BytesReceived() const = 0;

    /// Takes up to Bytes.size() of the waiting bytes and gives their number; never waits.
    virtual std::size_t GetData(std::span<uint8_t> Bytes) = 0;

    /// Sends Text; false when not connected.
    virtual bool SendData(const std::string& Text) = 0;

    /// Closes the connection or ends the attempt; no event follows.
    virtual void Close() = 0;

    std::function<void()> OnConnect;

    /// Data arrived: BytesTotal bytes are waiting. Bytes left by the handler are not reported again until more come.
    std::function<void(std::size_t BytesTotal)> OnData;

    /// The other side closed an existing connection. What came before can still be taken within the call.
    std::function<void()> OnClose;

    /// The connection could not be made or broke, with the reason. The socket is already closed; what came before can
    /// still be taken within the call.
    std::function<void(const std::string& Reason)> OnError;
};
