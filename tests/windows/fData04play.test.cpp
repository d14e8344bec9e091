// The play window: opened from the menu, played, stepped, scrubbed and clicked on, alone and beside others.
#include "views/play/fData04play.h"
#include "ShellState.h"
#include "core/mPlayClock.h"
#include "platform/qt/qSurface.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QWheelEvent>

namespace {
// A session with the stored stroke of an oar and a figure of the rower, at 30 strokes a minute.
void MakeSession()
{
    gFile = {};
    gFile.Desc.Grow().SampleID = "Race 1";
    gFile.Desc[1].DataCount = 50;
    gFile.Desc[1].Rate = 30;
    for (const char* Name : {"A1", "S1", "T1", "Acc"}) {
        CalibrRow& Channel = gFile.Calibr.Grow();
        Channel.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
        Channel.ParamID = Name;
        DataRow& Row = gFile.Data.Grow();
        Row.SampleID = "Race 1";
        Row.ParamID = Name;
        for (int j = 0; j <= 50; ++j)
            Row.Values.push_back((*Name == 'S' ? 0.3 : 40) * std::sin(j / 8.0));
    }
    for (const int16_t Oper : {OperNone, OperFigureXY}) {
        ViewRow& Row = gFile.View4.Grow();
        Row.ID = Oper == OperNone ? "Oar" : "Figure";
        Row.Oper = Oper;
        Row.Arguments = Oper == OperNone ? "A1,A1" : "Acc,S1,T1,A1";
        Row.MinXPar = -1.5, Row.MaxXPar = 1.5;
        Row.MinYPar = Oper == OperNone ? -50.0F : -0.5F;
        Row.MaxYPar = Oper == OperNone ? 50.0F : 1.5F;
        // The fields are left, top, right and bottom in this order.
        Row.X1 = Oper == OperNone ? 0.0F : 55.0F;
        Row.Y1 = Oper == OperNone ? 50.0F : 100.0F;
        Row.Y2 = 100;
    }
}

struct PlayState : ShellState
{
    fData04play& Open(const char* Command)
    {
        Start();
        MakeSession();
        gCurFile = Folder.Path("s.txt");
        Choose(Command);
        QTest::keyClick(&Find<QListWidget>("lstTests"), Qt::Key_Return);
        return dynamic_cast<fData04play&>(Find<QWidget>("fData04play"));
    }
    QString Text(const char* Name) { return Find<QLineEdit>(Name).text(); }
};
} // namespace

TEST_CASE_FIXTURE(PlayState, "a sample is played, stepped and scrubbed by buttons, keys, slider, wheel and clicks")
{
    auto& Window = Open("mnuPlayTypical");
    CHECK(Window.windowTitle() == "Typical Data at Stroke Rate 30.0");
    auto& Plot = dynamic_cast<qSurface&>(Find<QWidget>("picPlay"));
    const QImage First = Plot.Grab();
    Click("cmdPlay_2");
    CHECK(Text("txtCycle_0") == "0.08");
    CHECK(Text("txtCycle_1") == "4%");
    CHECK(Find<QSlider>("Slider1").value() == 400);
    CHECK(First != Plot.Grab());
    QTest::keyClick(&Window, Qt::Key_Right);
    Click("cmdPlay_0");
    CHECK(gPlayFrame == 1);
    QTest::keyClick(&Find<QWidget>("Slider1"), Qt::Key_End);
    CHECK(Text("txtCycle_0") == "1.92");
    QTest::keyClick(&Plot, Qt::Key_Home);
    CHECK(Text("txtCycle_1") == "0%");
    CHECK(First == Plot.Grab());
    const auto Wheel = [&](int Delta) {
        QWheelEvent Event({9, 9}, {9, 9}, {}, {0, Delta}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Plot, &Event);
    };
    Wheel(-240);
    CHECK(gPlayFrame == 2);
    Wheel(120);
    CHECK(gPlayFrame == 1);
    Find<QSlider>("Slider1").setValue(5000);
    CHECK(gPlayTime == doctest::Approx(1));
    // A click a quarter of the plot behind the middle.
    const int Quarter = Plot.width() / 8;
    QTest::mouseClick(&Plot, Qt::LeftButton, {}, {Plot.width() / 4 + Quarter, Plot.height() / 2});
    CHECK(gPlayTime == doctest::Approx(1.5).epsilon(0.15));
    Find<QCheckBox>("chShowVals").click();
    const QImage WithValues = Plot.Grab();
    Find<QCheckBox>("chShowVals").click();
    CHECK(WithValues != Plot.Grab());

    Find<QDoubleSpinBox>("txtSpeed").setValue(2);
    QTest::keyClick(&Window, Qt::Key_Home);
    QTest::keyClick(&Window, Qt::Key_Space);
    QTest::qWait(400);
    Click("cmdPlay_1");
    const double Ran = gPlayTime;
    CHECK(Ran > 0.3);
    CHECK(Ran < 1.9);
    QTest::qWait(60);
    CHECK(gPlayTime == Ran);
    QTest::keyClick(&Window, Qt::Key_Escape);
    QTest::qWait(10);
    CHECK(!Main.findChild<QWidget*>("fData04play"));
    CHECK(gHost.Settings->GetSetting("Data04Play", "Width"));
}

