// The rower's panel as a window: labels, keys, targets, full screen, and what becomes of a running recording.
#include "live/rower/fData01real.h"
#include "ShellState.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "files/mFrame.h"
#include "files/mRawLog.h"
#include "files/mTextIO.h"
#include "support/SurfaceLog.h"

#include <QLabel>
#include <QPointer>

#include <cmath>
#include <utility>

namespace {
struct Panel : ShellState
{
    Panel()
    {
        Start("IsCurves=-1\nIsValue=-1\nIsInd=-1\n");
        REQUIRE(ReadDataFile(SOURCE_FOLDER "/demo/single.txt", gFile, SectionFilter::Any));
        SetCurFile(Folder.Path("single.txt"));
        ResolveChannels();
    }

    fData01real& Window() { return dynamic_cast<fData01real&>(Find<QWidget>("fData01real")); }
    qSurface& Plots() { return dynamic_cast<qSurface&>(Find<QWidget>("picPanel")); }
    QString Label(const char* Name) { return Find<QLabel>(Name).text(); }

    /// Frames of a key that falls through its threshold every 40 frames, 0.05 s apart.
    void Row(int Frames)
    {
        for (int i = 0; i < Frames; ++i, ++Frame, ++gFrameCnt) {
            gSampleTime = gData[0] = 0.05 * Frame;
            for (std::size_t Chan = 1; Chan <= 24; ++Chan)
                gData[Chan] = 8192 + 4000 * std::cos(Frame * 3.14159265 / 20 + static_cast<double>(Chan % 3));
            SampleDataWindows();
            DrawDataWindows();
        }
        QTest::qWait(30); // labels follow the picture rate
    }

    int Frame = 0;
};

/// Notes what the labels show at each stroke.
struct Watcher : cDataWindow
{
    explicit Watcher(Panel& InitOn) : cDataWindow(DataTag), On(InitOn) {}
    void DrawData() override
    {
        const std::string Now = Plain(On.Label("lbData_2") + " " + On.Label("lbData_3"));
        if (!gFirstCycle && (Strokes.empty() || Strokes.back() != Now)) Strokes.push_back(Now);
    }
    void SetLive(bool) override {}
    void Unload() override {}

    Panel& On;
    Texts Strokes;
};
} // namespace

TEST_CASE_FIXTURE(Panel, "strokes are counted on the labels, which are large and turn grey when frames stop")
{
    Choose("mnuSampleRower");
    Window().parentWidget()->resize(640, 480);
    CHECK(Label("lbData_3") == "000");
    Row(170);
    CHECK(Label("lbData_0") == "08.5");
    CHECK(Label("lbData_2") == "30.0");
    CHECK(Label("lbData_3") == "003");
    CHECK(Find<QLabel>("lbData_2").font().pixelSize() >= 0.08 * Window().height());
    CHECK(Find<QLabel>("lbData_2").isEnabled());

    // After hours the figures get smaller rather than lose their first and last digits.
    const QSize Plot = Plots().size();
    Frame += 100000000;
    Row(1);
    const auto& Time = Find<QLabel>("lbData_0");
    CHECK(Time.text().size() > 6);
    CHECK(QFontMetrics(Time.font()).horizontalAdvance(Time.text()) <= Time.width());
    CHECK(Plots().size() == Plot);
    gFromFile = true; // a recording was scanned meanwhile
    Window().LoseFrames();
    CHECK(!Find<QLabel>("lbData_2").isEnabled());
    QTest::keyClick(&Window(), Qt::Key_Space);
    CHECK(!gReplaying);
}

TEST_CASE_FIXTURE(Panel, "labels are set no more often than pictures are shown, and then to the newest values")
{
    gPictureRate = 1;
    Choose("mnuSampleRower");
    Row(60);
    const QString Before = Label("lbData_0");
    Row(60);
    CHECK(Label("lbData_0") == Before);
    CHECK(QTest::qWaitFor([&] { return Label("lbData_0") == "06.0"; }, 10000));
    CHECK(Label("lbData_3") == "002");
}

TEST_CASE_FIXTURE(Panel, "a background picture lies under every stroke, and the panel fills the screen and comes back")
{
    QImage Ground(8, 8, QImage::Format_RGB32);
    Ground.fill(QColor(10, 200, 90));
    REQUIRE(Ground.save(Shown(Folder.Path("ground.png"))));
    gBackground = Folder.Path("ground.png");
    gIsCurves = false;
    Choose("mnuSampleRower");
    Row(60);
    qSurface* const Surface = &Plots();
    CHECK(Surface->Grab().pixelColor(5, 5) == QColor(10, 200, 90));
    QTest::keyClick(&Window(), Qt::Key_F11);
    QWidget* Screen = Surface->window();
    CHECK(Screen->isFullScreen());
    QTest::keyClick(Screen, Qt::Key_F11);
    CHECK(Surface->window() == &Main);
    for (const bool IsKey : {true, false}) {
        Choose("mnuSampleRower");
        const QPointer<QWidget> Filling = &Plots();
        QTest::keyClick(&Window(), Qt::Key_F11);
        if (IsKey)
            QTest::keyClick(Filling->window(), Qt::Key_Escape);
        else
            Window().parentWidget()->close();
        QTest::qWait(5);
        CHECK(!Main.findChild<QWidget*>("fData01real"));
        CHECK(!Filling);
    }
}

