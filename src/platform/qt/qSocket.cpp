// TCP client.
#include "platform/qt/qSocket.h"

#include "platform/plain/sSocket.h"
#include "platform/qt/qText.h"

#include <QNetworkProxy>
#include <QSignalBlocker>

qSocket::qSocket()
{
    // The logger is a neighbour: a proxy set for the web does not lead to it.
    Socket.setProxy(QNetworkProxy::NoProxy);
    QObject::connect(&Socket, &QTcpSocket::connected, &Socket, [this] {
        Socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        WatchPeer(static_cast<int>(Socket.socketDescriptor()));
        if (OnConnect) OnConnect();
    });
    QObject::connect(&Socket, &QTcpSocket::readyRead, &Socket, [this] {
        if (OnData) OnData(BytesReceived());
    });
    // Failures are reported in a later turn of the event loop: some come while the caller still is inside Connect.
    Failure.setSingleShot(true);
    QObject::connect(&Socket, &QTcpSocket::errorOccurred, &Socket, [this] { Failure.start(0); });
    QObject::connect(&Failure, &QTimer::timeout, &Socket, [this] { TellFailure(); });
}

void qSocket::Connect(const std::string& Address, uint16_t Port)
{
    Close();
    Socket.connectToHost(Shown(Address), Port);
}

eSocketState qSocket::State() const
{
    switch (Socket.state()) {
    case QAbstractSocket::ConnectedState:
        return eSocketState::Connected;
    case QAbstractSocket::HostLookupState:
    case QAbstractSocket::ConnectingState:
        return eSocketState::Connecting;
    default:
        return eSocketState::Closed;
    }
}

std::size_t qSocket::BytesReceived() const
{
    return static_cast<std::size_t>(Socket.bytesAvailable());
}

std::size_t qSocket::GetData(std::span<uint8_t> Bytes)
{
    if (Bytes.empty() || !Socket.isReadable()) return 0;
    const qint64 Taken = Socket.read(reinterpret_cast<char*>(Bytes.data()), static_cast<qint64>(Bytes.size()));
    return Taken > 0 ? static_cast<std::size_t>(Taken) : 0;
}

bool qSocket::SendData(const std::string& Text)
{
    if (State() != eSocketState::Connected) return false;
    const auto Size = static_cast<qint64>(Text.size());
    if (Socket.write(Text.data(), Size) != Size) return false;
    Socket.flush(); // the connection may be closed next
    return true;
}

void qSocket::Close()
{
    const QSignalBlocker Silent(Socket);
    Failure.stop();
    HasEnded = false;
    Socket.abort();
}

void qSocket::TellFailure()
{
    const bool Left = Socket.error() == QAbstractSocket::RemoteHostClosedError;
    // Closing throws away what was received, so it comes last, unless a new connection was asked for.
    HasEnded = true;
    if (Left) {
        if (OnClose) OnClose();
    } else if (OnError) {
        OnError(Plain(Socket.errorString()));
    }
    if (HasEnded) Close();
}
