// The options, typed into and clicked through: every control, the search, what is red, and the ways to close.
#include "records/fOpts.h"
#include "ShellState.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "files/mMain.h"
#include "files/mTextIO.h"
#include "platform/qt/qSettings.h"
#include "platform/qt/qSurface.h"
#include "records/cOptions.h"
#include "support/Fresh.h"
#include "widgets/qSwatch.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <cmath>
#include <map>

namespace {
constexpr int32_t NewColour = 0x00336699;

struct ColourDialogs : ScriptedDialogs
{
    std::optional<int32_t> ChooseColour(int32_t Proposed) override { return Proposed == 0 ? 255 : NewColour; }
};

// A program with its settings in a file, as often as it is started.
struct Program : ShellState
{
    qSettings Store;
    ColourDialogs Chooser;
    std::string Home;

    explicit Program(const std::string& InitHome) : Store(InitHome + "settings.ini"), Home(InitHome)
    {
        gHost.Settings = &Store;
        gHost.Dialogs = &Chooser;
        if (!std::filesystem::exists(Home + "Skarvelin.ini")) MakeFiles();
        REQUIRE(Main.Load(Home));
        REQUIRE(LoadCurrentFile());
        Main.show();
        Choose("mnuSetGlobals");
    }
    void MakeFiles() const
    {
        DataFile File;
        File.Model = ModelMaster;
        File.SlaveChans = 8;
        for (int16_t Chan = 1; Chan <= 24; ++Chan) {
            CalibrRow& Row = File.Calibr.Grow();
            Row.Chan = Chan;
            Row.ParamID = "P" + std::to_string(Chan);
        }
        File.ChanCnt = 24;
        REQUIRE(WriteDataFile(Home + "s.txt", File, SectionFilter::Any));
        REQUIRE(SaveWhole(Home + "Skarvelin.ini", "Current File=" + Home + "s.txt\r\n"));
    }
    void Type(const char* Name, const QString& Text)
    {
        auto& Box = Find<QLineEdit>(Name);
        Box.selectAll();
        QTest::keyClick(&Box, Qt::Key_Delete);
        QTest::keyClicks(&Box, Text);
    }
    void Press(const std::string& Name, Qt::Key Key) { QTest::keyClick(&Find<QWidget>(Name.c_str()), Key); }

    // What every control of the window that can be changed shows: buttons of which one is down give its number.
    std::map<QString, QString> State()
    {
        std::map<QString, QString> Shown;
        for (const auto* Each : Find<QWidget>("fOpts").findChildren<QWidget*>()) {
            const QString Name = Each->objectName();
            const auto* Box = qobject_cast<const QLineEdit*>(Each);
            const auto* Button = qobject_cast<const QAbstractButton*>(Each);
            const auto* Swatch = dynamic_cast<const qSwatch*>(Each);
            if (Name == "txtSearch" || !(Box || Swatch || (Button && Button->isCheckable()))) continue;
            const bool IsOfGroup = Button && Button->group();
            REQUIRE_MESSAGE(!Name.isEmpty(), Each->metaObject()->className());
            if (Box) Shown[Name] = Box->text();
            if (Swatch) Shown[Name] = Swatch->Colour().name();
            if (Button && !IsOfGroup) Shown[Name] = Button->isChecked() ? "on" : "off";
            if (IsOfGroup && Button->isChecked()) Shown[Button->group()->buttons().first()->objectName()] = Name;
        }
        return Shown;
    }

