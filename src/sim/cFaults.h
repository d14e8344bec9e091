// What goes wrong between a logger and a recording: spikes, lost frames, broken bytes, stray bytes.
#pragma once

#include "sim/cRandom.h"

#include <cstdint>
#include <span>
#include <vector>

/// How many of a thousand frames each fault hits.
struct FaultRates
{
    double Junk = 0;    // 1 to 8 bytes below 128 ahead of the frame
    double Corrupt = 0; // one bit of the frame turned over, which can be that of a sync byte or a length
    double Drop = 0;    // the frame is missing
    double Spikes = 0;  // one channel jumps by at least a quarter of its range
};

/// How many frames each fault did hit.
struct FaultCounts
{
    int Junk = 0;
    int Corrupt = 0;
    int Drop = 0;
    int Spikes = 0;
};

/// Puts faults into frames. They come from a stream of random numbers of their own: the signals under them stay.
class cFaults
{
public:
    cFaults(const FaultRates& Rates, uint64_t Seed);

    /// Lets a channel from 1 on jump, now and then. Counts by channel number, MaxCount the highest count.
    void Spike(std::span<int32_t> Counts, int32_t MaxCount);

    /// Appends what arrives of a frame.
    void Deliver(std::span<const uint8_t> Frame, std::vector<uint8_t>& Out);

    const FaultCounts& Done() const { return Counts; }

private:
    bool Hits(double PerMille, int& Count);

    FaultRates Rates;
    FaultCounts Counts;
    cRandom Random;
};
