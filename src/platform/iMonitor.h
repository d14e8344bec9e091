// A performance monitor on a cable, as the monitor link asks for it: units that are attached, and one frame for
// another.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// What came of a call; the numbers are result codes of the link.
enum class eMonitorCode : int16_t
{
    Success = 0,
    NotOpened = 1, // no such unit, or it may not be opened
    NoAnswer = 2,  // none within the time
    Gone = 3,      // the unit was unplugged; it is closed
    TooLong = 4    // a frame that no report can carry
};

/// All calls come from one thread at a time.
class iMonitor
{
public:
    virtual ~iMonitor() = default;

    /// Names of the products that are attached now, by unit number from 0.
    virtual std::vector<std::string> Discover() = 0;

    /// Opens a unit of the last discovery; one that is open is closed first.
    virtual eMonitorCode Open(int16_t Unit) = 0;

    /// Sends a whole frame and waits at most Wait milliseconds for the answer, a whole frame in Reply.
    virtual eMonitorCode Command(std::span<const uint8_t> Frame, std::vector<uint8_t>& Reply, int Wait) = 0;

    /// Closes the unit, if one is open.
    virtual void Close() = 0;

    /// Why the last Open failed, in the words of the operating system; empty when they are not known.
    virtual std::string Reason() const = 0;
};
