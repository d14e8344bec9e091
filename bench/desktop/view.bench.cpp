// The data view on 32,000 samples of 80 channels: a redraw at every zoom, and from the file to the whole window.
#include "recording.h"
#include "shares.h"

#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "files/mBinIO.h"
#include "platform/qt/qSurface.h"
#include "views/data/cDataPlot.h"
#include "views/data/fData02view.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <vector>

namespace {
constexpr int Samples = 32200;
constexpr QSize Size(1280, 620);

void MakeSession()
{
    MakeBenchSession();
    for (CalibrRow& Row : gFile.Calibr) {
        Row.Visible = 1;
        Row.Min = Row.Q0;
        Row.Max = Row.Q0 + Row.Q1 * FullScale;
    }
}

// Everything drawn on the kept picture, at each zoom and at ten places of the store.
void Redraw(benchmark::State& State)
{
    MakeSession();
    int32_t Start = 0, Stop = 0;
    ReadRawFile(BenchRecording(Samples), Start, Stop);
    qSurface Surface;
    Surface.resize(Size);
    cDataPlot View(Surface);
    std::vector<double> Times;
    for (auto _ : State)
        for (gXScale = 1; gXScale <= cDataRange::MaxXScale; gXScale = static_cast<int16_t>(gXScale * 2)) {
            View.Range.ScrollTo(Samples * 0.1 * static_cast<double>(Times.size() % 10));
            const auto Begin = std::chrono::steady_clock::now();
            View.SetUpPoly();
            View.Draw();
            const std::chrono::duration<double, std::milli> Taken = std::chrono::steady_clock::now() - Begin;
            Times.push_back(Taken.count());
        }
    gXScale = 1;
    TellShares(State.counters, Times, "ms");
}

// As many lines of as many points at seven zooms, drawn by the toolkit alone.
void RedrawReference(benchmark::State& State)
{
    QImage Picture(Size, QImage::Format_RGB32);
    for (auto _ : State)
        for (int Zoom = 0; Zoom < 7; ++Zoom) {
            Picture.fill(Qt::white);
            QPainter Painter(&Picture);
            for (int Band = 0; Band < BenchChannels; ++Band) {
                QPolygon Line;
                for (int i = 0; i <= cDataRange::Steps; ++i)
                    Line << QPoint(40 + i * 3, Band * 7 + i * (Band + Zoom) % 7);
                Painter.drawPolyline(Line);
            }
            benchmark::DoNotOptimize(Picture.constBits());
        }
}

// From the file to the window with all its curves.
void Open(benchmark::State& State)
{
    MakeSession();
    const std::string& Path = BenchRecording(Samples);
    for (auto _ : State) {
        fData02view View;
        View.InitData(Path, DataRaw);
        View.resize(1280, 800);
        View.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(View.grab());
    }
}

// Three times the reading of the file and one redraw, with which opening is compared.
void OpenReference(benchmark::State& State)
{
    MakeSession();
    const std::string& Path = BenchRecording(Samples);
    qSurface Surface;
    Surface.resize(Size);
    cDataPlot View(Surface);
    for (auto _ : State) {
        for (int Times = 0; Times < 3; ++Times) {
            int32_t Start = 0, Stop = 0;
            ReadRawFile(Path, Start, Stop);
        }
        View.SetUpPoly();
        View.Draw();
    }
}

BENCHMARK(Redraw)->Name("redraw")->Unit(benchmark::kMillisecond)->Iterations(60);
BENCHMARK(RedrawReference)->Name("redraw/reference")->Unit(benchmark::kMillisecond)->Iterations(60);
BENCHMARK(Open)->Name("open")->Unit(benchmark::kMillisecond);
BENCHMARK(OpenReference)->Name("open/reference")->Unit(benchmark::kMillisecond);
} // namespace
