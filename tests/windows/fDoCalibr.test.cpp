// The calibration workbench under keys and clicks, with a rig on a real serial line.
#include "calibration/fDoCalibr.h"
#include "ShellState.h"
#include "acquisition/mComFast.h"
#include "core/mDataWindow.h"
#include "core/mIni.h"
#include "files/mMain.h"

#include <QLabel>
#include <QLineEdit>
#include <QProcess>

namespace {
// The simulator behind a pseudo-terminal, with the session on the program's own copy.
struct RigState : ShellState
{
    QProcess Rig;
    const QString Line = Shown(Folder.Path("tty"));
    const QString Session = Shown(Folder.Path("eight.txt"));

    ~RigState()
    {
        Rig.terminate();
        Rig.waitForFinished();
    }

    void Mount(const char* What)
    {
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/eight.txt", Plain(Session));
        Rig.start(PROGRAM_FOLDER "/skarvelin-sim", {"--pty", Line, "--rig", What, Session});
        REQUIRE(QTest::qWaitFor([&] { return QFile::exists(Line); }, 5000));
        Start("COM port=" + Plain(Line) + "\n");
        Main.resize(1024, 768);
        REQUIRE(OpenSession(Plain(Session)));
    }
    QString Text(const char* Name) { return Find<QLineEdit>(Name).text(); }
    void Type(const char* Name, const QString& Text)
    {
        auto& Box = Find<QLineEdit>(Name);
        Box.setFocus();
        Box.selectAll();
        QTest::keyClicks(&Box, Text);
    }
    void Key(int Code) { QTest::keyClick(&Find<QWidget>("TBoxArr_1"), static_cast<Qt::Key>(Code)); }
    QString State() { return Find<QLabel>("lbState").text(); }
};
} // namespace

TEST_CASE_FIXTURE(RigState,
                  "a channel is calibrated by hand: loads typed, points by keys, the line saved, the session read")
{
    constexpr int Loads = 4;
    Mount("H1=0,200,400,600,hold=2,ramp=0,noise=1,q0=-160,q1=0.1");
    Choose("mnuCalibrDo");
    REQUIRE(QTest::qWaitFor([&] { return State().startsWith("The link is open"); }, 5000));
    Type("TBoxArr_0", "18");
    Key(Qt::Key_Return);
    REQUIRE(QTest::qWaitFor([&] { return State().startsWith("Data are coming"); }, 5000));
    double Former = 0;
    for (int i = 0; i < Loads; ++i) {
        // Without a ramp a count that is far from the former one is the next load's.
        REQUIRE(QTest::qWaitFor([&] { return std::fabs(Text("TBoxArr_2").toDouble() - Former) > 1000; }, 10000));
        Former = Text("TBoxArr_2").toDouble();
        QTest::keyClicks(Main.focusWidget(), QString::number(200 * i)); // over the load before it
        Key(i % 2 ? Qt::Key_Space : Qt::Key_Enter);
    }
    CHECK(State().contains("4 points"));
    CHECK(Text("TBoxArr_7") == "600.00");
    Key(Qt::Key_Escape);
    CHECK(State().startsWith("The link is closed"));
    Key(Qt::Key_Space); // no data, no point
    CHECK(State().contains("4 points"));
    Type("TBoxArr_10", "1,5");
    CHECK(Text("TBoxArr_10") == "1.5");
    Type("txtSensID", "sad ox"); // its letters are no commands
    Click("cmdArr_3");
    REQUIRE(OpenSession(Plain(Session)));
    const CalibrRow& Row = gFile.Calibr[18];
    CHECK(Row.SensorID == "sad ox");
    // Four points of a deviation of one count over 4472 counts across their middle.
    CHECK(Row.Q1 == doctest::Approx(0.1).epsilon(0.001));
    CHECK(Row.Q0 + Row.Q1 * 4600 == doctest::Approx(300).epsilon(0.002));
    CHECK(QFile::exists(Shown(Folder.Path("eight_18_sad ox.xcl"))));
}

