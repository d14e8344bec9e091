// The main window as its users find it: menus, toolbar, sessions, windows, start and end.
#include "ShellState.h"
#include "base/mVersion.h"
#include "calibration/fCheckChans.h"
#include "calibration/fDoCalibr.h"
#include "calibration/fTrackChans.h"
#include "core/mDataWindow.h"
#include "core/mIni.h"
#include "core/shell/fFolders.h"
#include "core/shell/fMenu.h"
#include "core/shell/fWindows.h"
#include "files/mTextIO.h"

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

void ShellState::Start(const std::string& Ini)
{
    REQUIRE(SaveWhole(Folder.Path("Skarvelin.ini"), Ini));
    REQUIRE(Main.Load(Folder.Path("")));
    Main.show();
    REQUIRE(QTest::qWaitForWindowExposed(&Main));
}

namespace {
// A session of that many channels, saved under Name in Folder.
std::string MakeSession(const TempFolder& Folder, const std::string& Name, int16_t Channels)
{
    DataFile File;
    File.Model = 60;
    File.SlaveCnt = 1;
    File.SlaveChans = static_cast<int16_t>(Channels - 16);
    File.ChanCnt = Channels;
    for (int16_t i = 1; i <= Channels; ++i) {
        CalibrRow& Row = File.Calibr.Grow();
        Row.Chan = i;
        Row.ParamID = i == 3 ? "H1" : "P";
        Row.Q1 = 2;
    }
    const std::string Path = Folder.Path(Name);
    REQUIRE(WriteDataFile(Path, File, SectionFilter::Any));
    return Path;
}

} // namespace

TEST_CASE_FIXTURE(ShellState, "every menu entry is there, and what cannot be chosen yet says why")
{
    int Entries = 0;
    for (const MenuItem& Item : AllMenuItems()) {
        if (!Item.Name) continue;
        CAPTURE(Item.Name);
        ++Entries;
        const QAction& Entry = Find<QAction>(Item.Name);
        CHECK(Entry.isEnabled() == (Item.Action || Item.Window));
        CHECK((!Item.Window || FindWindow(Item.Window)));
        CHECK((Entry.isEnabled() || Entry.toolTip().size() > 5));
    }
    CHECK(Entries == 59);
}

TEST_CASE_FIXTURE(ShellState,
                  "toolbar captions follow the language, the fifth button is red, the choice of connection is kept")
{
    Settings.SaveSetting("General", "gLanguage", "1");
    Settings.SaveSetting("General", "gConnection", "1");
    CHECK(Find<QToolButton>("cmdToolBar_2").text() == "Check");
    Start();
    const char* Captions[] = {"Открыть файл", "Новый файл", "Каналы", "Обнулить",
                              "Гребля",       "Воспроизв.", "Запись", "Закрыть"};
    Main.resize(1024, 768);
    QTest::qWait(20);
    Click("opConnection_0");
    CHECK(Settings.GetSetting("General", "gConnection") == "0");
    for (int i = 0; i < 8; ++i) {
        const QToolButton& Button = Find<QToolButton>(("cmdToolBar_" + std::to_string(i)).c_str());
        CHECK(Button.text() == Captions[i]);
        CHECK(Button.width() >= Button.sizeHint().width());
        CHECK(Button.isVisible());
    }
    auto& Red = Find<QToolButton>("cmdToolBar_4");
    CHECK(Red.grab().toImage().pixelColor(8, Red.height() / 2) == QColor(0xd0, 0, 0));
}

TEST_CASE_FIXTURE(ShellState, "a session is opened from the menu, and one that cannot be read leaves the former one")
{
    Start();
    const std::string Path = MakeSession(Folder, "crew.txt", 32);
    Dialogs.Files = {Path, Folder.Path("gone.txt"), ""};
    Choose("mnuFileOpen");
    CHECK(Dialogs.Told == Texts{"Load Settings from...: *.txt"});
    CHECK(gFile.ChanCnt == 32);
    CHECK(gH1Chan == 3);
    CHECK(Find<QLabel>("sbStatusBar_1").text() == "crew");
    CHECK(Main.windowTitle() == "crew - Skarvelin");

    Click("cmdToolBar_0");
    CHECK(Dialogs.Told.size() == 3);
    Click("cmdToolBar_0"); // no file chosen
    CHECK(Dialogs.Told.size() == 4);
    CHECK((gCurFile == Path && gFile.ChanCnt == 32));
    gFile.Place = "Henley";
    Choose("mnuFileSave");
    CHECK(std::filesystem::exists(Folder.Path("crew.bak")));
    DataFile Saved;
    REQUIRE(ReadDataFile(Path, Saved, SectionFilter::Any));
    CHECK(Saved.Place == "Henley");
}

