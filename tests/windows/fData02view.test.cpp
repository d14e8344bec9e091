// The data view on a recording, by clicks, keys and mouse: selection and its numbers, deleting, processing, saving.
#include "views/data/fData02view.h"
#include "ShellState.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mDataWindow.h"
#include "core/mSettings.h"
#include "core/shell/fCommands.h"
#include "files/mQVN.h"
#include "files/mTextIO.h"
#include "views/data/mSelNumbers.h"

#include <QLabel>
#include <QLineEdit>
#include <QWheelEvent>

#include <cmath>

namespace {
// A recording of a slave of eight channels: 50 frames a second, channel 1 swings about once in two seconds, channel 2
// is 500 times the sine of it.
struct Recording : ShellState
{
    static constexpr int Frames = 1000;
    std::string Bytes;

    Recording()
    {
        for (int i = 0; i < Frames; ++i)
            AddFrame(i);
        Start();
        Main.resize(1100, 800);
        Settings.SaveSetting("Options", "StdFilter", "3");
        gFile.Model = 67;
        gFile.ChanCnt = 4;
        gFile.KeyChanID = "A1";
        for (const char* Name : {"A1", "H1", "Vs", "Dist"}) {
            CalibrRow& Row = gFile.Calibr.Grow();
            Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Row.ParamID = Name;
            Row.Q1 = Row.Chan == 3 ? 0.001 : 1;
            Row.Q0 = Row.Chan == 1 ? -5000 : 0;
            Row.Min = Row.Chan == 1 ? -5000 : 0;
            Row.Max = 10000;
            Row.Visible = 1;
        }
        SetCurFile(Folder.Path("s.txt"));
        ResolveChannels();
        REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
        REQUIRE(SaveWhole(Folder.Path("a.qvn"), Bytes));
        Dialogs.Files = {Folder.Path("a.qvn")};
    }

    void AddWord(int Value)
    {
        Bytes += static_cast<char>(Value % 128);
        Bytes += static_cast<char>(Value / 128);
    }
    void AddFrame(int i)
    {
        const std::size_t Start = Bytes.size();
        Bytes.append("\x80\0\0\0", 4);
        for (int Time = (i + 1) * 20, k = 0; k < 5; ++k, Time /= 128)
            Bytes += static_cast<char>(Time % 128);
        Bytes.append(7, '\0');
        const double Phase = (i + 75.3 + 1.5 * std::sin(i / 160.0)) * 3.14159265358979 / 50;
        const int Counts[4] = {5000 + static_cast<int>(std::lround(3000 * std::cos(Phase))),
                               static_cast<int>(std::lround(500 * std::max(0.0, -std::sin(Phase)))), 5000, i};
        for (const int Count : Counts)
            AddWord(Count);
        for (int k = 5; k <= 8; ++k)
            AddWord(0);
        Bytes += '\0';
        const auto Length = static_cast<int>(Bytes.size() - Start) - 5;
        Bytes[Start + 2] = static_cast<char>(Length % 128);
        Bytes[Start + 3] = static_cast<char>(Length / 128);
    }

    std::string Number(int Index) { return Plain(Find<QLabel>(("txtSel_" + std::to_string(Index)).c_str()).text()); }
    void Drag(double From, double To)
    {
        auto& Plot = Find<QWidget>("picData");
        const auto Place = [&](double X) { return QPoint(static_cast<int>(Plot.width() * X), 60); };
        QTest::mousePress(&Plot, Qt::LeftButton, {}, Place(From));
        QTest::mouseMove(&Plot, Place(To));
        QTest::mouseRelease(&Plot, Qt::LeftButton, {}, Place(To));
    }
};
} // namespace

TEST_CASE_FIXTURE(Recording, "strokes are selected, their numbers shown, and processed into a sample of the session")
{
    Choose("mnuViewRaw");
    CHECK(Find<QWidget>("fData02view").windowTitle() == "Raw Data in a.qvn");
    CHECK(gRaw.UBound() == Frames - 1);
    QTest::keyClick(&Find<QWidget>("fData02view"), Qt::Key_A, Qt::ControlModifier);
    CHECK(Number(4) == "8");
    CHECK(Val(Number(5)) == doctest::Approx(30).epsilon(0.02));
    CHECK(Val(Number(3)) == doctest::Approx(18).epsilon(0.02));
    Click("CmdArr_4");
    CHECK(Val(Number(7)) == doctest::Approx(5 * Val(Number(3))).epsilon(0.01));
    CHECK(Number(8) == "5.00");
    Click("CmdArr_12");
    REQUIRE(gFile.Desc.UBound() == 1);
    CHECK(gFile.Desc[1].StrokeCount == 8);
    CHECK(gFile.Desc[1].RawFN == "a.qvn");
    CHECK(gFile.Desc[1].DistReal == doctest::Approx(Val(Number(7))).epsilon(0.001));
    CHECK(ReadWhole(Folder.Path("s.txt"))->find("a.qvn") != std::string::npos);
    CHECK(ReadWhole(Folder.Path("s.bak")).has_value());
}

