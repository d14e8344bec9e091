// Cutting, resampling and averaging of a full sample store against plain loops over the same samples.
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "platform/plain/sDialogs.h"
#include "processing/mProcess.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <vector>

namespace {
constexpr int LastSample = SampleStore::MaxIndex;
constexpr int Channels = 80;
constexpr double Rate = 50; // Hz

sStatus Silent(false);
sDialogs Dialogs(&Silent);

// Eighty channels of strokes whose period, some two seconds, wanders by a tenth.
void MakeStrokes()
{
    if (gRaw.UBound() == LastSample) return;
    gHost.Dialogs = &Dialogs;
    gHost.Status = &Silent;
    StdFilter = 3;
    gKeyChan = 1;
    gFile.ChanCnt = Channels;
    gRaw.Create(Channels, LastSample);
    double Phase = 0;
    for (int i = 0; i <= LastSample; ++i) {
        gRaw(0, i) = i / Rate;
        Phase += 3.1416 / Rate * (1 + 0.1 * std::sin(0.05 * i / Rate));
        for (int Chan = 1; Chan <= Channels; ++Chan)
            gRaw(Chan, i) = 50 * std::sin(Phase + 0.03 * Chan) + 0.01 * Chan;
    }
}

void Process(benchmark::State& State, int Runs)
{
    MakeStrokes();
    for (auto _ : State)
        for (int Run = 1; Run <= Runs; ++Run) {
            int32_t Stop = 0;
            if (!ProcessCycles(gKeyWin, 0, Stop, Run)) std::abort();
        }
}

void TwoRuns(benchmark::State& State)
{
    Process(State, 2);
}

void OneRun(benchmark::State& State)
{
    Process(State, 1);
}

void SumStore(benchmark::State& State)
{
    MakeStrokes();
    for (auto _ : State) {
        double Sum = 0;
        for (int Chan = 0; Chan <= Channels; ++Chan)
            for (const double X : gRaw.Channel(Chan))
                Sum += X;
        benchmark::DoNotOptimize(Sum);
    }
}

using Table = std::vector<std::vector<double>>;

// The store as plain rows, one a channel.
Table CopyStore()
{
    MakeStrokes();
    Table X;
    for (int Chan = 0; Chan <= Channels; ++Chan)
        X.emplace_back(gRaw.Channel(Chan).begin(), gRaw.Channel(Chan).end());
    return X;
}

// Times at which the key channel falls through zero.
std::vector<double> Cut(const Table& X)
{
    std::vector<double> Times;
    for (std::size_t i = 2; i <= LastSample; ++i) {
        const double A = X[1][i - 1];
        const double B = X[1][i];
        if (A > 0 && B <= 0) Times.push_back(X[0][i - 1] + A / (A - B) / Rate);
    }
    return Times;
}

void PlainPattern(benchmark::State& State)
{
    const Table X = CopyStore();
    for (auto _ : State) {
        Table Sum(51, std::vector<double>(Channels + 1));
        Table SumSq = Sum;
        const auto Times = Cut(X);
        for (std::size_t Cycle = 0; Cycle + 1 < Times.size(); ++Cycle)
            for (std::size_t j = 0; j <= 50; ++j) {
                const double T = Times[Cycle] + (Times[Cycle + 1] - Times[Cycle]) * static_cast<double>(j) / 50;
                const auto i = static_cast<std::size_t>(T * Rate);
                const double F = T * Rate - static_cast<double>(i);
                for (std::size_t Chan = 1; Chan <= Channels; ++Chan) {
                    const double V = X[Chan][i] + (X[Chan][i + 1] - X[Chan][i]) * F;
                    Sum[j][Chan] += V;
                    SumSq[j][Chan] += V * V;
                }
            }
        const auto Count = static_cast<double>(Times.size()) - 1;
        for (std::size_t j = 0; j <= 50; ++j)
            for (std::size_t Chan = 1; Chan <= Channels; ++Chan) {
                Sum[j][Chan] /= Count;
                SumSq[j][Chan] = std::sqrt(SumSq[j][Chan] / Count - Sum[j][Chan] * Sum[j][Chan]);
            }
        benchmark::DoNotOptimize(Sum);
        benchmark::DoNotOptimize(SumSq);
    }
}

BENCHMARK(TwoRuns)->Name("ProcessTwoRuns");
BENCHMARK(SumStore)->Name("ProcessTwoRuns/reference");
BENCHMARK(OneRun)->Name("ProcessOneRun");
BENCHMARK(PlainPattern)->Name("ProcessOneRun/reference");
} // namespace
