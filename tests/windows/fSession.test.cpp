// The session and athlete dialogs, typed into and clicked.
#include "records/fSession.h"
#include "ShellState.h"
#include "core/mIni.h"
#include "files/mTextIO.h"
#include "records/fAthleteInp.h"
#include "support/FullDisk.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

namespace {
// On 17 May 2024, with the demonstration single open.
struct SessionWindow : ShellState
{
    struct May : qClock
    {
        LocalTime Now() const override { return {2024, 5, 17, 9, 30, 0}; }
    } Day;

    SessionWindow()
    {
        gHost.Clock = &Day;
        Start("Base Folder=" + Folder.Path("data") + "\n");
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/single.txt", Folder.Path("single.txt"));
        Main.OpenFile(Folder.Path("single.txt"));
    }
    ~SessionWindow() { gHost.Clock = &Clock; }
    void Type(const char* Name, const char* Text)
    {
        auto& Box = Find<QLineEdit>(Name);
        Box.setFocus();
        Box.selectAll();
        QTest::keyClicks(&Box, Text);
    }
    std::string Label(const char* Name) { return Plain(Find<QLabel>(Name).text()); }
    std::string Box(const char* Name) { return Plain(Find<QLineEdit>(Name).text()); }
    bool IsOpen(const char* Name)
    {
        QTest::qWait(10);
        return Main.findChild<QWidget*>(Name) != nullptr;
    }
    void ChooseTemplate(const char* Name)
    {
        auto& List = Find<QListWidget>("lstTemplates");
        const auto Found = List.findItems(Name, Qt::MatchExactly);
        REQUIRE(Found.size() == 1);
        List.scrollToItem(Found[0]);
        QTest::mouseClick(List.viewport(), Qt::LeftButton, Qt::NoModifier, List.visualItemRect(Found[0]).center());
    }
};
} // namespace

TEST_CASE_FIXTURE(SessionWindow, "a newcomer makes a session from a template, and its name is seen as it is typed")
{
    Click("cmdToolBar_1");
    CHECK(Find<fSession>("fSession").windowTitle() == "A NEW blank data file will be created");
    CHECK(Box("txtDate") == "17/05/2024");
    ChooseTemplate("Double scull");
    CHECK(Find<QRadioButton>("optBoatType_2").isChecked());
    CHECK(Box("txtPars_5") == "27");
    CHECK(Label("lbTemplate").find("32 channels, 2 rowers, 4 oars") != std::string::npos);
    CHECK(Label("lbOwnTemplates").find(Folder.Path("templates")) != std::string::npos);
    Dialogs.Answers = {"Our single"};
    Click("cmdKeepTemplate");
    CHECK(Find<QListWidget>("lstTemplates").currentItem()->text() == "Our single");
    CHECK(Box("txtPars_5") == "14");
    ChooseTemplate("Double scull");
    Click("optSex_1");
    Click("optWeight_1");
    Type("txtSessNum", "3/4");
    CHECK(Label("lbPlan").find("A file name cannot hold /.") != std::string::npos);
    CHECK(Find<QLineEdit>("txtSessNum").toolTip() == "a file name cannot hold /");
    Click("cmdOK");
    CHECK(IsOpen("fSession"));
    CHECK(Dialogs.Told.back() == "Warning!: The session cannot be stored: a file name cannot hold /.");
    Type("txtSessNum", "3");
    CHECK(Label("lbSessID") == "<b>2024_05_17_3_WL2x</b>");
    const std::string Path = Folder.Path("data/2024_05_17_3_WL2x/2024_05_17_3_WL2x.txt");
    CHECK(Label("lbPath") == Path);
    Type("txtPlace", "North Lake");
    Click("cmdApply");
    CHECK(gCurFile == Path);
    CHECK(Main.windowTitle() == "2024_05_17_3_WL2x - Skarvelin");
    // What is made is changed from now on, not made again.
    CHECK(Find<fSession>("fSession").windowTitle() == "Changing the current session data (samples preserved)");
    CHECK(!Find<QLineEdit>("txtSessNum").isEnabled());
    Type("txtComment", "First outing");
    const auto Asked = Dialogs.Told.size();
    Click("cmdOK");
    CHECK(!IsOpen("fSession"));
    CHECK(Dialogs.Told.size() == Asked);
    DataFile File;
    REQUIRE(ReadDataFile(Path, File, SectionFilter::Any));
    CHECK((File.Calibr.UBound() == 32 && File.Place == "North Lake" && File.Comment == "First outing"));
}