TEST_CASE_FIXTURE(Recording,
                  "from a recording to paper: strokes are selected, their typical stroke is shown and saved as PDF")
{
    ViewRow& Row = gFile.View3.Grow();
    Row.ID = "Force";
    Row.MaxYPar = 1000;
    Row.Y1 = Row.Y2 = 100;
    Row.Arguments = "A1,H1";
    Row.Functions = "MaxY";
    Choose("mnuViewRaw");
    QTest::keyClick(&Find<QWidget>("fData02view"), Qt::Key_A, Qt::ControlModifier);
    Click("cmdPlotProc");
    const double Force = Val(Plain(Find<QLineEdit>("txtR1_0").text()));
    CHECK(Force > 450);
    CHECK(Force < 500); // the mean of strokes whose peaks do not meet
    REQUIRE(gStrokeCnt > 5);
    CHECK(Find<QLabel>("lbHead").text().contains(Shown("Strokes " + FormatNum(gStrokeCnt, "0"))));
    Dialogs.Files = {Folder.Path("page.pdf")};
    QTest::keyClick(&Find<QWidget>("fData03report"), Qt::Key_S, Qt::ControlModifier);
    CHECK(ReadWhole(Folder.Path("page.pdf")).value_or("").starts_with("%PDF"));
}

TEST_CASE_FIXTURE(Recording, "a dragged selection is deleted and brought back, and unsaved changes are asked for")
{
    Choose("mnuViewRaw");
    Click("CmdArr_2");
    CHECK(gXScale == 2);
    Drag(0.2, 0.6);
    const std::string Time = Number(3);
    CHECK(Val(Time) == doctest::Approx(0.4 / 0.97 * 400 * 2 / 50).epsilon(0.01));
    const double Value = gRaw(1, 700);
    Click("CmdArr_7");
    CHECK(gRaw.UBound() < 700);
    Dialogs.AnswerYes = false;
    QTest::keyClick(&Find<QWidget>("fData02view"), Qt::Key_Escape);
    QTest::qWait(5);
    CHECK(Dialogs.Told.back().find("no file has the changes") != std::string::npos);
    QTest::keyClick(&Find<QWidget>("fData02view"), Qt::Key_Z, Qt::ControlModifier);
    CHECK(gRaw.UBound() == Frames - 1);
    CHECK(gRaw(1, 700) == Value);
    CHECK(gRaw(0, Frames - 1) == doctest::Approx(0.02 * (Frames - 1)));
}

TEST_CASE_FIXTURE(Recording, "closing all windows of data asks before it takes cuts that no file has")
{
    Choose("mnuViewRaw");
    Drag(0.2, 0.6);
    Click("CmdArr_7");
    Dialogs.AnswerYes = false;
    const std::size_t Before = Dialogs.Told.size();
    CloseDForms();
    QTest::qWait(5);
    REQUIRE(Dialogs.Told.size() == Before + 1);
    CHECK(Dialogs.Told.back().find("no file has the changes") != std::string::npos);
    CHECK(Find<QWidget>("fData02view").isVisible());
    CHECK(gRaw.UBound() < Frames - 1);
    DrawDataWindows(); // frames are nothing to it
    Dialogs.AnswerYes = true;
    Click("cmdToolBar_7");
    QTest::qWait(5);
    CHECK(!Main.findChild<QWidget*>("fData02view"));
}

TEST_CASE_FIXTURE(
    Recording, "Shift and arrows move the cursor, where a selection starts and stops, and a touchpad zooms by notches")
{
    Choose("mnuViewRaw");
    auto& View = Find<QWidget>("fData02view");
    const auto Move = [&](Qt::Key Key, int Times) {
        for (int i = 0; i < Times; ++i)
            QTest::keyClick(&View, Key, Qt::ShiftModifier);
    };
    Move(Qt::Key_Right, 100);
    Click("CmdArr_8");
    Move(Qt::Key_Right, 200);
    Click("CmdArr_9");
    CHECK(Number(1) == "6.0");
    CHECK(Number(2) == "10.0");
    Move(Qt::Key_Left, 250);
    Click("CmdArr_8");
    CHECK(Number(1) == "5.0");
    for (const int Scale : {1, 1, 2}) { // a third of a notch each
        QWheelEvent Turn({300, 60}, {300, 60}, {}, {0, -40}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Find<QWidget>("picData"), &Turn);
        CHECK(gXScale == Scale);
    }
}

