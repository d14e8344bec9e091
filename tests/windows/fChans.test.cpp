// The channel indicators on their windows, compared pixel by pixel.
#include "ShellState.h"
#include "calibration/fCheckChans.h"
#include "calibration/fTrackChans.h"

namespace {
void MakeFrame(int Frame)
{
    for (std::size_t i = 1; i <= LastDataChan; ++i)
        gData[i] = 8192 + 8000 * std::sin(0.11 * Frame + static_cast<double>(i));
}

QImage Picture(QWidget& Window)
{
    return Window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// A window of its own that has taken the frames given, and drawn them in bursts.
template <class Window>
QImage Drawn(int From, int To, bool Lost = false, int Burst = 1)
{
    Window Shown;
    Shown.resize(480, 420);
    Shown.show();
    for (int Frame = From; Frame <= To; ++Frame) {
        MakeFrame(Frame);
        Shown.TakeSample();
        if ((Frame - From) % Burst == Burst - 1 || Frame == To) Shown.TakeFrame();
    }
    if (Lost) Shown.LoseFrames();
    return Picture(Shown);
}

void MakeChannels(int16_t Count)
{
    gFile.ChanCnt = Count;
    for (int i = 1; i <= Count; ++i)
        gFile.Calibr.Grow().ParamID = "GateFx";
}
} // namespace

TEST_CASE_FIXTURE(ShellState, "traces are the same in bursts of any size")
{
    MakeChannels(8);
    for (const int Burst : {5, 50})
        CHECK(Drawn<fTrackChans>(1, 600, false, Burst) == Drawn<fTrackChans>(1, 600));
    CHECK(Drawn<fTrackChans>(1, 600, true, 500) == Drawn<fTrackChans>(1, 600, true)); // all that was taken, in grey
    CHECK(Drawn<fTrackChans>(1, 500, true, 500) != Drawn<fTrackChans>(500, 500, true));
}

TEST_CASE_FIXTURE(ShellState,
                  "a window drawn anew at another size shows its frame, and one that gets no frames turns grey")
{
    MakeChannels(16);
    MakeFrame(7);
    auto* Window = new fCheckChans;
    Main.AddWindow(Window);
    Main.show();
    DrawDataWindows();
    Window->parentWidget()->resize(500, 400);
    const QSize Size = Window->size();
    const QImage Live = Picture(*Window);
    fCheckChans Fresh;
    Fresh.resize(Size);
    Fresh.show();
    Fresh.TakeFrame();
    CHECK(Live == Picture(Fresh));
    QTest::qWait(300);
    CheckLive();
    CHECK(Picture(*Window) == Live);
    QTest::qWait(750);
    CheckLive();
    CHECK(Picture(*Window) != Live);
    DrawDataWindows();
    CHECK(Picture(*Window) == Live);
}

TEST_CASE_FIXTURE(ShellState, "the indicators go over to the channels of the session that is opened")
{
    MakeChannels(16);
    auto* Bars = new fCheckChans;
    auto* Traces = new fTrackChans;
    Main.AddWindow(Bars);
    Main.AddWindow(Traces);
    Main.show();
    MakeFrame(7);
    SampleDataWindows();
    DrawDataWindows();
    REQUIRE(SaveWhole(Folder.Path("other.txt"), "Main\n61\t1\t8\t\nEnd\nCalibr\nF1\t1\t3\t\nEnd\n"));
    Main.OpenFile(Folder.Path("other.txt"));
    REQUIRE(gFile.ChanCnt != 16);
    fCheckChans Bar;
    fTrackChans Trace;
    Bar.resize(Bars->size());
    Trace.resize(Traces->size());
    CHECK(Picture(*Bars) == Picture(Bar));
    CHECK(Picture(*Traces) == Picture(Trace));
    MakeFrame(8);
    SampleDataWindows();
    DrawDataWindows(); // of Bar and Trace too
    CHECK(Picture(*Bars) == Picture(Bar));
    CHECK(Picture(*Traces) == Picture(Trace));
}
