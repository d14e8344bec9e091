// From an empty folder to paper: a newcomer's first outing, through the windows alone, with the simulated logger.
#include "ShellState.h"
#include "acquisition/fADCsetup.h"
#include "core/mIni.h"
#include "files/mFrameRate.h"
#include "files/mTextIO.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QTableView>
#include <QTcpServer>

namespace {
constexpr int Patience = 20000; // ms

// What is typed into a cell of a record grid: row from 0, heading, text.
using Cell = std::tuple<int, const char*, const char*>;

struct Newcomer : ShellState
{
    QProcess Logger;
    QString Port;

    Newcomer()
    {
        QTcpServer Free;
        REQUIRE(Free.listen(QHostAddress::LocalHost));
        Port = QString::number(Free.serverPort());
        Start();
        Main.resize(1024, 768);
        Main.activateWindow();
        REQUIRE(QTest::qWaitForWindowActive(&Main));
    }
    ~Newcomer()
    {
        Logger.terminate();
        Logger.waitForFinished();
    }
    // Presses a button of a window that it closes.
    void Leave(const char* Name, const char* Button)
    {
        QTest::mouseClick(Find<QWidget>(Name).findChild<QWidget*>(Button), Qt::LeftButton);
        REQUIRE(QTest::qWaitFor([&] { return !Main.findChild<QWidget*>(Name); }, Patience));
        QApplication::setActiveWindow(&Main); // without a screen nobody gives the keyboard back
    }
    void Type(const char* Name, const QString& Text)
    {
        auto& Box = Find<QLineEdit>(Name);
        Box.setFocus();
        Box.selectAll();
        QTest::keyClicks(&Box, Text);
    }
    void MakeSession()
    {
        Click("cmdToolBar_1");
        auto& List = Find<QListWidget>("lstTemplates");
        List.setCurrentItem(List.findItems("Double scull", Qt::MatchExactly).value(0));
        Type("txtPlace", "North Lake");
        for (const char* Choice : {"optSex_1", "optWeight_1", "optAge_2"})
            Click(Choice);
        Type("DirLtxt", Shown(Folder.Path("data")));
        Leave("fSession", "cmdOK");
        REQUIRE(gFile.Calibr.UBound() == 32);
    }
    void Enter(const char* Entry, const char* Name, const std::vector<Cell>& Cells)
    {
        Choose(Entry);
        auto* Grid = Find<QWidget>(Name).findChild<QTableView*>("DataGrid");
        const QAbstractItemModel& Table = *Grid->model();
        for (const auto& [Row, Head, Text] : Cells) {
            int Column = 0;
            while (Column < Table.columnCount() && Table.headerData(Column, Qt::Horizontal).toString() != Head)
                ++Column;
            Grid->setFocus();
            Grid->setCurrentIndex(Table.index(Row, Column));
            for (const char Letter : std::string(Text))
                QTest::keyClick(QApplication::focusWidget(), Letter); // the first one opens the editor
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            QApplication::processEvents(); // an editor closes in a later turn
            CHECK(Plain(Table.index(Row, Column).data().toString()) == Text);
        }
        Leave(Name, "cmdOK");
    }
    // The logger is at this machine's port, where it is started for the session.
    void Link()
    {
        Click("opConnection_1");
        Choose("mnuSetGlobals");
        Type("txtLinkAddress", "127.0.0.1");
        Type("txtLinkPort", Port);
        Leave("fOpts", "cmdOK");
        Logger.start(PROGRAM_FOLDER "/skarvelin-sim",
                     {"--tcp", Port, Shown(gCurFile), "--speed", "10", "--rate", "30"});
        REQUIRE(Logger.waitForReadyRead());
    }
    void SetLogger()
    {
        Choose("mnuSetSkarvelin");
        auto& Dialog = Find<fADCsetup>("fADCsetup");
        for (const char* Button : {"op50", "cmdAppFreq", "opChanSlave_1", "cmdSetChannels"}) {
            REQUIRE(QTest::qWaitFor([&] { return !Dialog.SetUp().Talk().IsBusy(); }, Patience));
            Find<QAbstractButton>(Button).click();
        }
        REQUIRE(QTest::qWaitFor([&] { return !Dialog.SetUp().Talk().IsBusy(); }, Patience));
        Leave("fADCsetup", "cmdRun");
    }
    // Seconds of the logger's clock.
    void Record(double Seconds)
    {
        Choose("mnuSampleRower");
        REQUIRE(QTest::qWaitFor([] { return gFrameCnt > 0; }, Patience));
        Click("cmdToolBar_6");
        const double From = gSampleTime;
        REQUIRE(QTest::qWaitFor([&] { return gSampleTime > From + Seconds; }, Patience));
        Click("cmdToolBar_6");
        Click("cmdToolBar_7");
    }
    void Process()
    {
        Dialogs.Files = {gRawFN};
        Choose("mnuViewRaw");
        QTest::keyClick(&Find<QWidget>("fData02view"), Qt::Key_A, Qt::ControlModifier);
        Click("CmdArr_12");
        REQUIRE(gFile.Desc.UBound() == 1);
    }
    void Print(const std::string& Path)
    {
        Choose("mnuViewTyp");
        auto* Grid = Find<QWidget>("fDataGrid_Desc").findChild<QTableView*>("DataGrid");
        const QPoint Place = Grid->visualRect(Grid->model()->index(0, 0)).center();
        QTest::mouseClick(Grid->viewport(), Qt::LeftButton, {}, Place);
        QTest::mouseDClick(Grid->viewport(), Qt::LeftButton, {}, Place);
        Dialogs.Files = {Path};
        QTest::keyClick(&Find<QWidget>("fData03report"), Qt::Key_S, Qt::ControlModifier);
    }
};
} // namespace

