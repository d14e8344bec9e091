// Notices a recording into which nothing flows.
#pragma once

#include <cstdint>

/// Times are the clock's milliseconds, lengths are bytes of the recording.
class cLogWatch
{
public:
    /// To be called a few times a second. True when the recording has just begun to starve.
    bool Look(bool IsLogging, int64_t Length, int64_t Now)
    {
        const bool WasStarving = Starving;
        if (!IsLogging || Length != LastLength) {
            LastLength = Length;
            LastGrowth = Now;
        }
        Starving = Now - LastGrowth >= StarvingAfter;
        return Starving && !WasStarving;
    }

    /// Whether a recording is open that has not grown for two seconds.
    bool IsStarving() const { return Starving; }

private:
    static constexpr int64_t StarvingAfter = 2000;

    int64_t LastLength = 0;
    int64_t LastGrowth = 0;
    bool Starving = false;
};
