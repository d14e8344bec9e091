// From an empty folder to paper: a newcomer's first outing, through the windows alone, with the simulated logger.
#include "ShellState.h"
#include "files/mTextIO.h"
#include "processing/mProcess.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QTcpServer>

namespace {
constexpr int Patience = 20000; // ms

struct Newcomer : ShellState
{
    QProcess Logger;
    int Port = 0;

    Newcomer()
    {
        {
            QTcpServer Free;
            REQUIRE(Free.listen(QHostAddress::LocalHost));
            Port = Free.serverPort();
        }
        Start("Link Address=127.0.0.1\nLink Port=" + std::to_string(Port) + "\n");
        Main.resize(1024, 768);
    }
    ~Newcomer()
    {
        Logger.terminate();
        Logger.waitForFinished();
    }
    void Type(const char* Name, const std::string& Text)
    {
        auto& Box = Find<QLineEdit>(Name);
        Box.setFocus();
        Box.selectAll();
        QTest::keyClicks(&Box, Shown(Text));
    }
    void MakeSession()
    {
        Click("cmdToolBar_1");
        auto& List = Find<QListWidget>("lstTemplates");
        List.setCurrentItem(List.findItems("Double scull", Qt::MatchExactly).value(0));
        Type("txtSessNum", "1");
        Type("txtPlace", "North Lake");
        for (const char* Choice : {"optSex_1", "optWeight_1", "optAge_2"})
            Click(Choice);
        Type("DirLtxt", Folder.Path("data"));
        Click("cmdOK");
        REQUIRE(gFile.Calibr.UBound() == 32);
    }
    void StartLogger()
    {
        Logger.start(PROGRAM_FOLDER "/skarvelin-sim",
                     {"--tcp", QString::number(Port), Shown(gCurFile), "--speed", "10", "--rate", "30"});
        REQUIRE(Logger.waitForStarted());
        QTest::qWait(200);
        Click("opConnection_1");
    }
    // Seconds of the logger's clock.
    void Record(double Seconds)
    {
        Choose("mnuSampleRower");
        REQUIRE(QTest::qWaitFor([] { return gFrameCnt > 0; }, Patience));
        Click("cmdToolBar_6");
        REQUIRE(gLogging);
        const double From = gSampleTime;
        REQUIRE(QTest::qWaitFor([&] { return gSampleTime > From + Seconds; }, Patience));
        Click("cmdToolBar_6");
        Click("cmdToolBar_7");
    }
};
} // namespace

TEST_CASE_FIXTURE(Newcomer, "a newcomer makes a session for a double scull, records, processes and prints")
{
    MakeSession();
    StartLogger();
    Record(40);
    Dialogs.Files = {gRawFN};
    Choose("mnuViewRaw");
    auto& View = Find<QWidget>("fData02view");
    QTest::keyClick(&View, Qt::Key_A, Qt::ControlModifier);
    Click("CmdArr_12");
    REQUIRE(gFile.Desc.UBound() == 1);
    CHECK(gFile.Desc[1].Rate == doctest::Approx(30).epsilon(0.03));
    Click("cmdPlotProc");
    Dialogs.Files = {Folder.Path("page.pdf")};
    QTest::keyClick(&Find<QWidget>("fData03report"), Qt::Key_S, Qt::ControlModifier);
    CHECK(ReadWhole(Folder.Path("page.pdf")).value_or("").starts_with("%PDF"));
    DataFile Saved;
    REQUIRE(ReadDataFile(gCurFile, Saved, SectionFilter::Any));
    CHECK((Saved.Desc.UBound() == 1 && Saved.Place == "North Lake" && Saved.Data.UBound() >= 32));
    for (const std::string& Each : Dialogs.Told)
        CHECK_MESSAGE((!Each.starts_with("Warning") && !Each.starts_with("Error")), Each);
}
