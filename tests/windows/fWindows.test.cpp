// Every window of the table opens as its row says.
#include "core/shell/fWindows.h"
#include "ShellState.h"
#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "files/mMain.h"
#include "files/mTextIO.h"
#include "support/FakeMedia.h"
#include "video/f1Video.h"

#include <QDialog>
#include <QMdiSubWindow>
#include <QTcpServer>

#include <set>

namespace {
struct Windows : ShellState
{
    Windows()
    {
        gHost.MakeMedia = [] { return std::make_unique<FakeMedia>(10, 0.04); };
        Start();
        Main.resize(1024, 768);
        Video = std::make_unique<f1Video>();
        REQUIRE(Video->VideoFileOpen("clip.mp4"));
        gFile.Model = 67;
        gFile.ChanCnt = 8;
        for (int16_t i = 1; i <= 8; ++i) {
            CalibrRow& Row = gFile.Calibr.Grow();
            Row.Chan = i;
            Row.ParamID = i == 1 ? "A1" : "P";
            Row.Q1 = 1;
        }
        gFile.KeyChanID = "A1";
        gFile.Desc.Grow().SampleID = "one";
        SetCurFile(Folder.Path("s.txt"));
        REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
        std::string Frames;
        for (int i = 0; i < 40; ++i)
            Frames += MakeFrame(i * 40, i).toStdString();
        REQUIRE(SaveWhole(Folder.Path("a.qvn"), Frames));
    }
    QWidget* Open(const WindowKind& Row)
    {
        return OpenWindow(
            Main, Row.Name,
            {.File = Folder.Path("a.qvn"), .Kind = "Crew", .Sample = 1, .OpensLink = false, .Owner = Video.get()});
    }
    std::unique_ptr<f1Video> Video; // that others belong to
    static QWidget* FrameOf(QWidget* Window) { return Window->isWindow() ? Window : Window->parentWidget(); }
};
} // namespace

TEST_CASE_FIXTURE(Windows, "every window of the table opens, again as often as its row says, and closes")
{
    std::set<std::string> Names;
    for (const WindowKind& Row : AllWindows()) {
        CAPTURE(std::string(Row.Name));
        CHECK(Names.insert(Row.Name).second);
        CHECK(FindWindow(Row.Name) == &Row);
        QWidget* First = Open(Row);
        REQUIRE(First);
        CHECK(FindOpen(Main, Plain(First->objectName())) == First);
        CHECK((dynamic_cast<QDialog*>(First) != nullptr) == (Row.Place == ePlace::Dialog));
        CHECK(First->isVisible());
        QWidget* Second = Open(Row);
        REQUIRE(Second);
        const bool IsSame = Row.Count == eCount::One || Row.Count == eCount::OneAKind;
        CHECK((First == Second) == IsSame);
        CHECK(FrameOf(First)->isVisible() == (Row.Count != eCount::OneAnew));
        CHECK(FrameOf(First)->close());
        CHECK(FrameOf(Second)->close());
        CHECK(!FindOpen(Main, Row.Name));
        QTest::qWait(1);
    }
    CHECK(!OpenWindow(Main, "fNone"));
}

TEST_CASE_FIXTURE(Windows, "a window that cannot be made is reported, and one that stays is not replaced")
{
    CHECK(!OpenWindow(Main, "fData02view", {.File = Folder.Path("none.qvn")}));
    CHECK(Dialogs.Told.size() == 1);
    QWidget* View = OpenWindow(Main, "fData02view", {.File = Folder.Path("a.qvn")});
    REQUIRE(View);
    QTest::mouseClick(View->findChild<QWidget*>("CmdArr_6"), Qt::LeftButton);
    Dialogs.AnswerYes = false; // the changed samples are kept
    CHECK(!OpenWindow(Main, "fData02view", {.File = Folder.Path("a.qvn")}));
    CHECK(FindOpen(Main, "fData02view") == View);
}

TEST_CASE_FIXTURE(Windows, "windows keep their places, each under its own name, and those side by side share the area")
{
    QWidget* Targets = FrameOf(OpenWindow(Main, "fTargets"));
    const QRect Place(20, 30, 700, 350);
    Targets->setGeometry(Place);
    Targets->close();
    CHECK(FrameOf(OpenWindow(Main, "fTargets"))->geometry() == Place);
    CHECK(Settings.GetSetting("TargGrid", "Targets_Left") == "20");
    FrameOf(FindOpen(Main, "fTargets"))->close();
    QWidget* Bars = OpenWindow(Main, "fCheckChans", {.OpensLink = false});
    QWidget* Traces = OpenWindow(Main, "fTrackChans", {.OpensLink = false});
    CHECK(!FrameOf(Bars)->geometry().intersects(FrameOf(Traces)->geometry()));
}

TEST_CASE_FIXTURE(Windows, "windows with live data hear of another session, and its counts start from nothing")
{
    OpenWindow(Main, "fCheckChans", {.OpensLink = false});
    QWidget* Bench = OpenWindow(Main, "fDoCalibr", {.OpensLink = false});
    gData[1] = 5000; // of the former session
    REQUIRE(OpenSession(gCurFile));
    CHECK(gData[1] == 0);
    CHECK(FindOpen(Main, "fCheckChans"));
    CHECK(!FindOpen(Main, "fDoCalibr"));
    CHECK(!FrameOf(Bench)->isVisible());
}

TEST_CASE_FIXTURE(Windows, "a window that is closed at once leaves no link open")
{
    gConnection = ConnectionTCP;
    gLinkAddress = "127.0.0.1";
    QTcpServer Logger;
    REQUIRE(Logger.listen(QHostAddress::LocalHost));
    gLinkPort = Logger.serverPort();
    QWidget* Bars = OpenWindow(Main, "fCheckChans");
    REQUIRE(Bars);
    CHECK(gLinkWatch.State() != cLinkWatch::eState::Closed);
    FrameOf(Bars)->close();
    QTest::qWait(1);
    TickLink();
    CHECK(gLinkWatch.State() == cLinkWatch::eState::Closed);
}