TEST_CASE_FIXTURE(Newcomer, "a newcomer makes a session for a double scull, sets the logger up, records, processes and "
                            "prints, without a text editor")
{
    MakeSession();
    Enter("mnuSetCrew", "fDataGrid_Crew",
          {{0, "Name", "Ann Brook"}, {0, "Weight (kg)", "59.5"}, {1, "Name", "Bea Ford"}, {1, "Weight (kg)", "60"}});
    Enter("mnuSetBoat", "fDataGrid_Boat", {{0, "Oar Inboard (m)", "0.885"}, {3, "Oar Inboard (m)", "0.875"}});
    Link();
    SetLogger();
    CHECK(gDataFreq == 50);
    CHECK(gFile.TimeStep == 0.02);
    CHECK((gFile.Calibr.UBound() == 32 && FindChan(gFile.Calibr, "A4") == 26));
    Record(40);
    CHECK(FrameRate(gRawFN).value_or(0) == doctest::Approx(50).epsilon(0.01));
    Process();
    const std::string Page = Folder.Path("page.pdf");
    Print(Page);
    CHECK(ReadWhole(Page).value_or("").starts_with("%PDF"));
    DataFile Saved;
    REQUIRE(ReadDataFile(gCurFile, Saved, SectionFilter::Any));
    CHECK(Saved.Desc[1].Rate == doctest::Approx(30).epsilon(0.03));
    CHECK((Saved.Place == "North Lake" && Saved.Data.UBound() >= 32));
    CHECK((Saved.Crew[1].Name == "Ann Brook" && Saved.Crew[2].Name == "Bea Ford" && Saved.Crew[1].Weight == 59.5F));
    CHECK((Saved.Boat[1].OarInboard == 0.885F && Saved.Boat[4].OarInboard == 0.875F));
    for (const std::string& Each : Dialogs.Told)
        CHECK_MESSAGE((!Each.starts_with("Warning") && !Each.starts_with("Error")), Each);
}