TEST_CASE_FIXTURE(ShellState,
                  "opening asks once when the session says another rate, and lists what was kept of the one before")
{
    Start();
    std::filesystem::copy_file(SOURCE_FOLDER "/demo/eight.txt", Folder.Path("eight.txt"));
    Main.OpenFile(Folder.Path("eight.txt"));
    const Texts Question = {"Sampling frequency: The session is sampled at 50 Hz, but the setting gDataFreq is 25 Hz, "
                            "by which times are counted. Which rate is meant (Hz)? [50]"};
    CHECK(Dialogs.Told == Question);
    CHECK(Settings.GetSetting("Options", "gDataFreq") == "50");
    Main.OpenFile(Folder.Path("eight.txt"));
    CHECK(Dialogs.Told == Question);
    CHECK_FALSE(Find<QLabel>("sbStatusBar_2").text().startsWith("Kept"));
    REQUIRE(SaveWhole(Folder.Path("bare.txt"), "Main\n61\t24\t\nEnd\nSess\nBARE\t\nEnd\nCalibr\nA1\t\nEnd\n"));
    Main.OpenFile(Folder.Path("bare.txt"));
    const auto& Line = Find<QLabel>("sbStatusBar_2"); // follows the picture rate
    CHECK(QTest::qWaitFor([&] { return Line.text().startsWith("Kept from the session before: Crew ("); }));
}

TEST_CASE_FIXTURE(ShellState, "saving without a session says so, help has none, the about box names the version")
{
    Start();
    Choose("mnuFileSave");
    Choose("mnuHelpContents");
    CHECK(Dialogs.Told ==
          Texts{"Information: There is no session to save: open one first.",
                "Information: Unable to display Help Contents. There is no Help associated with this project."});
    Choose("mnuHelpAbout");
    CHECK(Find<QMessageBox>("frmAbout").text().contains(Version()));
}

TEST_CASE_FIXTURE(ShellState, "windows are laid in bands, side by side, and closed by the last button")
{
    Start();
    gFile.ChanCnt = 8;
    Main.AddWindow(new fCheckChans);
    Main.AddWindow(new fTrackChans);
    auto& Area = Find<QMdiArea>("MdiArea");
    const QRect Room = Area.viewport()->rect();
    Choose("mnuWindowTileVertical");
    CHECK(Area.subWindowList()[0]->geometry() == QRect(0, 0, Room.width() / 2, Room.height()));
    CHECK(Area.subWindowList()[1]->geometry().right() == Room.right());
    Choose("mnuWindowTileHorizontal");
    CHECK(Area.subWindowList()[1]->geometry().bottom() == Room.bottom());
    CHECK(Area.subWindowList()[1]->width() == Room.width());
    auto* Bench = new fDoCalibr;
    Main.AddWindow(Bench);
    Main.resize(1280, 800);
    QTest::qWait(20);
    Choose("mnuWindowTileVertical");
    CHECK(Bench->width() >= Bench->minimumSizeHint().width()); // more than its third
    CHECK(Area.viewport()->rect().contains(Bench->parentWidget()->geometry()));
    Bench->Unload();
    REQUIRE(QTest::qWaitFor([] { return LoadedWindows().size() == 2; }, 2000));
    Choose("mnuWindowCascade");
    CHECK(Area.subWindowList()[0]->geometry().intersects(Area.subWindowList()[1]->geometry()));
    CHECK(LoadedWindows().size() == 2);
    Click("cmdToolBar_7");
    for (const cDataWindow* Window : LoadedWindows())
        CHECK(Window->Tag == "");
    CHECK(QTest::qWaitFor([&] { return LoadedWindows().empty() && Area.subWindowList().isEmpty(); }, 2000));
}

TEST_CASE_FIXTURE(ShellState, "place, bars and colours are kept over the end of the program")
{
    Start("Left=99999999999\nTop=9000\nWidth=700\nHeight=500\n"); // off every screen
    CHECK(Main.screen()->availableGeometry().contains(Main.geometry()));
    Start("Left=30\nTop=40\nWidth=700\nHeight=500\nnonsense\n");
    CHECK(Main.geometry() == QRect(30, 40, 700, 500));
    Choose("mnuWinToolbar");
    CHECK(!Find<QToolBar>("tbToolBar").isVisible());
    CHECK(Main.statusBar()->isVisible());
    Main.setGeometry(50, 60, 660, 480);
    Main.close();
    CHECK(ReadWhole(Folder.Path("Skarvelin.ini"))->find("Left=50\r\nTop=60\r\nWidth=660\r\nHeight=480") !=
          std::string::npos);
    CHECK(Settings.GetSetting("Settings", "ToolBar") == "0");
    CHECK(Settings.GetSetting("RGBArr", "RGBArr01") == "255");
}

TEST_CASE_FIXTURE(ShellState, "a first start reports the missing file once and opens a copy of the demonstration")
{
    REQUIRE(SaveWhole(Folder.Path("eight.txt"), "Main\n"));
    CHECK(!Main.Load(Folder.Path("")));
    CHECK(Dialogs.Told.size() == 1);
    OfferDemo(Folder.Path(""), Folder.Path(""));
    CHECK(Dialogs.Told.size() == 2);
    CHECK(gCurFile == Folder.Path("demo/eight.txt"));
    CHECK(ReadWhole(gCurFile) == "Main\n");
    CHECK(ProgramFolder(Folder.Path("none"), Folder.Path("user")) == Folder.Path("user/"));
    CHECK(std::filesystem::exists(Folder.Path("user")));
    CHECK(ProgramFolder(Folder.Path("demo"), Folder.Path("user")) == Folder.Path("demo/"));
}