    // Changes a control as a user does. Gives what it is to show afterwards.
    std::string Change(const cOptions& Options, int Index)
    {
        const OptionItem& Item = Options.Item(Index);
        const std::string& Name = Item.Control;
        CAPTURE(Name);
        switch (Item.Kind) {
        case eOption::Check:
            Press(Name, Qt::Key_Space);
            return Options.IsOn(Name) ? "0" : "1";
        case eOption::Radio:
            if (Name == "obIsActive_2") Press(Name, Qt::Key_Space);
            return Name == "obIsActive_2" ? "1" : "0";
        case eOption::Choice: {
            const auto Count = static_cast<int>(Item.Choices.size());
            const std::string Next = std::to_string((std::max(0, static_cast<int>(Options.Number(Name))) + 1) % Count);
            Press(Name + "_" + Next, Qt::Key_Space);
            return Next;
        }
        case eOption::Colour:
            Press(Name, Qt::Key_Return);
            return std::to_string(Options.Text(Index) == "0" ? 255 : NewColour);
        case eOption::PenWidth:
            Click("lbLineWd_4");
            return "5";
        case eOption::Shown:
            return Options.Text(Index);
        default:
            const bool IsText = Item.Kind == eOption::Text || Item.Kind == eOption::File;
            const std::string Text = IsText ? "/tmp/T" + std::to_string(Index) : std::to_string(Index + 2);
            Type(Name.c_str(), Shown(Text));
            return Text;
        }
    }
};

bool AreSame(const OptionItem& Item, const std::string& A, const std::string& B)
{
    return Item.Kind == eOption::Number ? std::abs(Val(A) - Val(B)) < 1e-9 : A == B;
}
} // namespace

TEST_CASE("every control of the options is changed and found again after a restart")
{
    const TempFolder Home;
    std::vector<std::string> Wanted;
    std::map<QString, QString> AtEnd;
    {
        Program First(Home.Path(""));
        const cOptions Options;
        const auto Before = First.State();
        for (int i = 0; i < Options.Count(); ++i) {
            First.Find<QTabWidget>("SSTab1").setCurrentIndex(static_cast<int>(Options.Page(i)));
            Wanted.push_back(First.Change(Options, i));
        }
        First.Click("cmdApply");
        AtEnd = First.State();
        CHECK((Before.size() > 100 && Before.size() == AtEnd.size()));
        for (const auto& [Name, Text] : Before) {
            CAPTURE(Plain(Name));
            CHECK(AtEnd[Name] != Text);
        }
        First.Click("cmdOK");
        CHECK(First.Chooser.Told.empty());
        CHECK(First.Find<QToolButton>("cmdToolBar_0").text() == "Открыть файл");
        CHECK(First.Find<QAbstractButton>("opConnection_1").isChecked());
        First.Main.close();
    }
    StartFresh();
    Program Second(Home.Path(""));
    for (const auto& [Name, Text] : Second.State()) {
        CAPTURE(Plain(Name));
        CHECK(Plain(Text) == Plain(AtEnd[Name]));
    }
    const cOptions Options;
    for (const char* Place : {"0", "1", "2"}) // the active sensor's values have taken their place
        Wanted[static_cast<std::size_t>(Options.Find(std::string("txtCalibr_") + Place))] =
            Options.Text(Options.Find(std::string(*Place == '0'   ? "txtCalCh_2"
                                                  : *Place == '1' ? "txtQ0_2"
                                                                  : "txtQ1_2")));
    Wanted[static_cast<std::size_t>(Options.Find("lbInfo1_4"))] = "-1"; // no channel has the new ID
    for (int i = 0; i < Options.Count(); ++i) {
        const OptionItem& Item = Options.Item(i);
        const std::string& Expected = Wanted[static_cast<std::size_t>(i)];
        CAPTURE(Item.Control);
        CAPTURE(Options.Text(i));
        CAPTURE(Expected);
        CHECK(AreSame(Item, Options.Text(i), Expected));
        if (const auto* Box = Second.Main.findChild<QLineEdit*>(Shown(Item.Control)))
            CHECK(Plain(Box->text()) == Options.Text(i));
        if (Item.Kind == eOption::Choice)
            CHECK(Second.Find<QAbstractButton>((Item.Control + "_" + Expected).c_str()).isChecked());
        if (const auto* Box = Second.Main.findChild<QAbstractButton*>(Shown(Item.Control)))
            CHECK(Box->isChecked() == (Expected == "1"));
    }
    CHECK(Second.Find<QToolButton>("lbLineWd_4").isChecked());
    CHECK(Second.Find<qSwatch>("lbColorInp_0").Colour() == QColor(0x99, 0x66, 0x33));
}

