// The logger set-up through its real window, against the simulated logger over a pseudo-terminal and TCP.
#include "acquisition/fADCsetup.h"

#include "ShellState.h"
#include "acquisition/mComFast.h"
#include "core/mDataWindow.h"
#include "core/mIni.h"
#include "files/mMain.h"
#include "files/mRawLog.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeWidget>

#include <unistd.h>

namespace {
// The main window with a session and a simulated logger that it can be linked to.
struct Bench : ShellState
{
    QProcess Sim;
    QString Port = QString::number(20000 + getpid() % 20000);

    Bench()
    {
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/eight.txt", Folder.Path("eight.txt"));
        Start("Current File=" + Folder.Path("eight.txt") + "\n");
        REQUIRE(LoadCurrentFile());
    }
    ~Bench()
    {
        if (QWidget* Open = Dialog()) Open->close();
        Sim.terminate();
        Sim.waitForFinished();
        DropLink();
    }

    void Simulate(bool IsSerial, const QStringList& Faults = {})
    {
        const QString Device = Shown(Folder.Path("tty"));
        gConnection = IsSerial ? ConnectionSerial : ConnectionTCP;
        gCOMdevice = IsSerial ? Plain(Device) : "";
        gLinkPort = Port.toInt();
        Sim.start(PROGRAM_FOLDER "/skarvelin-sim",
                  (IsSerial ? QStringList{"--pty", Device} : QStringList{"--tcp", Port}) + Faults +
                      QStringList{Shown(Folder.Path("eight.txt"))});
        REQUIRE(Sim.waitForReadyRead());
    }
    fADCsetup* Dialog() { return Main.findChild<fADCsetup*>("fADCsetup"); }
    void Open()
    {
        Choose("mnuSetSkarvelin");
        REQUIRE(Dialog());
        Settle();
    }
    // Waits for the end of the exchanges, and for what is shown of them.
    void Settle()
    {
        REQUIRE(QTest::qWaitFor([&] { return !Dialog()->SetUp().Talk().IsBusy(); }, 30000));
        QTest::qWait(100);
    }
    void Press(const char* Name)
    {
        for (QWidget* Page = &Find<QWidget>(Name); Page != Dialog(); Page = Page->parentWidget())
            if (auto& Tabs = Find<QTabWidget>("tabSetUp"); Tabs.indexOf(Page) >= 0) Tabs.setCurrentWidget(Page);
        Click(Name);
    }
    QString Text(const char* Name) { return Find<QLabel>(Name).text(); }
};
} // namespace

TEST_CASE_FIXTURE(Bench,
                  "settings are read, shown where they differ, applied, kept, and streamed by when the logger runs")
{
    for (const bool IsSerial : {true, false}) {
        CAPTURE(IsSerial);
        gDataFreq = 25;
        gQVNbauds = 57600;
        Simulate(IsSerial, {"--freq", "25"});
        Open();
        CHECK(Text("lbState").contains("SIM-0001 is in set-up mode"));
        CHECK(Text("lbHas_MODE") == "Logger: 25 Hz");
        CHECK(Text("lbHas_CHMSK") == "Logger: 8 normal");
        Find<QRadioButton>("op50").click();
        CHECK(Text("lbHas_MODE") == "Logger: 25 Hz\nto send: #MODE=2,20,0");
        Press("cmdAppFreq");
        Settle();
        CHECK(Text("lbHas_MODE") == "Logger: 50 Hz");
        CHECK(gDataFreq == 50);
        Find<QRadioButton>("opBaud115").click();
        Press("cmdAppBaud");
        Settle();
        CHECK(Text("lbHas_PORTCFG") == "Logger: 115 200");
        CHECK(gQVNbauds == 115200);
        Press("cmdSave");
        Settle();
        CHECK(!Dialog()->SetUp().IsUnsaved());
        Press("cmdCopyLog");
        const QString Log = QApplication::clipboard()->text();
        CHECK(Log.contains("\t#SETUP\t#SETUP: OK\n"));
        CHECK(Log.contains("\t#MODE=2,20,0\t#MODE: 2,20,0\n"));
        CHECK(Log.contains("\t#SAVE\t#SAVE: OK\n"));
        Press("cmdRun");
        CHECK(QTest::qWaitFor([&] { return !Dialog(); }));
        QTest::qWait(200);
        CHECK(gLinkWatch.State() == cLinkWatch::eState::Closed);
        Choose("mnuCalibrCheck");
        CHECK(QTest::qWaitFor([] { return gFrameCnt > 30; }, 10000));
        CHECK(gFrequency == doctest::Approx(50));
        // The set-up takes the link from the windows that use it, and gives it back.
        Open();
        const int32_t Before = gFrameCnt;
        Press("cmdExit");
        CHECK(QTest::qWaitFor([&] { return gFrameCnt > Before + 10; }, 10000));
        CloseDForms();
        CHECK(QTest::qWaitFor([] { return gLinkWatch.State() == cLinkWatch::eState::Closed; }));
        Sim.terminate();
        Sim.waitForFinished();
    }
}

