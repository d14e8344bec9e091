// The video of two minutes beside ten curves, played for some seconds as a user sees it: how late its pictures come,
// and what of the processor they take beyond decoding.
#include "clip.h"
#include "recording.h"

#include "core/mGlobData.h"
#include "platform/ffmpeg/mMedia.h"
#include "platform/mHost.h"
#include "platform/qt/qClock.h"
#include "video/f1Video.h"
#include "views/play/fData04play.h"

#include <QApplication>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <sys/resource.h>

namespace {
using Clock = std::chrono::steady_clock;
constexpr double Seconds = 4;
constexpr double Milli = 0.001;

double ProcessorTime()
{
    rusage Used{};
    getrusage(RUSAGE_SELF, &Used);
    return static_cast<double>(Used.ru_utime.tv_sec + Used.ru_stime.tv_sec) +
           static_cast<double>(Used.ru_utime.tv_usec + Used.ru_stime.tv_usec) * 1e-6;
}

double Since(Clock::time_point Begin)
{
    return std::chrono::duration<double>(Clock::now() - Begin).count();
}

// A stored stroke of one channel, shown by ten rows.
void MakePlaySession()
{
    MakeBenchSession();
    gFile.Desc.Grow().SampleID = "Race";
    gFile.Desc[1].DataCount = 50;
    gFile.Desc[1].Rate = 30;
    DataRow& Data = gFile.Data.Grow();
    Data.SampleID = "Race";
    Data.ParamID = gFile.Calibr[1].ParamID;
    for (int i = 0; i <= 50; ++i)
        Data.Values.push_back(40 * std::sin(i / 8.0));
    for (int i = 1; i <= 10; ++i) {
        ViewRow& Row = gFile.View4.Grow();
        Row.ID = "Curve " + std::to_string(i);
        Row.Arguments = Data.ParamID + "," + Data.ParamID;
        Row.MinXPar = Row.MinYPar = -50;
        Row.MaxXPar = Row.MaxYPar = 50;
        Row.X1 = static_cast<float>(i % 5 * 20);
        Row.Y1 = i <= 5 ? 50.0F : 100.0F;
        Row.Y2 = 50;
    }
}

struct Player
{
    Player()
    {
        MakePlaySession();
        gHost.Clock = &Time;
        gHost.MakeMedia = MakeMedia;
        Video = std::make_unique<f1Video>();
        Video->VideoFileOpen(BenchClip());
        while (Video->Video.IndexDone() < 1)
            QApplication::processEvents(QEventLoop::AllEvents, 10);
        Video->Video.TakeIndex();
        View = std::make_unique<fData04play>();
        if (!View->InitData({.Mode = PlayTypical,
                             .Sample = 1,
                             .VideoFN = BenchClip(),
                             .Duration = Video->Video.Duration(),
                             .Strokes = 60,
                             .Frames = Video->Video.Pictures(),
                             .FrameTime = Video->Video.FrameTime()}))
            std::exit(1);
        Video->resize(1000, 700);
        View->resize(1000, 300);
        Video->show();
        View->show();
        QApplication::processEvents();
    }

    // Plays, and gives the times (s) by which pictures stood too late: each is due at its number.
    std::vector<double> Play()
    {
        std::vector<double> Late;
        Video->DoAction(VideoToStart);
        const auto Begin = Clock::now();
        Video->DoAction(VideoPlay);
        int32_t Last = 0;
        while (Since(Begin) < Seconds) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
            const int32_t Now = Video->Video.ShownNumber();
            // Those that were left out would have come with this one.
            for (; Last < Now; ++Last)
                Late.push_back(Since(Begin) - (Last + 1) * 1.0 / ClipRate);
        }
        Video->DoAction(VideoPause);
        return Late;
    }

    qClock Time;
    std::unique_ptr<f1Video> Video;
    std::unique_ptr<fData04play> View;
};

void Lateness(benchmark::State& State)
{
    Player Shown;
    for (auto _ : State) {
        const std::vector<double> Late = Shown.Play();
        State.SetIterationTime(Late.empty() ? Seconds : *std::max_element(Late.begin(), Late.end()));
        State.counters["pictures"] = static_cast<double>(Late.size());
    }
}

// Share of a core beyond decoding: a second stands for the whole core.
void Processor(benchmark::State& State)
{
    Player Shown;
    for (auto _ : State) {
        const double Begin = ProcessorTime();
        const std::size_t Pictures = Shown.Play().size();
        const double Played = ProcessorTime() - Begin;
        BareClip Bare(BenchClip());
        const double BareBegin = ProcessorTime();
        for (std::size_t i = 0; i < Pictures; ++i)
            Bare.Next(false);
        State.SetIterationTime(std::max(Played - (ProcessorTime() - BareBegin), 0.0) / Seconds);
    }
}

template <int Milliseconds>
void Limit(benchmark::State& State)
{
    for (auto _ : State)
        State.SetIterationTime(Milliseconds * Milli);
}

#define ONCE Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1)
BENCHMARK(Lateness)->Name("clip_late")->ONCE;
BENCHMARK(Limit<1000 / ClipRate>)->Name("clip_late/reference")->ONCE;
BENCHMARK(Processor)->Name("clip_play")->ONCE;
BENCHMARK(Limit<600>)->Name("clip_play/reference")->ONCE;
} // namespace
