// The TCP client on the toolkit's event loop.
#pragma once

#include "platform/iSocket.h"

#include <QTcpSocket>
#include <QTimer>

class qSocket : public iSocket
{
public:
    qSocket();

    void Connect(const std::string& Address, uint16_t Port) override;
    eSocketState State() const override;
    std::size_t BytesReceived() const override;
    std::size_t GetData(std::span<uint8_t> Bytes) override;
    bool SendData(const std::string& Text) override;
    void Close() override;

private:
    void TellFailure();

    QTcpSocket Socket;
    QTimer Failure;
    bool HasEnded = false;
};