TEST_CASE_FIXTURE(Bench, "sensors are found and registered, commands typed, and the slaves set with the session's rows")
{
    Simulate(true, {"--split-answers"});
    Open();
    Press("cmdBLEFind");
    Settle();
    auto& Found = Find<QListWidget>("lstBLEfound");
    REQUIRE(Found.count() == 2);
    Found.setCurrentRow(1);
    Press("cmdSelBLE");
    CHECK(Find<QCheckBox>("chBLEList_0").isChecked());
    CHECK(Text("lbHas_BLDEVCFG").contains("1 row differs"));
    Press("cmdRegBLE");
    Settle();
    CHECK(Text("lbHas_BLDEVCFG") == "Logger: as shown");
    CHECK(Find<QListWidget>("lstBLEreg").item(0)->text() == "F2219C04E1D8");

    Press("cmdADC");
    Settle();
    CHECK(Find<QPlainTextEdit>("txtResp").toPlainText() == "#ADCHWCFG: 1,2,0\n");
    QTest::keyClicks(&Find<QLineEdit>("txtSend"), "7");
    QTest::keyClick(&Find<QLineEdit>("txtSend"), Qt::Key_Return);
    Settle();
    CHECK(Find<QPlainTextEdit>("txtResp").toPlainText() == "#ADCHWCFG: 1,7\n");

    Find<QRadioButton>("opChanSlave_3").click();
    Press("cmdSetChannels");
    Settle();
    CHECK(Text("lbHas_CHMSK") == "Logger: 16 (old)");
    CHECK(gFile.ChanCnt == 144);
    CHECK(gFile.Calibr[144].ParamID == "In144");
}

TEST_CASE_FIXTURE(Bench,
                  "a silent logger is reported, a scan can be stopped, and the window lives through a pulled link")
{
    Simulate(true, {"--mute"});
    Open();
    CHECK(Text("lbState").contains("does not answer"));
    auto& Stop = Find<QPushButton>("cmdStop");
    CHECK(!Stop.isEnabled());
    Press("cmdBTFind");
    QTest::qWait(300);
    CHECK(Stop.isEnabled());
    Press("cmdStop");
    CHECK(!Dialog()->SetUp().Talk().IsBusy());
    Press("cmdBTFind");
    QTest::qWait(200);
    Sim.kill();
    Sim.waitForFinished();
    CHECK(QTest::qWaitFor([&] { return !Dialog()->SetUp().Talk().IsBusy(); }));
    QTest::qWait(100);
    CHECK(Text("lbState").contains("lost"));
    const auto& Log = Find<QTreeWidget>("lstLog");
    CHECK(Log.topLevelItem(Log.topLevelItemCount() - 1)->text(2).contains("lost"));
    std::filesystem::remove(Folder.Path("tty"));
    Simulate(true);
    REQUIRE(QTest::qWaitFor([] { return gLinkWatch.State() == cLinkWatch::eState::Open; }));
    Press("cmdRead");
    Settle();
    CHECK(Text("lbState").contains("set-up mode"));
    Press("cmdExit");
    CHECK(QTest::qWaitFor([&] { return !Dialog(); }));
    // A recording has no hole cut into it.
    gLogging = true;
    Choose("mnuSetSkarvelin");
    gLogging = false;
    CHECK(!Dialog());
    CHECK(Dialogs.Told.back().find("recording is running") != std::string::npos);
}
