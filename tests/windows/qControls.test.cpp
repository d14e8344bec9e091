// What stands on the screen: the list of controls, and that no text in it is cut.
#include "widgets/qControls.h"
#include "ShellState.h"
#include "core/shell/fWindows.h"
#include "files/mMain.h"
#include "support/FakeMedia.h"
#include "video/f1Video.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QProcess>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTableWidget>

namespace {
struct Control
{
    QString Window, Name, Class, Text;
    bool IsVisible;
    QRect Place;
    QSize Need;

    bool IsCut() const { return Need.width() > Place.width() || Need.height() > Place.height(); }
};

std::vector<Control> Controls(const QString& List)
{
    std::vector<Control> Found;
    for (const QString& Line : List.split('\n', Qt::SkipEmptyParts)) {
        const QStringList Cells = Line.split('\t');
        CAPTURE(Plain(Line));
        REQUIRE(Cells.size() == 13);
        CHECK((Cells[5] == "enabled" || Cells[5] == "disabled"));
        CHECK((Cells[6] == "visible" || Cells[6] == "hidden"));
        const auto Number = [&](int Column) { return Cells[Column].toInt(); };
        Found.push_back({Cells[0], Cells[2], Cells[3], Cells[4], Cells[6] == "visible",
                         QRect(Number(7), Number(8), Number(9), Number(10)), QSize(Number(11), Number(12))});
    }
    return Found;
}

const Control& FindControl(const std::vector<Control>& List, const QString& Name)
{
    for (const Control& Each : List)
        if (Each.Name == Name) return Each;
    FAIL(Plain(Name));
    return List.front();
}

// The demonstration single with a recording and its typical stroke.
struct Demo : ShellState
{
    Demo()
    {
        for (const char* Name : {"single.txt", "Targets.ini", "Curves.ini"})
            std::filesystem::copy_file(std::string(SOURCE_FOLDER "/demo/") + Name, Folder.Path(Name));
        Run("sim", {"--file", Path("a.qvn"), Path("single.txt"), "--strokes=14"});
        Run("batch", {"process", Path("single.txt"), Path("a.qvn")});
    }
    QString Path(const char* Name) const { return Shown(Folder.Path(Name)); }
    void CheckTexts(const QString& Name)
    {
        const auto List = Controls(ListControls(Main));
        const Control& Own = FindControl(List, Name);
        CHECK(Own.Place.width() <= 1024);
        CHECK(Own.Place.height() <= 768);
        for (const Control& Each : List) {
            if (!Each.IsVisible || Each.Class == "QAction" || (Each.Window != Name && Each.Window != "frmMain"))
                continue;
            CAPTURE(Plain(Each.Window + " " + Each.Name + " " + Each.Class + " \"" + Each.Text + "\" has " +
                          QString("%1x%2, needs %3x%4")
                              .arg(Each.Place.width())
                              .arg(Each.Place.height())
                              .arg(Each.Need.width())
                              .arg(Each.Need.height())));
            CHECK(!Each.IsCut());
        }
    }
    static void Run(const char* Program, const QStringList& Words)
    {
        CHECK(QProcess::execute(QString(PROGRAM_FOLDER "/skarvelin-") + Program, Words) == 0);
    }
};
} // namespace

