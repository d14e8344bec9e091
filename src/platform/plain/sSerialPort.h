// A serial port on a plain event loop.
#pragma once

#include "platform/iSerialPort.h"
#include "platform/plain/sByteQueue.h"
#include "platform/plain/sEventLoop.h"

class sSerialPort : public iSerialPort
{
public:
    explicit sSerialPort(sEventLoop& InitLoop) : Loop(InitLoop) {}
    ~sSerialPort() override;
    sSerialPort(const sSerialPort&) = delete;
    sSerialPort& operator=(const sSerialPort&) = delete;

    std::vector<std::string> Devices() const override;
    bool Open(const std::string& Device, const std::string& Settings, eWaiting Waiting) override;
    bool IsOpen() const override { return Descriptor >= 0; }
    std::size_t InBufferCount() const override { return Received.Count(); }
    std::size_t Input(std::span<uint8_t> Bytes) override;
    bool Output(const std::string& Text) override;
    void Close() override;

private:
    void WatchLine(bool WantsBytes);
    void Read();
    void Tell();
    void Fail(const std::string& Reason);
    void CloseLine();

    sEventLoop& Loop;
    int Descriptor = -1;
    bool IsHeld = false; // reading waits until bytes have been taken
    ByteQueue Received;
    int NextTurn = 0; // timer that reports bytes, and again those that were left
    int Failure = 0;  // timer that reports a broken line
};
