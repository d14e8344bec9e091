// The re-zero window, clicked and typed into while frames come.
#include "ShellState.h"
#include "acquisition/mComFast.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "core/shell/fCommands.h"
#include "widgets/qWorkArea.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTcpServer>
#include <QTimer>

#include <filesystem>

TEST_CASE_FIXTURE(ShellState,
                  "a group is zeroed by clicks, a space presses nothing, and closing reminds of what is unsaved")
{
    Start();
    gFile.Model = 61;
    for (const char* Name : {"H1", "H2", "A1"}) {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
        Row.ParamID = Name;
        Row.Q1 = 0.1;
    }
    SetCurFile(Folder.Path("s.txt"));
    Choose("mnuCalibrReZero");
    Dialogs.Told.clear();
    CHECK(Find<QLineEdit>("txtNames_0").text().isEmpty());
    QTest::keyClicks(&Find<QWidget>("txtChans_0"), "1"); // there is no row to take it
    CHECK(Find<QLabel>("lbState").text().startsWith("Choose a group"));
    Click("opParGr_2");
    CHECK(Find<QLineEdit>("txtNames_1").text() == "H2");
    CHECK(Find<QLineEdit>("txtNames_1").isVisible());
    CHECK(!Find<QLineEdit>("txtNames_2").isVisible());
    Find<QLineEdit>("txtQ1_0").setFocus();
    QTest::keyClick(&Find<QWidget>("txtQ1_0"), Qt::Key_A); // a command there too, not a letter of the gain
    CHECK(gFile.Calibr[1].Q1 == 0.1);
    CHECK(Find<QLabel>("lbState").text().startsWith("No data are coming yet."));
    gData[1] = 800;
    gData[2] = 1200;
    SampleDataWindows();
    DrawDataWindows();
    CHECK(Find<QLineEdit>("LogVals_1").text() == "1200");
    CHECK(Find<QLineEdit>("PhysVals_0").text() == "80.00");
    Find<QWidget>("cmdArr_2").setFocus();
    QTest::keyClick(&Find<QWidget>("cmdArr_2"), Qt::Key_Space);
    CHECK(Find<QLineEdit>("txtNewQ0_0").text() == "0.00");
    Click("cmdArr_2");
    CHECK(Find<QLineEdit>("txtNewQ0_0").text() == "-80.0000");
    CHECK(Find<QLineEdit>("txtLZero_1").text() == "1200.0");
    Dialogs.AnswerYes = false;
    Click("opParGr_0");
    CHECK(Find<QRadioButton>("opParGr_2").isChecked());
    Click("cmdArr_3");
    CHECK(gFile.Calibr[1].Q0 == doctest::Approx(-80));
    CHECK(gFile.Calibr[3].Q0 == 0);
    Click("cmdArr_2");
    Dialogs.AnswerYes = false;
    CHECK(!Find<qWorkArea>("MdiArea").CloseAsking()); // as another session does before it is opened
    const auto Told = Dialogs.Told.size();
    Click("cmdArr_4");
    QTest::qWait(10);
    CHECK(Dialogs.Told.size() == Told + 1);
    CHECK(!Main.findChild<QWidget*>("fDoReZero"));
}

TEST_CASE_FIXTURE(ShellState, "a channel with two curves is read through all frames of an arrival, not its last one")
{
    Start();
    gFile.Calibr.Clear();
    CalibrRow& Row = gFile.Calibr.Grow();
    Row.Chan = 1;
    Row.ParamID = "H1";
    Row.ProcMode = ApproxTwoLines;
    Row.Qup1 = 1;
    Row.Qdn1 = 2;
    SetCurFile(Folder.Path("s.txt"));
    Choose("mnuCalibrReZero");
    Click("opParGr_2");
    Click("cmdArr_0");
    for (const double Count : {100.0, 300.0, 200.0}) {
        gData[1] = Count;
        SampleDataWindows();
    }
    DrawDataWindows();
    CHECK(Find<QLineEdit>("LogVals_0").text() == "0200");
    CHECK(Find<QLineEdit>("PhysVals_0").text() == "400.00"); // on the falling curve
}

TEST_CASE_FIXTURE(ShellState, "angles and handle forces are zeroed by the counts of a second each, without a question")
{
    QTcpServer Logger;
    REQUIRE(Logger.listen(QHostAddress::LocalHost));
    Settings.SaveSetting("General", "gConnection", "1");
    Start("Link Port=" + std::to_string(Logger.serverPort()) + "\n");
    gFile.Model = 61;
    for (const char* Name : {"S1", "H1"}) { // no angles at all
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
        Row.ParamID = Name;
        Row.Q1 = 0.5;
    }
    SetCurFile(Folder.Path("s.txt"));
    QTimer Frames;
    Frames.callOnTimeout([] {
        gData = {0, 100, 200};
        gLinkWatch.FrameCame(gHost.Clock->Milliseconds());
        SampleDataWindows();
        DrawDataWindows();
    });
    Frames.start(20);
    CHECK(AutoReZero(Main) == "H1");
    CHECK(gFile.Calibr[1].Q0 == 0);
    CHECK(gFile.Calibr[2].Q0 == -100);
    CHECK(gFile.Calibr[2].Log0 == 200);
    CHECK(Dialogs.Told.empty());
    CHECK(std::filesystem::exists(gCurFile));
}
