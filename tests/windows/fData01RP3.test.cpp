// The ergometer panel as a window, on a real serial line and in a replay.
#include "live/ergo/fData01RP3.h"
#include "ShellState.h"
#include "acquisition/mComFast.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "ergometer/cMonitorLink.h"
#include "support/LinkPeers.h"
#include "support/ScriptedMonitor.h"
#include "support/SurfaceLog.h"

#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>

namespace {
// The panel's figures beside the window: a window that takes each frame behind it.
struct Beside : cDataWindow
{
    Beside() : cDataWindow(DataTag) { Panel.Load(); }
    void TakeSample() override
    {
        Panel.TakeSample();
        if (OnSample) OnSample();
    }
    void DrawData() override {}
    void SetLive(bool) override {}
    void Unload() override {}

    std::function<void()> OnSample;
    SurfaceLog Screen{1000, 600};
    cErg Panel{Screen};
};

struct ErgWindow : ShellState
{
    ScriptedMonitor Monitor;

    ErgWindow()
    {
        Monitor.IsAttached = false;
        gMonitorLink.Use(&Monitor);
        Start("IsCurves=-1\nIsValue=-1\n");
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/ergo.txt", Session);
        Main.OpenFile(Session);
        REQUIRE(QProcess::execute(PROGRAM_FOLDER "/skarvelin-sim",
                                  {"--file", Shown(Raw), Shown(Session), "--strokes=8"}) == 0);
        gConnection = ConnectionSerial;
        gCOMdevice = Folder.Path("port");
    }

    ~ErgWindow() { gMonitorLink.Use(nullptr); }

    fData01RP3& Open()
    {
        Choose("mnuSampleErgo");
        auto& Window = Find<QWidget>("fData01RP3");
        Window.parentWidget()->resize(900, 640);
        return dynamic_cast<fData01RP3&>(Window);
    }
    std::string Label(const char* Name) { return Plain(Find<QLabel>(Name).text()); }
    bool MonitorSays(const char* Words)
    {
        return QTest::qWaitFor([&] { return Find<QLineEdit>("txtPMI").text() == Words; }, 3000);
    }
    bool Says(const std::string& Words)
    {
        return QTest::qWaitFor([&] { return Label("lbLink").find(Words) != std::string::npos; }, 3000);
    }

    // Sends frames until the window has taken them.
    static void Send(const PseudoTerminal& Line, const std::string& Bytes, int32_t Frames)
    {
        constexpr std::size_t Chunk = 990; // 30 frames
        for (std::size_t From = 0; From < Bytes.size(); From += Chunk) {
            Line.Send(Bytes.substr(From, Chunk));
            QTest::qWait(1);
        }
        CHECK(QTest::qWaitFor([&] { return gFrameCnt >= Frames; }, 3000));
        QTest::qWait(60); // labels follow the picture rate
    }

    // The labels are those of the panel's figures.
    void CheckLabels(const cErg& Panel)
    {
        REQUIRE((Panel.WholeStroke() && Panel.CatchFactor() && Panel.HandleTiming().StyleFactor()));
        const ErgStroke& Stroke = *Panel.WholeStroke();
        const CatchStroke& Timing = Panel.HandleTiming().Stroke();
        const std::tuple<const char*, double, const char*> Labels[] = {
            {"lbData_0", gSampleTime, "00.0"},
            {"lbData_2", Stroke.Rate, "00.0"},
            {"lbData_3", Panel.Stroke().StrokeCnt, "000"},
            {"lbPower", Stroke.Power, "0"},
            {"lbStrokeLength", Stroke.Length, "0.00"},
            {"lbWork", Stroke.Work, "0"},
            {"lbDrive", Stroke.DriveTime, "0.00"},
            {"lbRecov", Stroke.RecovTime, "0.00"},
            {"lbMaxForce", Stroke.MaxForce, "0"},
            {"lbMaxForceT", Stroke.MaxForceT, "0.00"},
            {"lbAverForce", Stroke.Work / Stroke.Length, "0"},
            {"lbCatch", *Panel.CatchFactor(), "0"},
            {"lbRSF", Panel.HandleTiming().StyleFactor()->Last, "0.0"},
            {"lbSeatTravel", Timing.SeatTravel, "0.00"},
            {"lbMaxHandleVel", Timing.MaxHandleV, "0.00"},
            {"lbMaxSeatVel", Timing.MaxSeatV, "0.00"}};
        for (const auto& [Name, Value, Format] : Labels) {
            CAPTURE(Name);
            CHECK(Label(Name) == FormatNum(Value, Format));
            CHECK(Find<QLabel>(Name).isEnabled());
        }
    }

