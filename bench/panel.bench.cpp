// A sample through the rower's panel of twenty rows, without the screen, against a plain strip chart of twenty
// channels.
#include "shares.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "live/rower/cRower.h"
#include "platform/mHost.h"
#include "platform/plain/sSettings.h"
#include "platform/plain/sSurface.h"
#include "processing/mPhysVal.h"

#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <vector>

namespace {
constexpr int Rows = 20;
constexpr int StrokeSamples = 200; // 100 Hz, 30 strokes per minute

sSettings Store;

// Twenty channels, and a row of each with every operation in turn, stroke numbers and, in each fourth, a stroke model.
void MakePanelSession()
{
    gHost.Settings = &Store;
    LoadSettings();
    gFile = {};
    gFile.ChanCnt = Rows;
    gFile.TimeStep = 0.01;
    for (int i = 1; i <= Rows; ++i) {
        CalibrRow& Channel = gFile.Calibr.Grow();
        Channel.Chan = static_cast<int16_t>(i);
        Channel.ParamID = "C" + FormatNum(i, "0");
        Channel.Mode = static_cast<int16_t>(i == 1);
        Channel.Lever = 0.85;
        Channel.Q0 = -80;
        Channel.Q1 = 0.01;
        const bool HasModel = i % 4 == 0;
        ViewRow& View = gFile.View1.Grow();
        View.ID = Channel.ParamID;
        View.Mode = static_cast<int16_t>(i % 2);
        View.Oper = static_cast<int16_t>(i % 9);
        View.Color = i;
        View.MinXPar = -2;
        View.MaxXPar = 2;
        View.MinYPar = -300;
        View.MaxYPar = 300;
        View.Y1 = View.Y2 = 100;
        View.Arguments = "C1," + Channel.ParamID + ",C2,C3,C4";
        View.Functions = HasModel ? "Mod,U1,U2,D3,At" : "MinX,MaxX,MaxY,Catch";
        View.Criteria = "0.1,0.6,0.2,90";
        View.CritSTD = "0.02,0.05,0.02,5";
        View.DiamFontXY = "20,30,100,20";
    }
    gKeyChan = 1;
    gKeyMode = 1;
    gIsCurves = gIsValue = gIsScore = gIsInd = gIsGrid = true;
}

void NextSample(int64_t Number)
{
    const double Phase = static_cast<double>(Number % StrokeSamples) / StrokeSamples * 6.283185307179586;
    gSampleTime = gData[0] = static_cast<double>(Number) * 0.01;
    gDeltaT = 0.01;
    for (std::size_t Chan = 1; Chan <= Rows; ++Chan)
        gData[Chan] = std::round(8000 + 6000 * std::cos(Phase + static_cast<double>(Chan) * 0.1));
}

void Panel(benchmark::State& State)
{
    using Clock = std::chrono::steady_clock;
    MakePanelSession();
    sSurface Screen(1280, 800);
    cRower Rower(Screen);
    Rower.Load();
    Rower.Resize();
    std::vector<double> Times;
    int64_t Number = 0;
    for (auto _ : State) {
        NextSample(++Number);
        const auto Begin = Clock::now();
        Rower.TakeSample();
        Rower.DrawData();
        Times.push_back(std::chrono::duration<double, std::micro>(Clock::now() - Begin).count());
    }
    TellShares(State.counters, Times, "us");
}

// Each channel calibrated and drawn as a line from its last point to the next, nothing else.
void PlainChart(benchmark::State& State)
{
    MakePanelSession();
    sSurface Screen(1280, 800);
    iSurface& Surface = Screen;
    std::array<double, Rows + 1> LastY{};
    int64_t Number = 0;
    for (auto _ : State) {
        NextSample(++Number);
        const double X = static_cast<double>(Number % StrokeSamples) * 6.4;
        for (std::size_t Chan = 1; Chan <= Rows; ++Chan) {
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
