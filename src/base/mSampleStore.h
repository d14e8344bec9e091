// The type of the sample store: calibrated samples of all channels, contiguous along a channel.
#pragma once

#include "base/mError.h"

#include <memory>
#include <span>

/// Gives back the memory of a sample store.
struct StoreRelease
{
    std::size_t Bytes = 0;
    void operator()(double* Memory) const;
};

/// Values by channel and sample, both from 0. Channel 0 is the time in seconds. Scans run along a channel, so a
/// channel's samples lie side by side in memory.
class SampleStore
{
public:
    /// Highest sample index that a store can hold: the limit of the recording's 16-bit sample counter.
    static constexpr int MaxIndex = 32200;

    /// Makes a store of zeros with channels 0 to LastChannel and samples 0 to LastSample.
    void Create(int LastChannel, int LastSample);

    /// Makes LastSample the last sample: what is held stays, new samples are 0. -1 leaves no sample.
    void Resize(int LastSample);

    /// Reserves memory for that many samples.
    void Reserve(int SampleCount);

    /// Adds samples of no particular value, for a caller that writes all of them at once.
    void Extend(int Count);

    /// Writes Run over the samples of a channel from First on. Throws RunError outside the store.
    void Put(int Chan, int First, std::span<const double> Run);

    /// Index of the last channel, -1 for a store never created.
    int ChannelUBound() const { return Channels - 1; }

    /// Index of the last sample (N), -1 when there is none.
    int UBound() const { return Samples - 1; }

    /// Value of a channel and sample. Throws RunError outside the store.
    double& operator()(int Chan, int Sample) { return Values[Offset(Chan, Sample)]; }
    double operator()(int Chan, int Sample) const { return Values[Offset(Chan, Sample)]; }

    /// All samples of one channel. Throws RunError for a channel outside the store.
    std::span<double> Channel(int Chan);
    std::span<const double> Channel(int Chan) const;

private:
    std::size_t Offset(int Chan, int Sample) const
    {
        CheckIndex(Chan, static_cast<std::size_t>(Channels));
        CheckIndex(Sample, static_cast<std::size_t>(Samples));
        return static_cast<std::size_t>(Chan) * Stride + static_cast<std::size_t>(Sample);
    }

    using Block = std::unique_ptr<double[], StoreRelease>;

    static Block Allocate(std::size_t Count);

    Block Values;
    std::size_t Stride = 0; // doubles from one channel to the next
    int Channels = 0;
    int Samples = 0;
};