    std::string Session = Folder.Path("ergo.txt");
    std::string Raw = Folder.Path("demo.qvn");
};
} // namespace

TEST_CASE_FIXTURE(ErgWindow,
                  "the panel has the line for itself, says when it is taken or pulled, and records to the last frame")
{
    const PseudoTerminal Line(gCOMdevice);
    qSerialPort Other;
    REQUIRE(Other.Open(gCOMdevice, "115200,n,8,1", eWaiting::Dropped));
    fData01RP3& Window = Open();
    const Beside Panel;
    CHECK(Says("port is in use by another program"));
    CHECK(Label("lbStrokeLength").empty());
    Other.Close();
    CHECK(QTest::qWaitFor([&] { return Line.Take().find("#RUN") != std::string::npos; }, 3000));
    CHECK(Label("lbLink") == "COM port " + gCOMdevice);
    CHECK(gLinkWatch.State() == cLinkWatch::eState::Closed);

    const std::string Frames = ReadWhole(Raw).value();
    const auto Count = static_cast<int32_t>(Frames.size() / 33);
    Send(Line, Frames, Count);
    CheckLabels(Panel.Panel);
    CHECK(Panel.Panel.Stroke().StrokeCnt >= 8);

    QTest::keyClick(&Window, Qt::Key_Return);
    CHECK(gLogging);
    CHECK(QTest::qWaitFor([&] { return Label("lbPrompt") == "Press ESC to finish sampling"; }, 1000));
    Line.Send(Frames.substr(0, 3300)); // the logger's clock runs from 0 again
    CHECK(QTest::qWaitFor([&] { return gLogFile.Length() == 3300; }, 3000));
    const_cast<PseudoTerminal&>(Line).Pull();
    CHECK(Says("lost"));
    const_cast<PseudoTerminal&>(Line).PutBack();
    CHECK(QTest::qWaitFor([&] { return Label("lbLink") == "COM port " + gCOMdevice; }, 3000));
    Line.Send(Frames.substr(3300, 66));
    CHECK(QTest::qWaitFor([&] { return gLogFile.Length() >= 3333; }, 3000));
    QTest::keyClick(&Window, Qt::Key_Escape);
    QTest::qWait(20);
    CHECK(Dialogs.Told.back() == "Warning!: A recording is running. Stop it and close the panel?");
    CHECK(!Main.findChild<QWidget*>("fData01RP3"));
    CHECK(ReadWhole(gRawFN) == Frames.substr(0, 3366));
    CHECK(Other.Open(gCOMdevice, "115200,n,8,1", eWaiting::Dropped));
}

TEST_CASE_FIXTURE(ErgWindow,
                  "while the main link is open the panel shows its frames, and takes the line when it is closed")
{
    const PseudoTerminal Line(gCOMdevice);
    Choose("mnuSampleRower");
    Open();
    CHECK(Says("port is taken by the main window's link, whose frames are shown"));
    Line.Send(ReadWhole(Raw).value().substr(0, 3300));
    CHECK(QTest::qWaitFor([&] { return Label("lbData_0") == "02.0"; }, 3000));
    QTest::keyClick(&Find<QWidget>("fData01real"), Qt::Key_Escape);
    CHECK(QTest::qWaitFor([&] { return Label("lbLink") == "COM port " + gCOMdevice; }, 3000));
    CHECK(gLinkWatch.State() == cLinkWatch::eState::Closed);
    Choose("mnuSampleRower");
    CHECK(gLinkWatch.State() == cLinkWatch::eState::Closed);

    QPushButton& Damp = Find<QPushButton>("cmdDamp");
    Click("cmdDamp");
    CHECK(Damp.text() == "Stop Damp");
    CHECK(ReadWhole(gCurDir + gSampleName + ".log") == "");
    Click("cmdDamp");
    CHECK(Damp.text() == "Start Damp");
}

