// The coach's panel as a window: fed by the simulated logger over a serial line, by a replay, and by hand.
#include "live/coach/fData01Coach.h"
#include "LabelWatch.h"
#include "ShellState.h"
#include "acquisition/mComFast.h"
#include "core/mIni.h"
#include "files/mMain.h"
#include "live/coach/fCoachTable.h"

#include <QLabel>
#include <QMdiSubWindow>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>

#include <map>

namespace {
// Takes every frame of the link beside the window.
struct Beside : cDataWindow
{
    Beside() : cDataWindow(DataTag) { Panel.Load(); }
    void TakeSample() override { Panel.TakeSample(); }
    void DrawData() override {}
    void SetLive(bool) override {}
    void Unload() override {}
    void NewSession() override {}

    cCoach Panel;
};

struct CoachWindow : ShellState
{
    QProcess Logger;

    ~CoachWindow() { StopLogger(); }

    void StopLogger()
    {
        Logger.terminate();
        Logger.waitForFinished();
    }

    // Opens the program on a copy of a demonstration session, with its targets.
    void StartOn(const std::string& Session, const std::string& Ini = "")
    {
        for (const char* Name : {"single.txt", "eight.txt", "Targets.ini", "Curves.ini"})
            std::filesystem::copy_file(std::string(SOURCE_FOLDER "/demo/") + Name, Folder.Path(Name));
        gHost.Settings->SaveSetting("Models", "gIsTargVals", "1");
        gHost.Settings->SaveSetting("Models", "gSeatChan", "23");
        gHost.Settings->SaveSetting("Models", "gTrunkChan", "24");
        Start(Ini);
        Main.resize(1024, 768);
        REQUIRE(OpenSession(Folder.Path(Session)));
    }
    fData01Coach& Window() { return dynamic_cast<fData01Coach&>(Find<QWidget>("fData01Coach")); }
    std::string Label(const QString& Name) { return Plain(Find<QLabel>(Plain(Name).c_str()).text()); }
    const fCoachCell& Cell(int Number)
    {
        return dynamic_cast<fCoachCell&>(Find<QLabel>(("lbV_" + std::to_string(Number)).c_str()));
    }

    // Every cell shows what the panel without a window holds, whole.
    void CheckTable(const cCoach& Panel)
    {
        for (int Row = 0; Row < Panel.RowCount(); ++Row)
            for (int Column = 0; Column < Panel.ColumnCount(); ++Column) {
                const fCoachCell& Shown = Cell(Panel.RowCount() * Column + Row);
                CAPTURE(Row);
                CAPTURE(Column);
                CHECK(Plain(Shown.text()) == cCoach::Text(Panel.Cell({Row, Column})));
                CHECK(Shown.Cell().Verdict == Panel.Cell({Row, Column}).Verdict);
                CHECK(Shown.sizeHint().width() <= Shown.width());
                CHECK(Shown.sizeHint().height() <= Shown.height());
            }
    }
};
} // namespace

TEST_CASE_FIXTURE(CoachWindow,
                  "a crew on a serial line fills the table, in every mode, is recorded, and turns grey when "
                  "the cable is pulled")
{
    const QString Line = Shown(Folder.Path("tty"));
    StartOn("single.txt", "COM port=" + Plain(Line) + "\n");
    Logger.start(PROGRAM_FOLDER "/skarvelin-sim", {"--pty", Line, "--speed", "6", Shown(Folder.Path("single.txt"))});
    REQUIRE(QTest::qWaitFor([&] { return QFile::exists(Line); }, 5000));
    Choose("mnuSampleCoach");
    Beside Same;
    const auto Strokes = [&](int Count) {
        REQUIRE(QTest::qWaitFor([&] { return Same.Panel.Clock().StrokeN() >= Count; }, 20000));
    };
    CHECK(Label("lbTargGroup") == "Men's singles");
    Strokes(3);
    CHECK(Label("lbSeatName_0") == "Alex Brook");
    Click("opScull_1");
    Same.Panel.SetScullMode(ScullSeparate);
    CHECK(Label("lbSeatName_1") == "Alex Brook Left");
    CHECK(Label("txtTargets_4") == "360.0");
    CHECK(Label("lbTargets") == "Target");
    CHECK(Cell(0).height() <= Cell(0).width()); // one line does not become a bar
    Strokes(5);
    Click("opDisplay_1");
    Same.Panel.SetDisplayMode(DisplayAverage);
    QTest::keyClick(&Find<QRadioButton>("opDisplay_1"), Qt::Key_Space); // not the control's: it starts the recording
    CHECK(gLogging);
    QTest::qWait(300);
    CHECK(Find<QPushButton>("cmdStart").text() == "St&op logging (Space)");
    Strokes(7);
    StopLogger();
    REQUIRE(QTest::qWaitFor([&] { return !Find<QWidget>("coachTable").isEnabled(); }, 5000));
    CHECK(Label("lbData_1") == FormatNum(Same.Panel.Clock().StrokeN(), "0"));
    CHECK(Label("lbData_3") == FormatNum(Same.Panel.Clock().RateAver(), "00.0"));
    CheckTable(Same.Panel);
    CHECK(Cell(0).Ground() == QColor(208, 213, 218));

    const std::string Recorded = gLogFile.Path();
    const auto Before = gFile.SampleCnt;
    gFile.Comment = "kept at the end";
    QTest::keyClick(&Window(), Qt::Key_Escape);
    QTest::qWait(5);
    CHECK(!gLogging);
    CHECK(!Main.findChild<QWidget*>("fData01Coach"));
    CHECK(Main.findChild<QWidget*>("fData02view"));
    CHECK(std::filesystem::file_size(Recorded) > 1000);
    CHECK(ReadWhole(gCurFile)->find("kept at the end") != std::string::npos);
    CHECK(gFile.SampleCnt == Before);
    CHECK(gHost.Settings->GetSetting("fData01Coach", "mDisplayMode") == "1");
    CHECK(gHost.Settings->GetSetting("fData01Coach", "mScullMode") == "1");
}