TEST_CASE("a word leads to its setting, what is wrong turns red with a reason, and Cancel stores nothing but colours")
{
    const TempFolder Home;
    Program Shell(Home.Path(""));
    auto& Tabs = Shell.Find<QTabWidget>("SSTab1");
    Shell.Type("txtSearch", "margins");
    CHECK(Tabs.currentIndex() == static_cast<int>(eOptionPage::Feedback));
    Shell.Type("txtSearch", "steep");
    CHECK(Shell.Find<QLabel>("lbFound").text() == "None found");
    Shell.Type("txtSearch", "gtcp");
    CHECK(Tabs.currentIndex() == static_cast<int>(eOptionPage::Link));
    CHECK(Shell.Find<QLabel>("lbFound").text() == "1 of 2 found");
    CHECK(Shell.Find<QWidget>("txtTCPaddress").property("found").toBool());
    Shell.Press("txtSearch", Qt::Key_Return); // goes on, and does not close the window
    CHECK(Shell.Find<QWidget>("txtTCPport").property("found").toBool());
    CHECK(!Shell.Find<QWidget>("txtTCPaddress").property("found").toBool());

    Shell.Type("txtProcRuns", "3");
    auto& Note = Shell.Find<QLabel>("lbNote_txtProcRuns");
    CHECK(Note.text() == "Neither 1 nor 2: no sample is stored.");
    CHECK(Shell.Find<QWidget>("txtProcRuns").property("fault").toBool());
    const auto Processing = static_cast<int>(eOptionPage::Processing);
    CHECK(Tabs.tabBar()->tabTextColor(Processing) == QColor(192, 0, 0));
    Shell.Type("txtProcRuns", "2");
    CHECK(Note.text().startsWith("2 leaves out"));
    CHECK(Tabs.tabBar()->tabTextColor(Processing) != QColor(192, 0, 0));
    Shell.Type("txtCFHigh", "-50,5");
    CHECK(Shell.Find<QLineEdit>("txtCFHigh").text() == "-50.5");
    CHECK(Shell.Find<QLabel>("lbNote_txtCFLow").text().contains("Low is to be below High"));

    qSurface Other; // of any window that is open
    int Drawn = 0;
    Other.Grab();
    Other.OnResize = [&] { ++Drawn; };
    auto& Sample = Shell.Find<qSurface>("picColours");
    Tabs.setCurrentIndex(static_cast<int>(eOptionPage::Colours));
    const QImage Before = Sample.Grab();
    QTest::mouseDClick(&Shell.Find<QWidget>("lbColorInp_0"), Qt::LeftButton);
    CHECK(gRGB[0] == NewColour);
    CHECK(Sample.Grab() != Before);
    CHECK(Drawn == 1);
    Shell.Click("lbLineWd_1");
    CHECK((gDrawWidth == 2 && Drawn == 2));
    Shell.Press("fOpts", Qt::Key_Escape);
    CHECK(gRGB[0] == NewColour);
    CHECK((gProcRuns == 1 && gCFHigh == 0));
    CHECK(!Shell.Store.GetSetting("General", "gProcRuns"));
}

TEST_CASE("a file is browsed for, Apply stays open, and a number that no field holds is shown and nothing is stored")
{
    const TempFolder Home;
    Program Shell(Home.Path(""));
    Shell.Chooser.Files = {Home.Path("s.txt")};
    Shell.Click("cmdBrowse_0");
    CHECK(Shell.Chooser.Told.back() == "Rowers Database File: *.txt");
    Shell.Click("cmdApply");
    CHECK(gRowersDBFN == Home.Path("s.txt"));
    CHECK(Shell.Find<QLabel>("lbState").text() == "Stored.");
    Shell.Type("txtVChan", "abc");
    Shell.Click("cmdApply");
    CHECK(Shell.Find<QLineEdit>("txtVChan").text() == "0");
    Shell.Type("txtVChan", "70000");
    Shell.Type("txtPieceNum", "4");
    Shell.Press("fOpts", Qt::Key_Return);
    CHECK(Shell.Find<QWidget>("fOpts").isVisible());
    CHECK(Shell.Find<QWidget>("txtVChan").property("found").toBool());
    CHECK((gVChan == 0 && gSplitsCnt == 0));
    Shell.Type("txtVChan", "15");
    Shell.Press("txtVChan", Qt::Key_Return);
    CHECK((gVChan == 15 && gSplitsCnt == 4));
    CHECK(!Shell.Find<QWidget>("fOpts").isVisible());
}