TEST_CASE_FIXTURE(Recording,
                  "a start behind the old stop shows that it has none, is not processed, and gets one by Dist")
{
    Choose("mnuViewRaw");
    auto& View = Find<QWidget>("fData02view");
    Click("CmdArr_4");
    for (const char* Command : {"CmdArr_9", "CmdArr_8"}) {
        for (int i = 0; i < 50; ++i)
            QTest::keyClick(&View, Qt::Key_Right, Qt::ShiftModifier);
        Click(Command);
    }
    CHECK((Number(1) == "6.0" && Number(2) == "no stop" && Number(3).empty()));
    Click("CmdArr_12");
    CHECK(Dialogs.Told.back().find("has no stop yet") != std::string::npos);
    CHECK(gFile.Desc.UBound() == 0);
    Click("CmdArr_4");
    CHECK(Number(2) == "20.0");
    Click("CmdArr_12");
    REQUIRE(gFile.Desc.UBound() == 1);
    CHECK(gFile.Desc[1].DistReal == doctest::Approx(5 * 0.02 * (Frames - 2 - 300)));
}

TEST_CASE_FIXTURE(Recording, "what is saved from a view with a gap is the frames that it shows, byte for byte")
{
    Choose("mnuViewRaw");
    auto& View = dynamic_cast<fData02view&>(Find<QWidget>("fData02view"));
    const std::size_t Size = Bytes.size() / Frames;
    ViewUndo Undo;
    Drag(0.2, 0.3);
    gRawFN = Folder.Path("b.qvn"); // a recording is started meanwhile
    REQUIRE(SaveWhole(gRawFN, std::string(Bytes.size(), '\0')));
    Click("CmdArr_7");
    CHECK(GapNote(0, gRaw.UBound()).starts_with("No samples for 0.8 s"));
    const int Gone = Frames - 2 - gRaw.UBound();
    Dialogs.Files = {Folder.Path("cut.qvn")};
    Drag(0.03, 0.999);
    Click("CmdArr_0");
    const std::string Cut = *ReadWhole(Folder.Path("cut.qvn"));
    CHECK(Cut.size() % Size == 0);
    const std::size_t First = Bytes.find(Cut.substr(0, Size));
    const auto Last = Bytes.find(Cut.substr(Cut.size() - Size));
    REQUIRE((First != std::string::npos && Last != std::string::npos));
    CHECK((Last - First) / Size + 1 == Cut.size() / Size + static_cast<std::size_t>(Gone));
    Dialogs.Files = {Folder.Path("a.qvn")};
    Click("CmdArr_0");
    CHECK(Dialogs.Told.back().find("recording itself") != std::string::npos);
    CHECK(*ReadWhole(Folder.Path("a.qvn")) == Bytes);
    CHECK(View.isVisible());
}

TEST_CASE_FIXTURE(Recording,
                  "a scanned recording shows its strokes, and a stretch of them is trimmed, brought back and read")
{
    Choose("mnuViewScanQVN");
    CHECK(gScanRows.UBound() == 10);
    CHECK(gRaw.UBound() == -1);
    for (const int Presses : {2, 3}) {
        for (int i = 0; i < Presses; ++i)
            QTest::keyClick(&Find<QWidget>("fData02view"), Qt::Key_Right);
        Click(Presses == 2 ? "CmdArr_8" : "CmdArr_9");
    }
    CHECK(Find<QLabel>("lbStrip").text().contains("Strokes=3   Rate="));
    Click("cmdSelAll");
    CHECK(Find<QLabel>("lbStrip").text().contains("Strokes=9   Rate="));
    Click("cmdTrim");
    CHECK(gScanRows.UBound() == 8);
    QTest::keyClick(&Find<QWidget>("fData02view"), Qt::Key_Z, Qt::ControlModifier);
    CHECK(gScanRows.UBound() == 10);
    Click("cmdSelAll");
    Click("cmdGetRawData");
    CHECK(gRaw.UBound() > 900);
    Click("cmdSaveStrokes");
    CHECK(ReadWhole(Folder.Path("s.str"))->ends_with("End\r\n"));
}