TEST_CASE("texts that are cut are found, whatever control they stand in, and those that fit are not")
{
    QWidget Main;
    Main.setObjectName("Main");
    Main.setWindowTitle("A title");
    auto Add = [&, Row = 0](QWidget* Each, const char* Name, int Width) mutable {
        Each->setObjectName(Name);
        Each->setParent(&Main);
        Each->setGeometry(10, 40 * Row++, Width, 30);
    };
    auto* Table = new QTableWidget(1, 2);
    Table->setHorizontalHeaderLabels({"First", "Second heading"});
    Table->setColumnWidth(0, 90);
    Table->setColumnWidth(1, 140);
    Add(new QLabel("A label that is long enough"), "lbWide", 260);
    Add(new QLabel("A label that is long enough"), "lbCut", 60);
    Add(new QPushButton("A &button's caption"), "cmdWide", 260);
    Add(new QPushButton("A &button's caption"), "cmdCut", 60);
    Add(new QCheckBox("A choice to be made"), "chkWide", 260);
    Add(new QCheckBox("A choice to be made"), "chkCut", 60);
    Add(new QLineEdit("-1234.56789"), "txtWide", 160);
    Add(new QLineEdit("-1234.56789"), "txtCut", 40);
    Add(Table, "grdWide", 400);
    Main.show();
    const auto Before = Controls(ListControls(Main));
    CHECK((Before[0].Name == "Main" && Before[0].Class == "QWidget" && Before[0].Text == "A title"));
    for (const char* Kind : {"lb", "cmd", "chk", "txt"}) {
        CAPTURE(std::string(Kind));
        CHECK(!FindControl(Before, QString(Kind) + "Wide").IsCut());
        CHECK(FindControl(Before, QString(Kind) + "Cut").IsCut());
    }
    CHECK(FindControl(Before, "cmdCut").Text == "A &button's caption");
    CHECK(FindControl(Before, "cmdCut").Place == QRect(10, 120, 60, 30));
    CHECK(FindControl(Before, "grdWide").Text == "First|Second heading");
    CHECK(FindControl(Before, "grdWide").Need.width() == 400);
    Table->setColumnWidth(1, 30);
    CHECK(FindControl(Controls(ListControls(Main)), "grdWide").IsCut());
}

TEST_CASE_FIXTURE(Demo, "no text is cut in any window, at 1024 by 768")
{
    Start("Current File=" + Folder.Path("single.txt") + "\nModels=" + Folder.Path("Targets.ini") + "\n");
    REQUIRE(LoadCurrentFile());
    gHost.MakeMedia = [] { return std::make_unique<FakeMedia>(10, 0.04); };
    f1Video Video;
    REQUIRE(Video.VideoFileOpen("clip.mp4"));
    for (const char* Name : {"KNEE", "HIP"})
        gDots.Grow() = {Name, "A point with a long name, outer side", 1};
    gIsTargVals = gIsTargCurves = 1;
    Main.resize(1024, 768);
    for (const WindowKind& Row : AllWindows()) {
        QWidget* Window = OpenWindow(
            Main, Row.Name, {.File = Folder.Path("a.qvn"), .Kind = "Crew", .Mode = 0, .Sample = 1, .Owner = &Video});
        REQUIRE(Window);
        QTest::qWait(30);
        auto* Tabs = Window->findChild<QTabWidget*>();
        for (int Page = 0; Page < (Tabs ? Tabs->count() : 1); ++Page) {
            if (Tabs) Tabs->setCurrentIndex(Page);
            QTest::qWait(1); // the page takes its room
            CheckTexts(Window->objectName());
        }
        Window->isWindow() ? Window->close() : Window->parentWidget()->close();
        QTest::qWait(1);
    }
}

TEST_CASE_FIXTURE(Demo, "the demonstration program lists the controls of its windows and dialogs, and its menus")
{
    REQUIRE(SaveWhole(Folder.Path("Skarvelin.ini"), "Current File=" + Folder.Path("single.txt") + "\n"));
    Run("demo", {Path(""), "--size", "1024x768", "--controls", Path("list.txt"), "mnuSetTargets", "mnuHelpAbout"});
    const auto List = Controls(Shown(*ReadWhole(Folder.Path("list.txt"))));
    CHECK(List[0].Name == "frmMain");
    CHECK(List[0].Place == QRect(0, 0, 1024, 768));
    CHECK(FindControl(List, "mnuFileOpen").Class == "QAction");
    CHECK(FindControl(List, "mnuFileOpen").Text == "&Open...");
    CHECK(FindControl(List, "cmdToolBar_2").Text == "Check");
    CHECK(FindControl(List, "sbStatusBar_1").Text == "single");
    CHECK(FindControl(List, "fTargets").Text == "Targets for immediate feedback");
    CHECK(FindControl(List, "frmAbout").Text == "About Skarvelin");
}
