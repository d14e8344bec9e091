// Growth and layout of the sample store.
#include "core/mSampleStore.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace {
// Doubles between the ends of neighbouring channels. A frame is written across all channels, and strides of a power
// of two would send all those writes to the same few cache lines.
constexpr std::size_t Pad = 8 * 9;

constexpr std::size_t LargePage = std::size_t{2} << 20;

// Memory of no particular content. Large pages are asked for: taking a full store in small ones would cost more time
// than the reading of its file.
double* Allocate(std::size_t Count)
{
    const bool IsLarge = Count * sizeof(double) > LargePage;
    const std::size_t Bytes =
        IsLarge ? (Count * sizeof(double) / LargePage + 1) * LargePage : Count * sizeof(double) + 1;
    void* const Memory = IsLarge ? std::aligned_alloc(LargePage, Bytes) : std::malloc(Bytes);
    if (!Memory) throw std::bad_alloc();
    if (IsLarge) madvise(Memory, Bytes, MADV_HUGEPAGE);
    return static_cast<double*>(Memory);
}
} // namespace

void SampleStore::Release::operator()(double* Memory) const
{
    std::free(Memory);
}

void SampleStore::Create(int LastChannel, int LastSample)
{
    *this = {};
    Channels = LastChannel + 1;
    Resize(LastSample);
}

void SampleStore::Resize(int LastSample)
{
    const int Held = std::min(Samples, LastSample + 1);
    const int Added = LastSample + 1 - Held;
    Samples = Held;
    Extend(Added);
    for (int Chan = 0; Chan < Channels && Added > 0; ++Chan)
        std::ranges::fill(Channel(Chan).subspan(static_cast<std::size_t>(Held)), 0.0);
}

void SampleStore::Extend(int Count)
{
    const int Wanted = Samples + Count;
    if (static_cast<std::size_t>(Wanted) > Stride) Reserve(std::max(Wanted, 2 * static_cast<int>(Stride)));
    Samples = Wanted;
}

void SampleStore::Reserve(int SampleCount)
{
    if (static_cast<std::size_t>(SampleCount) <= Stride) return;
    const std::size_t NewStride = static_cast<std::size_t>(SampleCount) + Pad;
    decltype(Values) Moved(Allocate(NewStride * static_cast<std::size_t>(Channels)));
    for (int Chan = 0; Chan < Channels; ++Chan)
        std::ranges::copy(Channel(Chan), Moved.get() + static_cast<std::size_t>(Chan) * NewStride);
    Values = std::move(Moved);
    Stride = NewStride;
}

std::span<double> SampleStore::Channel(int Chan)
{
    CheckIndex(Chan, static_cast<std::size_t>(Channels));
    return {Values.get() + static_cast<std::size_t>(Chan) * Stride, static_cast<std::size_t>(Samples)};
}

std::span<const double> SampleStore::Channel(int Chan) const
{
    CheckIndex(Chan, static_cast<std::size_t>(Channels));
    return {Values.get() + static_cast<std::size_t>(Chan) * Stride, static_cast<std::size_t>(Samples)};
}
