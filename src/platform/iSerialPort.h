// A serial port, as the acquisition asks for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

/// What is done with bytes that were waiting on a line before it was opened.
enum class eWaiting
{
    Dropped, // a link that the user opens begins with what is sent from now on
    Kept     // a link that comes back goes on with all that was sent
};

class iSerialPort
{
public:
    virtual ~iSerialPort() = default;

    /// The machine's serial devices in a stable order: port number n is element n - 1.
    virtual std::vector<std::string> Devices() const = 0;

    /// Opens Device, binary and without handshaking, with Settings as "57600,n,8,1", and raises DTR where the line has
    /// it. False when it cannot be opened.
    virtual bool Open(const std::string& Device, const std::string& Settings, eWaiting Waiting) = 0;

    virtual bool IsOpen() const = 0;

    /// Bytes received and not yet taken.
    virtual std::size_t InBufferCount() const = 0;

    /// Takes up to Bytes.size() of the waiting bytes and gives their number; never waits.
    virtual std::size_t Input(std::span<uint8_t> Bytes) = 0;

    /// Sends Text; false when the port is closed or the line is broken.
    virtual bool Output(const std::string& Text) = 0;

    /// Closes the port; no event follows.
    virtual void Close() = 0;

    /// OnData is called when at least this many bytes are waiting, and once more in a later turn of the event loop
    /// while that holds; 0 is taken as 1.
    std::size_t RThreshold = 1;

    std::function<void()> OnData;

    /// The line broke, with the reason. Called once, from the event loop, when the port is already closed; what came
    /// before can still be taken within the call.
    std::function<void(const std::string& Reason)> OnError;
};