TEST_CASE_FIXTURE(Panel, "closing the panel ends a running recording and hands it on")
{
    Choose("mnuSampleRower");
    std::string Recorded;
    Window().OnRecorded = [&](const std::string& Path) { Recorded = Path; };
    StartLog();
    REQUIRE(gLogging);
    const std::string Path = std::exchange(gRawFN, "another that is viewed meanwhile");
    QTest::keyClick(&Window(), Qt::Key_Escape);
    QTest::qWait(5);
    CHECK(!gLogging);
    CHECK(Recorded == Path);
    CHECK(!Recorded.empty());
}

TEST_CASE_FIXTURE(Panel, "another session goes on in the panel, and a running recording ends only when one agrees")
{
    Choose("mnuSampleRower");
    Row(100);
    CHECK(Label("lbData_3") != "000");
    StartLog();
    REQUIRE(SaveWhole(Folder.Path("eight.txt"), *ReadWhole(SOURCE_FOLDER "/demo/eight.txt")));
    Dialogs.AnswerYes = false;
    Main.OpenFile(Folder.Path("eight.txt"));
    CHECK(gLogging);
    CHECK(gFileTitle == "single");
    Dialogs.AnswerYes = true;
    Main.OpenFile(Folder.Path("eight.txt"));
    CHECK(!gLogging);
    CHECK(gFileTitle == "eight");
    CHECK(Label("lbData_3") == "000");
    CHECK(gFile.View1.UBound() == 10);
    Row(100);
    CHECK(Label("lbData_3") == "001"); // the first of two starts arms the clock
    StartLog();

    // Frames come while a message of the next session stands, which the panel does not have yet.
    gFile.Calibr.Clear();
    ResolveChannels();
    REQUIRE(gKeyChan == -1);
    Row(100);
    CHECK(Label("lbData_3") == "004");
    Dialogs.AnswerYes = false;
    QTest::keyClick(&Window(), Qt::Key_Escape);
    QTest::qWait(5);
    CHECK(gLogging);
    CHECK(Window().Tag == DataTag);
}

TEST_CASE_FIXTURE(Panel, "a replay shows the strokes that the panel without a window finds in the recording")
{
    gFile.Model = 67;
    gFile.ChanCnt = 8;
    gKeyChan = 1;
    gFile.KeyThres = static_cast<float>(gFile.Calibr[1].Q0 + 64 * gFile.Calibr[1].Q1);
    std::string Bytes;
    for (int i = 0, Phase = 0; i < 300; ++i, Phase += 5 + i / 60) // ever faster
        Bytes += MakeFrame(i * 40, 64 + static_cast<int>(60 * std::sin(Phase / 40.0))).toStdString();
    const std::string Path = Folder.Path("piece.qvn");
    REQUIRE(SaveWhole(Path, Bytes));

    SurfaceLog Screen(1000, 600);
    cRower Rower(Screen);
    Rower.Load();
    Rower.InitMode();
    Texts Expected;
    RawFile File;
    REQUIRE(File.Open(Path));
    CreateData();
    Stream Kept;
    while (const auto Taken = File.Take()) {
        if (!DecodeLive(FrameSource::Replay, *Taken, Kept)) continue;
        Rower.TakeSample();
        if (Rower.NewStroke()) Expected.push_back(Rower.RateText() + " " + Rower.StrokesText());
    }
    REQUIRE(Expected.size() > 5);

    Choose("mnuSampleRower"); // the replay is none of what the open panel shows so far
    Row(4);
    Dialogs.Files = {Path};
    Choose("mnuPlayRawRower");
    Watcher Seen(*this);
    REQUIRE(QTest::qWaitFor([] { return !gReplaying; }, 20000));
    CHECK(Seen.Strokes == Expected);
}

TEST_CASE_FIXTURE(Panel, "a replay waits until its panel's messages are read, and does not end while the panel asks")
{
    struct SlowReader : ScriptedDialogs
    {
        eAnswer MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons) override
        {
            QTest::qWait(3 * ReplayInterval);
            WasReplaying = gReplaying;
            return ScriptedDialogs::MsgBox(Text, Title, Buttons);
        }
        bool WasReplaying = false;
    } Slow;
    gHost.Dialogs = &Slow;
    gHost.Settings->SaveSetting("Models", "gIsTargVals", "1");
    gFile.Model = 67;
    gFile.ChanCnt = 8;
    const std::string Short = Folder.Path("short.qvn");
    const std::string None = Folder.Path("none.qvn");
    REQUIRE(SaveWhole(Short, MakeFrame(0, 1).toStdString()));
    REQUIRE(SaveWhole(None, "no frame at all"));
    Slow.Files = {Short, None};
    Choose("mnuPlayRawRower");
    CHECK(Slow.Told.size() == 3);
    StartLog();
    QTest::keyClick(&Window(), Qt::Key_Escape);
    CHECK(Slow.WasReplaying);
    QTest::qWait(5);
    CHECK(!gReplaying);
    CHECK(!Main.findChild<QWidget*>("fData01real"));
    Choose("mnuPlayRawRower");
    REQUIRE(QTest::qWaitFor([&] { return Slow.Told.back().ends_with(None); }, 20000));
    CHECK(Slow.Told.back() == "Information: There are no frames of a logger in the file: " + None);
}
