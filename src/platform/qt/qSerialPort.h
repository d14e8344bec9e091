// The serial port on the toolkit's event loop.
#pragma once

#include "platform/iSerialPort.h"

#include <QSerialPort>
#include <QTimer>

class qSerialPort : public iSerialPort
{
public:
    qSerialPort();

    std::vector<std::string> Devices() const override;
    bool Open(const std::string& Device, const std::string& Settings, eWaiting Waiting) override;
    bool IsOpen() const override;
    std::size_t InBufferCount() const override;
    std::size_t Input(std::span<uint8_t> Bytes) override;
    bool Output(const std::string& Text) override;
    void Close() override;

private:
    void Tell();
    void Fail(QSerialPort::SerialPortError Error);
    void TellFailure();

    QSerialPort Port;
    QTimer NextTurn; // reports again bytes that were left
    QTimer Failure;
    bool IsTelling = false;
    bool IsBroken = false; // for the rest of the program the port is closed
};
