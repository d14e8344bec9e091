// A video of two minutes: opening, its index, stepping on and back, and the memory that it takes. A reference without
// a name of the library is the limit itself.
#include "clip.h"

#include "platform/ffmpeg/mMedia.h"

#include <benchmark/benchmark.h>
#include <sys/resource.h>

namespace {
constexpr double Milli = 0.001;

// A limit as the reference that is measured against.
template <int Milliseconds>
void Limit(benchmark::State& State)
{
    for (auto _ : State)
        State.SetIterationTime(Milliseconds * Milli);
}

std::unique_ptr<iMedia> OpenClip()
{
    auto Clip = MakeMedia();
    if (!Clip->Open(BenchClip())) std::exit(1);
    Clip->WaitForIndex();
    return Clip;
}

void FirstPicture(benchmark::State& State)
{
    BenchClip();
    for (auto _ : State) {
        auto Clip = MakeMedia();
        Clip->Open(BenchClip());
        benchmark::DoNotOptimize(Clip->Frame(0));
        State.PauseTiming();
        Clip.reset();
        State.ResumeTiming();
    }
}

// From opening on, the first picture included.
void Index(benchmark::State& State)
{
    BenchClip();
    std::unique_ptr<iMedia> Clip;
    for (auto _ : State) {
        State.PauseTiming();
        Clip.reset();
        State.ResumeTiming();
        Clip = OpenClip();
        if (Clip->Info().Frames != ClipPictures) State.SkipWithError("pictures are missing");
    }
}

void IndexReference(benchmark::State& State)
{
    BenchClip();
    for (auto _ : State) {
        BareClip Bare(BenchClip());
        benchmark::DoNotOptimize(Bare.Demux());
    }
}

void StepOn(benchmark::State& State)
{
    const auto Clip = OpenClip();
    int Number = 1000;
    Clip->Frame(Number);
    for (auto _ : State)
        benchmark::DoNotOptimize(Clip->Frame(++Number));
}

void StepOnReference(benchmark::State& State)
{
    BareClip Bare(BenchClip());
    Bare.Next();
    for (auto _ : State)
        Bare.Next();
}

// To the last picture of the group before.
void StepBack(benchmark::State& State)
{
    const auto Clip = OpenClip();
    int Number = 5000;
    for (auto _ : State) {
        State.PauseTiming();
        Clip->Frame(Number);
        Number -= ClipGroup;
        State.ResumeTiming();
        benchmark::DoNotOptimize(Clip->Frame(Number + ClipGroup - 1));
    }
}

void StepBackReference(benchmark::State& State)
{
    BareClip Bare(BenchClip());
    for (auto _ : State)
        for (int i = 0; i < ClipGroup; ++i)
            Bare.Next();
}

void Cached(benchmark::State& State)
{
    const auto Clip = OpenClip();
    Clip->Frame(100);
    Clip->Frame(101);
    int Number = 0;
    for (auto _ : State)
        benchmark::DoNotOptimize(Clip->Frame(100 + (++Number & 1)));
}

// Most memory of the program so far: a megabyte counts as a millisecond.
void Memory(benchmark::State& State)
{
    const auto Clip = OpenClip();
    for (int i = 0; i < ClipPictures; i += 7)
        Clip->Frame(i % 700 < 350 ? i : ClipPictures - i);
    rusage Used{};
    getrusage(RUSAGE_SELF, &Used);
    for (auto _ : State)
        State.SetIterationTime(static_cast<double>(Used.ru_maxrss) / 1024 * Milli);
}

#define MILLI Unit(benchmark::kMillisecond)
BENCHMARK(FirstPicture)->Name("clip_first")->MILLI->UseRealTime();
BENCHMARK(Limit<300>)->Name("clip_first/reference")->MILLI->UseManualTime()->Iterations(1);
BENCHMARK(Index)->Name("clip_index")->MILLI->UseRealTime();
BENCHMARK(IndexReference)->Name("clip_index/reference")->MILLI->UseRealTime();
BENCHMARK(StepOn)->Name("clip_step")->MILLI->UseRealTime()->Iterations(300);
BENCHMARK(StepOnReference)->Name("clip_step/reference")->MILLI->UseRealTime()->Iterations(300);
BENCHMARK(StepBack)->Name("clip_back")->MILLI->UseRealTime()->Iterations(8);
BENCHMARK(StepBackReference)->Name("clip_back/reference")->MILLI->UseRealTime()->Iterations(8);
BENCHMARK(Cached)->Name("clip_cached")->MILLI->UseRealTime();
BENCHMARK(Limit<1>)->Name("clip_cached/reference")->MILLI->UseManualTime()->Iterations(1);
BENCHMARK(Memory)->Name("clip_memory")->MILLI->UseManualTime()->Iterations(1);
BENCHMARK(Limit<300>)->Name("clip_memory/reference")->MILLI->UseManualTime()->Iterations(1);
} // namespace