TEST_CASE_FIXTURE(RigState,
                  "in automatic calibration a space lets each frame be a point, and no trace of former lines stays")
{
    Mount("H1=0,600,hold=0,ramp=10,noise=2,hyst=4,calibrator=H2");
    gAutoCalCh = 26;
    gAutoCalQ0 = gFile.Calibr[26].Q0;
    gAutoCalQ1 = gFile.Calibr[26].Q1;
    Settings.SaveSetting("Calibration", "gAutoCalibr", "1");
    Choose("mnuCalibrDo");
    auto& Window = Find<fDoCalibr>("fDoCalibr");
    CHECK(Window.windowTitle() == "Auto-Calibration with channel #26");
    REQUIRE(QTest::qWaitFor([&] { return State().startsWith("The link is open"); }, 5000));
    Type("TBoxArr_0", "18");
    Click("cmdArr_0");
    REQUIRE(QTest::qWaitFor([&] { return State().startsWith("Data are coming"); }, 5000));
    Key(Qt::Key_Space);
    REQUIRE(QTest::qWaitFor([&] { return State().section(' ', 3, 3).toInt() > 90; }, 10000));
    Key(Qt::Key_Space);
    auto& Graph = Find<qSurface>("CalGr");
    const QImage Grown = Graph.Grab();
    Graph.OnResize(); // draws it at once
    CHECK(Graph.Grab() == Grown);
    Dialogs.AnswerYes = false;
    Main.OpenFile(Plain(Session));
    CHECK(Window.isVisible()); // with points that are not saved
    Dialogs.AnswerYes = true;
    Key(Qt::Key_D);
    CHECK(State().contains(" 0 points"));
    CHECK(Graph.Grab() != Grown);
    Click("cmdUndo");
    CHECK(!State().contains(" 0 points"));
}

TEST_CASE_FIXTURE(ShellState, "in automatic calibration a stream gives the same points in bursts of any size")
{
    Start();
    for (const char* Name : {"H1", "Cal"}) {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
        Row.ParamID = Name;
    }
    gFile.ChanCnt = 2;
    SetCurFile(Folder.Path("s.txt"));
    gAutoCalCh = 2;
    gAutoCalQ0 = -10;
    gAutoCalQ1 = 0.5;
    gAutoCalibr = 1;
    SaveSetting("gAutoCalibr");
    const auto PointsOf = [&](int Burst) {
        auto* Window = new fDoCalibr;
        Main.AddWindow(Window);
        gLinkWatch.Opened("link", Clock.Milliseconds());
        auto& Box = *Window->findChild<QLineEdit*>("TBoxArr_0");
        QTest::keyClicks(&Box, "1");
        QTest::keyClick(&Box, Qt::Key_Return);
        QTest::keyClick(&Box, Qt::Key_Space); // from now on each frame is a point
        for (int Frame = 1; Frame <= 500; ++Frame) {
            gData[1] = 1000 + 7 * Frame + Frame % 3;
            gData[2] = 40 + Frame;
            gLinkWatch.FrameCame(Clock.Milliseconds());
            SampleDataWindows();
            if (Frame % Burst == 0) DrawDataWindows();
        }
        CHECK(Window->findChild<QLabel*>("lbState")->text().contains(" 500 points"));
        const std::string Path = Folder.Path(FormatNum(Burst, "0") + ".xcl");
        Dialogs.Files = {Path};
        QTest::mouseClick(Window->findChild<QWidget*>("cmdArr_5"), Qt::LeftButton);
        gLinkWatch.Closed();
        Window->Unload();
        return ReadWhole(Path).value_or("");
    };
    const std::string Single = PointsOf(1);
    CHECK(Single.find("\r\n499\t260.000\t4502.00\t\r\n") != std::string::npos);
    for (const int Burst : {5, 50, 500})
        CHECK(PointsOf(Burst) == Single);
}
