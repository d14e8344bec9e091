// A frame from its bytes to the pictures of both channel indicators, and the start of the main window against a bare
// one.
#include "recording.h"
#include "shares.h"

#include "base/mSafeSave.h"
#include "calibration/fCheckChans.h"
#include "calibration/fTrackChans.h"
#include "core/mGlobData.h"
#include "core/shell/frmMain.h"
#include "files/cRawLog.h"
#include "files/mDecode.h"
#include "platform/mHost.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <vector>

namespace {
constexpr int Frames = 5000;
constexpr int HeadBytes = 4;

// Decoding, recording and redrawing of both windows, without the screen's own refresh. An iteration is one frame.
void Frame(benchmark::State& State)
{
    MakeBenchSession();
    const std::string Bytes = *ReadWhole(BenchRecording(Frames));
    fCheckChans Check;
    fTrackChans Track;
    for (qDataWindow* Window : {static_cast<qDataWindow*>(&Check), static_cast<qDataWindow*>(&Track)}) {
        Window->resize(640, 700);
        Window->show();
    }
    QApplication::processEvents();
    cRawLog Log;
    Log.Open(BenchFolder() + "/live.qvn", OldBytes::Dropped);
    const auto* const First = reinterpret_cast<const uint8_t*>(Bytes.data());
    std::vector<double> Times;
    std::size_t Next = 0;
    for (auto _ : State) {
        const std::span<const uint8_t> Whole(First + Next, FrameBytes);
        Next = (Next + FrameBytes) % Bytes.size();
        const auto Begin = std::chrono::steady_clock::now();
        DecodeLong(Whole.subspan(HeadBytes), gLinkStream, gData);
        PublishLive(gLinkStream);
        Log.Append(Whole);
        Check.TakeFrame();
        Track.TakeFrame();
        const std::chrono::duration<double, std::micro> Taken = std::chrono::steady_clock::now() - Begin;
        Times.push_back(Taken.count());
        if (Times.size() % 64 == 0) {
            State.PauseTiming();
            QApplication::processEvents();
            State.ResumeTiming();
        }
    }
    TellShares(State.counters, Times, "us");
}

void Start(benchmark::State& State)
{
    MakeBenchSession();
    for (auto _ : State) {
        qStatus Status;
        iStatus* const Before = std::exchange(gHost.Status, &Status);
        {
            frmMain Window(Status);
            Window.Load(BenchFolder() + "/");
            Window.show();
            QApplication::processEvents();
            benchmark::DoNotOptimize(Window.grab());
        }
        gHost.Status = Before;
    }
}

// A window with as many menus, buttons and panels, which do nothing.
void StartReference(benchmark::State& State)
{
    for (auto _ : State) {
        QMainWindow Window;
        for (int Menu = 0; Menu < 8; ++Menu) {
            QMenu* const Made = Window.menuBar()->addMenu(QString("Menu %1").arg(Menu));
            for (int Entry = 0; Entry < 8; ++Entry)
                Made->addAction(QString("Entry %1").arg(Entry));
        }
        QToolBar* const Bar = Window.addToolBar("Bar");
        Bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        for (int Button = 0; Button < 8; ++Button)
            Bar->addAction(QApplication::style()->standardIcon(QStyle::SP_FileIcon), QString("Button %1").arg(Button));
        for (int Panel = 0; Panel < 3; ++Panel)
            Window.statusBar()->addWidget(new QLabel("Panel"), 1);
        Window.resize(1024, 768);
        Window.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(Window.grab());
    }
}

BENCHMARK(Frame)->Name("frame")->Unit(benchmark::kMicrosecond)->Iterations(20000);
BENCHMARK(Start)->Name("start")->Unit(benchmark::kMillisecond);
BENCHMARK(StartReference)->Name("start/reference")->Unit(benchmark::kMillisecond);
} // namespace
