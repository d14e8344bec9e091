// Two sockets that exchange their roles.
#include "acquisition/cSocketPair.h"

#include <utility>

void cSocketPair::Use(iSocket* First, iSocket* Second)
{
    Current = First;
    Other = Second;
    Bind(*Current);
    if (Other) Bind(*Other);
}

void cSocketPair::Connect(const std::string& Address, uint16_t Port)
{
    Host = Address;
    HostPort = Port;
    if (Other) Other->Close();
    Current->Connect(Host, HostPort);
}

void cSocketPair::TryBeside(const std::string& Greeting)
{
    if (!Other || Other->State() == eSocketState::Connected) return;
    Welcome = Greeting;
    Other->Connect(Host, HostPort);
}

void cSocketPair::Close()
{
    Current->Close();
    if (Other) Other->Close();
}

void cSocketPair::Bind(iSocket& Socket)
{
    Socket.OnConnect = [this, &Socket] { Connected(Socket); };
    Socket.OnData = [this, &Socket](std::size_t) { Arrived(Socket); };
    Socket.OnClose = [this, &Socket] {
        if (&Socket == Current && !IsReplaced()) OnClose();
    };
    Socket.OnError = [this, &Socket](const std::string& Reason) {
        if (&Socket == Current && !IsReplaced()) OnError(Reason);
    };
}

void cSocketPair::Connected(const iSocket& Socket)
{
    if (&Socket == Current)
        OnConnect();
    else
        Other->SendData(Welcome);
}

void cSocketPair::Arrived(const iSocket& Socket)
{
    if (&Socket == Other)
        TakeOver();
    else if (Other && Other->State() != eSocketState::Closed)
        Other->Close(); // the first is no longer silent
    OnData(Current->BytesReceived());
}

// The first has ended: whether the second replaces it.
bool cSocketPair::IsReplaced()
{
    if (!Other) return false;
    const bool IsThere = Other->State() == eSocketState::Connected;
    IsThere ? TakeOver() : Other->Close();
    return IsThere;
}

void cSocketPair::TakeOver()
{
    OnTakeOver();
    std::swap(Current, Other);
    Other->Close();
}