TEST_CASE_FIXTURE(PlayState, "windows that follow the clock move with the play view, and it with them")
{
    int Followed = 0;
    const cPlayFollower Other([&] { ++Followed; });
    auto& Window = Open("mnuPlayAnim");
    CHECK(Window.windowTitle() == "Complex Data at Stroke Rate 30.0");
    CHECK(!Find<QWidget>("cmdMatch").isEnabled());
    Click("cmdPlay_2");
    CHECK(Followed == 1);
    gPlayFrame = 5;
    FollowPlayClock(&Other);
    CHECK(Text("txtCycle_1") == "20%");
    CHECK(Followed == 1);
    gFile.Desc.Clear();
    Notify(eNotice::SessionSaved); // the sample is gone
    QTest::qWait(10);
    CHECK(!Main.findChild<QWidget*>("fData04play"));
}

TEST_CASE_FIXTURE(PlayState, "the correction is typed, stepped, found by two clicks, and kept with the sample")
{
    auto& Window = Open("mnuPlayTypical");
    const PlayData WithVideo{.Mode = PlayTypical, .Sample = 1, .VideoFN = "clips/start.mp4"};
    REQUIRE(Window.InitData(WithVideo));
    auto& Plot = Find<QWidget>("picPlay");
    Click("cmdCorr_1");
    Click("cmdCorr_1");
    Click("cmdCorr_0");
    CHECK(Text("txtCorr") == "0.01");
    CHECK(gPlayTime == 0);
    CHECK(Text("txtCycle_0") == "0.01");
    auto& Box = Find<QLineEdit>("txtCorr");
    Box.selectAll();
    QTest::keyClicks(&Box, "0,25");
    CHECK(Text("txtCycle_0") == "0.25");
    Click("cmdMatch");
    CHECK(Find<QLabel>("lbNotes").text().contains("Click on the catch"));
    QTest::mouseClick(&Plot, Qt::LeftButton, {}, {Plot.width() / 4 + Plot.width() / 8, Plot.height() / 2});
    CHECK(gPlayTime == 0);
    const double Found = Text("txtCorr").toDouble();
    CHECK(std::abs(Found - 0.6) < 0.2); // a part of a second behind the middle, and what was typed
    CHECK(gVideoID.UBound() == 1);
    REQUIRE(Window.InitData({.Mode = PlayTypical, .Sample = 1}));
    CHECK(Text("txtCorr") == "0.00");
    REQUIRE(Window.InitData(WithVideo));
    CHECK(Text("txtCorr").toDouble() == doctest::Approx(Found));
    CHECK(ReadWhole(gCurFile).value_or("").find("Race 1\tstart\t") != std::string::npos);
}

TEST_CASE_FIXTURE(PlayState, "without a sample or with a file that is none nothing is played, and that is said")
{
    Start();
    gFile = {};
    Choose("mnuPlayTypical");
    CHECK(Dialogs.Told.back().find("no stored sample") != std::string::npos);
    Dialogs.Files.push_back(Folder.Path("none.qvn"));
    Choose("mnuPlayPrim");
    CHECK(Dialogs.Told.back().find("none.qvn") != std::string::npos);
    CHECK(!Main.findChild<QWidget*>("fData04play"));
}
