// Growth and layout of the sample store.
#include "core/mSampleStore.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <sys/mman.h>
#include <utility>

namespace {
// Doubles between the ends of neighbouring channels. A frame is written across all channels, and strides of a power
// of two would send all those writes to the same few cache lines.
constexpr std::size_t Pad = 8 * 9;

constexpr std::size_t LargePage = std::size_t{2} << 20;

// The last large block given back: the next recording is most often of the same size, and memory that is there
// already costs nothing to take.
double* SpareMemory = nullptr;
std::size_t SpareBytes = 0;
} // namespace

// Memory of no particular content. Large pages are asked for: taking a full store in small ones would cost more time
// than the reading of its file.
SampleStore::Block SampleStore::Allocate(std::size_t Count)
{
    const std::size_t Wanted = Count * sizeof(double) + 1;
    if (Wanted < LargePage) {
        void* const Small = std::malloc(Wanted);
        if (!Small) throw std::bad_alloc();
        return Block(static_cast<double*>(Small), {Wanted});
    }
    const std::size_t Bytes = (Wanted / LargePage + 1) * LargePage;
    if (SpareBytes == Bytes) {
        SpareBytes = 0;
        return Block(std::exchange(SpareMemory, nullptr), {Bytes});
    }
    void* const Large = std::aligned_alloc(LargePage, Bytes);
    if (!Large) throw std::bad_alloc();
    madvise(Large, Bytes, MADV_HUGEPAGE);
    return Block(static_cast<double*>(Large), {Bytes});
}

void StoreRelease::operator()(double* Memory) const
{
    if (Bytes >= LargePage) {
        std::swap(Memory, SpareMemory);
        SpareBytes = Bytes;
    }
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
    Block Moved = Allocate(NewStride * static_cast<std::size_t>(Channels));
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
