// The logger's ends of real links for tests: a pseudo-terminal and a TCP server on the loopback address.
#pragma once

#include <cstdint>
#include <string>

/// A serial line whose device is known by one name, however often it is pulled and put back.
class PseudoTerminal
{
public:
    /// Link is the path of the device for the other side.
    explicit PseudoTerminal(const std::string& Link);
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    void PutBack();
    void Pull();
    void Send(const std::string& Bytes) const;

    /// What the other side has sent and was not yet taken.
    std::string Take() const;

private:
    std::string Path;
    int Master = -1;
};

/// A server for one connection at a time, or for a second one beside a connection that falls silent.
class LoopbackServer
{
public:
    LoopbackServer();
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    uint16_t Port() const { return Number; }

    /// Takes a connection that was asked for; false when there is none.
    bool Accept();

    /// Takes a second connection and serves it; the first stays open and is silent until it is served again.
    bool AcceptBeside();
    void ServeFirst();

    /// Whether the first connection was closed by the other side.
    bool IsFirstClosed() const;

    /// Sends within the time that a slow reader needs.
    void Send(const std::string& Bytes) const;
    std::string Take() const;

    /// Closes the connection; Abort does it as a host that forgot it.
    void Drop();
    void Abort();

    /// Refuses connections from now on, and takes them again on the same port.
    void StopListening();
    void Listen();

private:
    int Door = -1;
    int Peer = -1;
    int Silent = -1; // the first of two connections
    uint16_t Number = 0;
};
