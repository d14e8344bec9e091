// Growth and layout of the sample store.
#include "core/mSampleStore.h"

#include <algorithm>

namespace {
// Doubles between the ends of neighbouring channels. A frame is written across all channels, and strides of a power
// of two would send all those writes to the same few cache lines.
constexpr std::size_t Pad = 8 * 9;
} // namespace

void SampleStore::Create(int LastChannel, int LastSample)
{
    Channels = LastChannel + 1;
    Samples = 0;
    Stride = 0;
    Values.clear();
    Resize(LastSample);
}

void SampleStore::Resize(int LastSample)
{
    const int Count = LastSample + 1;
    if (static_cast<std::size_t>(Count) > Stride) Reserve(std::max(Count, 2 * static_cast<int>(Stride)));
    for (int Chan = 0; Chan < Channels && Count > Samples; ++Chan) {
        auto First = Values.begin() + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(Chan) * Stride);
        std::fill(First + Samples, First + Count, 0.0);
    }
    Samples = Count;
}

void SampleStore::Reserve(int SampleCount)
{
    if (static_cast<std::size_t>(SampleCount) <= Stride) return;
    const std::size_t NewStride = static_cast<std::size_t>(SampleCount) + Pad;
    std::vector<double> Moved(NewStride * static_cast<std::size_t>(Channels));
    for (std::size_t Chan = 0; Chan < static_cast<std::size_t>(Channels); ++Chan) {
        const auto First = Values.begin() + static_cast<std::ptrdiff_t>(Chan * Stride);
        std::copy(First, First + Samples, Moved.begin() + static_cast<std::ptrdiff_t>(Chan * NewStride));
    }
    Values = std::move(Moved);
    Stride = NewStride;
}

std::span<double> SampleStore::Channel(int Chan)
{
    CheckIndex(Chan, static_cast<std::size_t>(Channels));
    return {Values.data() + static_cast<std::size_t>(Chan) * Stride, static_cast<std::size_t>(Samples)};
}

std::span<const double> SampleStore::Channel(int Chan) const
{
    CheckIndex(Chan, static_cast<std::size_t>(Channels));
    return {Values.data() + static_cast<std::size_t>(Chan) * Stride, static_cast<std::size_t>(Samples)};
}
