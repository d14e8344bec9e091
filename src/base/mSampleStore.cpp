// Growth and layout of the sample store.
#include "base/mSampleStore.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <sys/mman.h>
#include <utility>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {
// Doubles between the ends of neighbouring channels. A frame is written across all channels, and strides of a power
// of two would send all those writes to the same few cache lines.
constexpr std::size_t Pad = 8 * 9;

// Doubles of a cache line: channels begin with one, so that runs of whole lines can be written without reading them.
constexpr std::size_t Line = 8;

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
    const std::size_t NewStride = (static_cast<std::size_t>(SampleCount) / Line + 1) * Line + Pad;
    Block Moved = Allocate(NewStride * static_cast<std::size_t>(Channels));
    for (int Chan = 0; Chan < Channels; ++Chan)
        std::ranges::copy(Channel(Chan), Moved.get() + static_cast<std::size_t>(Chan) * NewStride);
    Values = std::move(Moved);
    Stride = NewStride;
}

// Past the caches where the processor can: a recording is larger than they are, and a line that is written whole need
// not be read first, which saves a tenth of the reading of a recording.
void SampleStore::Put(int Chan, int First, std::span<const double> Run)
{
    if (Run.empty()) return;
    CheckIndex(First + static_cast<int>(Run.size()) - 1, static_cast<std::size_t>(Samples));
    double* To = Channel(Chan).data() + First;
    std::size_t Done = 0;
#ifdef __SSE2__
    if (reinterpret_cast<std::uintptr_t>(To) % sizeof(__m128d) == 0)
        for (; Done + 2 <= Run.size(); Done += 2)
            _mm_stream_pd(To + Done, _mm_loadu_pd(Run.data() + Done));
#endif
    std::ranges::copy(Run.subspan(Done), To + Done);
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