TEST_CASE_FIXTURE(SessionWindow, "Save As asks before it replaces a session, and keeps what is open when it fails")
{
    Choose("mnuFileSaveAs");
    CHECK(Find<fSession>("fSession").windowTitle() ==
          "Current setup will be SAVED AS a new data file (samples discarded)");
    CHECK((Box("txtPlace") == "Long Lake" && Box("txtPars_4") == "8.200"));
    Type("txtDate", "31/02/2024");
    CHECK(Label("lbPlan").find("is no date") != std::string::npos);
    Type("txtDate", "01/02/2024");
    {
        const FullDisk Disk(100);
        Click("cmdOK");
    }
    CHECK(IsOpen("fSession"));
    CHECK(Dialogs.Told.back().starts_with("Warning!: Can't write file: "));
    CHECK((gCurFile == Folder.Path("single.txt") && gFile.SessID == "single"));
    Dialogs.Files = {Folder.Path("elsewhere/file.txt")};
    Click("cmdBrowse");
    CHECK(Dialogs.Told.back() == "Data folder (select any file in it): " + Folder.Path("data") + "*.*");
    CHECK(Box("DirLtxt") == Folder.Path("elsewhere"));
    Click("cmdOK");
    CHECK(!IsOpen("fSession"));
    CHECK(gCurFile == Folder.Path("elsewhere/2024_02_01_1_MH1x/2024_02_01_1_MH1x.txt"));
    CHECK(FormatDate(gFile.SessDate) == "01/02/24");

    Choose("mnuFileSaveAs");
    Type("txtDate", "01/02/2024");
    CHECK(Label("lbPlan").find("the file of the open session") != std::string::npos);
    Dialogs.AnswerYes = false;
    Click("cmdOK");
    CHECK(Dialogs.Told.back() == "Warning!: The current session already exists! Do you want to rewrite data?");
    CHECK(IsOpen("fSession"));
    QTest::keyClick(&Find<QWidget>("fSession"), Qt::Key_Escape);
    CHECK(!IsOpen("fSession"));
}

TEST_CASE_FIXTURE(SessionWindow, "the open session is described, and without one there is nothing to describe or save")
{
    Choose("mnuSetSession");
    CHECK(!Find<QLineEdit>("txtDate").isEnabled());
    CHECK(Label("lbPlan") == "The session's date, 14/05/2025, becomes the one above.");
    Click("optAge_3");
    Type("txtPars_0", "hot");
    CHECK(Find<QLineEdit>("txtPars_0").toolTip() == "\"hot\" is no number");
    Type("txtPars_0", "21,5");
    Click("cmdOK");
    CHECK((gFile.AgeGroup == "M" && gFile.AirTemp == 21.5F));
    CHECK(std::filesystem::exists(Folder.Path("single.bak")));
    SetCurFile("");
    for (const char* Name : {"mnuSetSession", "mnuFileSaveAs"}) {
        Choose(Name);
        CHECK(Dialogs.Told.back().starts_with("Information: There is no session to "));
    }
    CHECK(!IsOpen("fSession"));
}

TEST_CASE_FIXTURE(SessionWindow, "in ergometer mode Save As makes an athlete's session in the folder that is chosen")
{
    std::filesystem::create_directories(Folder.Path("data/club/team"));
    gErgoMode = 1;
    Choose("mnuFileSaveAs");
    auto& List = Find<QListWidget>("DirLB");
    CHECK(List.count() == 3);
    CHECK(Label("lbPath") == Folder.Path("data/2024_05_17_0_R01.txt"));
    const QPoint Club = List.visualItemRect(List.item(2)).center();
    QTest::mouseClick(List.viewport(), Qt::LeftButton, Qt::NoModifier, Club);
    QTest::mouseDClick(List.viewport(), Qt::LeftButton, Qt::NoModifier, Club);
    CHECK(List.item(2)->text() == "team");
    Click("Text1_3");
    QTest::keyClicks(&Find<QLineEdit>("Text1_3"), "R9");
    Click("opGender_1");
    Click("optAge_0");
    CHECK(Label("lbPath") == Folder.Path("data/club/2024_05_17_0_R9.txt"));
    Click("cmdOK");
    CHECK(!IsOpen("fAthleteInp"));
    CHECK(gCurFile == Folder.Path("data/club/2024_05_17_0_R9.txt"));
    CHECK(gFile.Crew[1].Sex + gFile.AgeGroup + gFile.SessID == "FJ2024_05_17_0_R9");
    CHECK(gBaseFolder == Folder.Path("data/club"));
    CHECK(Settings.GetSetting("FileNames", "gSessCnt") == "1");
    CHECK(Settings.GetSetting("fAthleteInp", "Width").has_value());
}