TEST_CASE_FIXTURE(ErgWindow, "the monitor's figures stand beside the panel's, and both in the rows of the comparison")
{
    const PseudoTerminal Line(gCOMdevice);
    Open();
    Beside Panel;
    CHECK(MonitorSays("No performance monitor is connected"));
    Monitor.State = StateDriving;
    Monitor.IsAttached = true;
    CHECK(MonitorSays("02:01.0 /500 m    28 /min    175 W    drive"));
    Click("cmdLog");
    CHECK(Find<QPushButton>("cmdLog").text() == "Stop Log");
    std::vector<double> Rates; // of the whole strokes
    Panel.OnSample = [&] {
        const ErgStroke& Stroke = Panel.Panel.Stroke();
        if (!Panel.Panel.Newest().Stroke || !Stroke.IsWhole) return;
        Rates.push_back(Stroke.Rate);
        ++Monitor.Drives;
    };
    const std::string Frames = ReadWhole(Raw).value();
    Send(Line, Frames, static_cast<int32_t>(Frames.size() / 33));
    Monitor.IsAttached = false;
    CHECK(MonitorSays("No performance monitor is connected"));
    Click("cmdLog");
    CHECK(Find<QPushButton>("cmdLog").text() == "Start Log");
    CHECK(gFile.SampleCnt == 2);
    const std::string Head = ReadWhole(gCurDir + "PMlog001.csv").value();
    const QStringList Rows = Shown(ReadWhole(gCurDir + "PMlog001_strokes.csv").value()).split("\r\n");
    REQUIRE(Rates.size() >= 7);
    REQUIRE(Rows.size() == static_cast<qsizetype>(Rates.size()) + 2);
    CHECK(Plain(Rows[0]) + "\r\n" == Head);
    for (std::size_t i = 0; i < Rates.size(); ++i) {
        const QStringList Cells = Rows[static_cast<qsizetype>(i) + 1].split('\t');
        REQUIRE(Cells.size() == 22);
        CHECK(Plain(Cells[2]) == FormatGeneral(Rates[i], 6));
        if (i + 1 < Rates.size()) CHECK(Cells[3] == "28"); // the last one may have ended behind the cable
    }
}

TEST_CASE_FIXTURE(ErgWindow, "a recording replayed through the window gives what the batch program prints of it")
{
    const QString Out = Shown(Folder.Path("live.txt"));
    REQUIRE(QProcess::execute(PROGRAM_FOLDER "/skarvelin-batch",
                              {"live", Shown(Session), Shown(Raw), Out, "--panel", "ergo"}) == 0);
    Open();
    Beside Panel;
    std::string Lines = "Frame\tTime\tKind\tKey\tValue\n";
    int Frame = -1;
    Panel.OnSample = [&] {
        const auto Line = [&](const char* Kind, const char* Key, double Value) {
            Lines += FormatNum(Frame, "0") + '\t' + FormatGeneral(gSampleTime, 9) + '\t' + Kind + '\t' + Key + '\t' +
                     FormatGeneral(Value, 9) + '\n';
        };
        ++Frame;
        const ErgStroke& Stroke = Panel.Panel.Stroke();
        // The counts and rates are those that the window's own panel has published.
        if (Panel.Panel.Newest().Stroke)
            for (const auto& [Key, Value] : {std::pair<const char*, double>{"Strokes", gStrokeCnt},
                                             {"Cycle", gCycleTime},
                                             {"Rate", gRate},
                                             {"RateAver", gRateAver},
                                             {"Drive", Stroke.DriveTime},
                                             {"Recovery", Stroke.RecovTime},
                                             {"Length", Stroke.Length},
                                             {"MaxForce", Stroke.MaxForce},
                                             {"MaxForceTime", Stroke.MaxForceT},
                                             {"Work", Stroke.Work},
                                             {"Power", Stroke.Power},
                                             {"AverForce", Stroke.AverForce}})
                Line("N", Key, Value);
        if (Panel.Panel.Newest().CF) Line("CF", "CF", Panel.Panel.CF());
        if (gReplayFile.AtEnd()) gReplaying = false; // held at the last frame, since the end closes the window
    };
    StartReplay(Raw);
    SetReplayInterval(1);
    CHECK(Says("A recording is played"));
    REQUIRE(QTest::qWaitFor([&] { return !gReplaying; }, 30000));
    QTest::qWait(60);
    CheckLabels(Panel.Panel);
    CHECK(Lines == ReadWhole(Plain(Out)));
    StopAll();
}
