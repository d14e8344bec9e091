// Reading and scanning raw files against a plain loop that decodes every word of every frame.
#include "recording.h"

#include "core/mGlobData.h"
#include "files/mBinIO.h"
#include "files/mQVN.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdio>
#include <vector>

namespace {
constexpr int StoreFrames = 32200;
constexpr int LongFrames = 720000;

// Streams a file through a fixed buffer and decodes every word of every frame into a vector.
double DecodePlainly(const std::string& Path)
{
    static std::vector<uint8_t> Buffer(1 << 16);
    std::vector<double> Words(128);
    double Check = 0;
    std::FILE* File = std::fopen(Path.c_str(), "rb");
    std::size_t Held = 0;
    while (const std::size_t Got = std::fread(Buffer.data() + Held, 1, Buffer.size() - Held, File)) {
        Held += Got;
        std::size_t At = 0;
        while (At + 4 <= Held) {
            if (Buffer[At] < 128) {
                ++At;
                continue;
            }
            const std::size_t Size = Buffer[At + 2] + 128U * Buffer[At + 3] + 1;
            if (At + 4 + Size > Held) break;
            const uint8_t* Body = Buffer.data() + At + 4;
            Words.resize(Size / 2);
            for (std::size_t i = 0; i < Size / 2; ++i)
                Words[i] = Body[2 * i] + 128 * Body[2 * i + 1];
            Check += Words[5];
            At += 4 + Size;
        }
        std::copy(Buffer.begin() + static_cast<std::ptrdiff_t>(At), Buffer.begin() + static_cast<std::ptrdiff_t>(Held),
                  Buffer.begin());
        Held -= At;
    }
    std::fclose(File);
    return Check;
}

void Scan(benchmark::State& State)
{
    MakeBenchSession();
    const std::string& Path = BenchRecording(LongFrames);
    for (auto _ : State)
        benchmark::DoNotOptimize(ScanRawFile(Path));
}

void ScanReference(benchmark::State& State)
{
    const std::string& Path = BenchRecording(LongFrames);
    for (auto _ : State)
        benchmark::DoNotOptimize(DecodePlainly(Path));
}

void Read(benchmark::State& State)
{
    MakeBenchSession();
    const std::string& Path = BenchRecording(StoreFrames);
    for (auto _ : State) {
        int32_t Start = 0;
        int32_t Stop = 0;
        benchmark::DoNotOptimize(ReadRawFile(Path, Start, Stop));
    }
}

void ReadReference(benchmark::State& State)
{
    const std::string& Path = BenchRecording(StoreFrames);
    for (auto _ : State)
        benchmark::DoNotOptimize(DecodePlainly(Path));
}

BENCHMARK(Scan)->Name("scan")->Unit(benchmark::kMillisecond);
BENCHMARK(ScanReference)->Name("scan/reference")->Unit(benchmark::kMillisecond);
BENCHMARK(Read)->Name("read")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadReference)->Name("read/reference")->Unit(benchmark::kMillisecond);
} // namespace