TEST_CASE_FIXTURE(CoachWindow, "a recording that is replayed shows what the batch program prints")
{
    StartOn("eight.txt");
    const auto Run = [&](const char* Program, const QStringList& Words) {
        REQUIRE(QProcess::execute(QString(PROGRAM_FOLDER "/skarvelin-") + Program, Words) == 0);
    };
    const auto Path = [&](const char* Name) { return Shown(Folder.Path(Name)); };
    Run("sim", {"--file", Path("a.qvn"), Path("eight.txt"), "--strokes=6", "--freq=25"});
    Run("batch", {"live", Path("eight.txt"), Path("a.qvn"), Path("a.tsv"), "--panel", "coach", "--targets",
                  Path("Targets.ini")});
    std::map<std::string, Texts> Printed;
    for (const QString& Line : Shown(*ReadWhole(Folder.Path("a.tsv"))).split('\n').sliced(1)) {
        const QStringList Cells = Line.split('\t');
        if (Cells.size() != 7 || (Cells[2] == "S" && Cells[4] != "Strokes")) continue;
        const bool IsValue = Cells[2] == "V";
        const int Number = IsValue ? 8 * Cells[4].toInt() + Cells[3].toInt() - 1 : 1;
        LabelWatch::Add(Printed[(IsValue ? "lbV_" : "lbData_") + std::to_string(Number)],
                        FormatNum(Val(Plain(Cells[5])), IsValue ? "0.0" : "0"));
    }
    REQUIRE(Printed.size() == 57);

    Choose("mnuSampleCoach");
    Dialogs.Files = {Folder.Path("a.qvn")};
    Choose("mnuPlayRawCoach");
    SetReplayInterval(2);
    LabelWatch Watch(Window());
    Watch.WaitForEnd();
    for (const auto& [Name, Lines] : Printed) {
        CAPTURE(Name);
        CHECK(Watch.Shown(Name, Name == "lbData_1" ? "0" : "") == Lines);
    }
    StopAll();
}

TEST_CASE_FIXTURE(CoachWindow, "all panels stand side by side, and the table follows the session and its targets")
{
    StartOn("single.txt");
    Choose("mnuSampleTwoPanels");
    QTest::qWait(30);
    int Right = 0;
    for (const char* Name : {"fData01real", "fData01Coach", "fData01Catch"}) {
        const QRect Place = Find<QWidget>(Name).parentWidget()->geometry();
        CHECK(Place.left() >= Right);
        Right = Place.right();
    }
    CHECK(Right <= 1024);
    CHECK(Label("lbVarName_0") == "Catch (deg)");
    const auto Cells = [&] { return Window().findChildren<fCoachCell*>(QRegularExpression("lbV_.*")).size(); };
    CHECK(Cells() == 7);
    REQUIRE(OpenSession(Folder.Path("eight.txt")));
    CHECK(Cells() == 56);
    CHECK(Label("lbTargGroup") == "Men's eights");
    gFile.Crew[3].Name = "Bartholomew van den Berghe"; // beside two other panels
    Window().NewSession();
    const auto& Longest = Find<QLabel>("lbSeatName_2");
    const QRect Room = Longest.contentsRect();
    const auto Need = Longest.fontMetrics().boundingRect(Room, Qt::TextWordWrap, Longest.text()).size();
    CHECK(Need.width() <= Room.width());
    CHECK(Need.height() <= Room.height());
    for (const auto& [Type, Words] : {std::pair{"4+", "the boat type \"4+\""}, {"8+", "No targets"}}) {
        gFile.BoatType = Type;
        gFile.Sex = "X";
        Window().NewSession();
        CHECK(Cells() == 0);
        CHECK(Label("lbNote").find(Words) != std::string::npos);
    }
    gFile.BoatType = "8+";
    gFile.Sex = "M";
    gFile.Calibr[17].ParamID = gFile.Calibr[18].ParamID = "X1"; // gate and handle force of seat 1
    gHost.Settings->SaveSetting("Models", "gIsTargVals", "1");
    Window().NewSession();
    CHECK(Cell(3 * 8).Ground() == QColor(214, 219, 224));
    CHECK(Cell(3 * 8).toolTip().contains("no force channel (H or G) of seat 1"));
}
