// A sample through the rower's panel of twenty rows, without the screen, against a plain strip chart of twenty
// channels.
#include "panels.h"
#include "shares.h"

#include "live/rower/cRower.h"
#include "platform/plain/sSurface.h"
#include "processing/mPhysVal.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <vector>

namespace {
void Panel(benchmark::State& State)
{
    MakePanelSession();
    sSurface Screen(1280, 800);
    cRower Rower(Screen);
    Rower.Load();
    Rower.Resize();
    std::vector<double> Times;
    int64_t Number = 0;
    for (auto _ : State) {
        NextPanelSample(++Number);
        Times.push_back(MicrosecondsOf([&] {
            Rower.TakeSample();
            Rower.DrawData();
        }));
    }
    TellShares(State.counters, Times, "us");
}

// Each channel calibrated and drawn as a line from its last point to the next, nothing else.
void PlainChart(benchmark::State& State)
{
    MakePanelSession();
    sSurface Screen(1280, 800);
    iSurface& Surface = Screen;
    std::array<double, PanelRows + 1> LastY{};
    int64_t Number = 0;
    for (auto _ : State) {
        NextPanelSample(++Number);
        const double X = static_cast<double>(Number % StrokeSamples) * 6.4;
        for (std::size_t Chan = 1; Chan <= PanelRows; ++Chan) {
            double Prev = 0;
            const double Y = std::round(400 - CalcPhysVal(static_cast<int>(Chan), gData[Chan], Prev) * 1.33);
            Surface.SetPen(gRGB[Chan % 8], 3);
            Surface.Line(X, LastY[Chan], X + 6.4, Y);
            LastY[Chan] = Y;
        }
        benchmark::DoNotOptimize(LastY);
    }
}

BENCHMARK(Panel)->Name("panel");
BENCHMARK(PlainChart)->Name("panel/reference");
} // namespace
