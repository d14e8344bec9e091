// The near end of a link that the simulated logger hangs on: a TCP port or a pseudo-terminal.
#pragma once

#include "platform/plain/sEventLoop.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

/// One link with at most one listener. A port answers to this machine alone.
class cLine
{
public:
    explicit cLine(sEventLoop& EventLoop) : Loop(EventLoop) {}
    ~cLine() { Close(); }
    cLine(const cLine&) = delete;
    cLine& operator=(const cLine&) = delete;

    /// Opens a TCP port, or a pseudo-terminal behind a symbolic link. Gives an empty text, or why it is not open.
    std::string OpenPort(uint16_t Port);
    std::string OpenTerminal(const std::string& Link);

    /// Ends the link: the listener is hung up, the port or terminal is gone.
    void Close();

    /// The speed of a terminal's line in baud, as either end has set it; 0 of a port.
    int Speed() const;

    /// Sets the speed of a terminal's line; it can be seen at the other end.
    void SetSpeed(int Baud) const;

    /// Whether bytes sent now reach somebody, as far as that can be known.
    bool IsConnected() const { return Peer >= 0; }

    /// Whether the listener has not yet taken what was sent.
    bool IsFull() const { return !Waiting.empty(); }

    /// Whether the listener has taken everything. Of a port this is known only as far as the system's buffers.
    bool IsDrained() const;

    /// Sends Bytes; what the listener does not take now goes out as soon as it does.
    void Send(std::span<const uint8_t> Bytes);

    std::function<void(const std::string& Text)> OnText; // the listener sent something
    std::function<void()> OnConnect;                     // somebody listens now

private:
    void Accept();
    void Attach(int Descriptor);
    void Detach();
    void React(short Events);
    void Flush();

    sEventLoop& Loop;
    int Listener = -1; // of a port
    int Peer = -1;     // connection or terminal
    int FarEnd = -1;   // of a terminal, held open so that it lasts when the listener goes
    std::string Link;  // of a terminal
    std::vector<uint8_t> Waiting;
};
