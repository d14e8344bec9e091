// Check, record and replay as a user does it, with a logger on a real connection.
#include "ShellState.h"
#include "calibration/fCheckChans.h"
#include "calibration/fTrackChans.h"
#include "core/mIni.h"
#include "files/mDump.h"

#include <QLabel>
#include <QTcpServer>
#include <QTcpSocket>
#include <QToolButton>

namespace {
struct LiveState : ShellState
{
    QTcpServer Server;
    QTcpSocket* Logger = nullptr;
    QByteArray Sent;

    LiveState()
    {
        REQUIRE(Server.listen(QHostAddress::LocalHost));
        Settings.SaveSetting("General", "gConnection", "1");
        Start("Link Port=" + std::to_string(Server.serverPort()) + "\n");
        Main.resize(1024, 768);
        gFile.Model = 67;
        gFile.ChanCnt = 8;
        gCurDir = Folder.Path("");
        gFileTitle = "crew";
        gCurFile = Folder.Path("crew.txt");
        REQUIRE(SaveWhole(gCurFile, "Main\r\n"));
    }
    void Check()
    {
        Click("cmdToolBar_2");
        REQUIRE(QTest::qWaitFor([&] { return Server.hasPendingConnections(); }, 2000));
        Logger = Server.nextPendingConnection();
        REQUIRE(QTest::qWaitFor([&] { return Logger->bytesAvailable() == 5; }, 2000));
        CHECK(Logger->readAll() == "#RUN\r");
    }
    void Send(int From, int To)
    {
        for (int i = From; i <= To; ++i) {
            const QByteArray Frame = MakeFrame(i * 40, i);
            Logger->write(Frame);
            Sent.append(Frame);
        }
        REQUIRE(QTest::qWaitFor([&] { return gData[8] == To; }, 2000));
    }
    static int Open()
    {
        int Count = 0;
        for (const cDataWindow* Window : LoadedWindows())
            Count += Window->Tag == DataTag ? 1 : 0;
        return Count;
    }
};
} // namespace

TEST_CASE_FIXTURE(LiveState, "channels are checked, recorded byte for byte, and the record is replayed to its end")
{
    Check();
    CHECK(Open() == 2);
    Send(1, 20);
    const QToolButton& Log = Find<QToolButton>("cmdToolBar_6");
    CHECK(Log.text() == "Log Data");
    Sent.clear();
    Click("cmdToolBar_6");
    CHECK(Dialogs.Told.back() == "Input Comment: Ready to start sample # 0 [Sample 00]");
    CHECK(Log.text() == "Stop Log");
    Send(21, 60);
    Click("cmdToolBar_6");
    CHECK(Log.text() == "Start Log");
    CHECK(ReadWhole(Folder.Path("crew_000.qvn")) == Sent.toStdString());

    Click("cmdToolBar_7");
    CHECK(Open() == 0);
    Dialogs.Files = {Folder.Path("crew_000.qvn")};
    gData = {};
    Choose("mnuPlayRawCoach");
    CHECK(Open() == 2);
    REQUIRE(QTest::qWaitFor([&] { return Open() == 0; }, 5000));
    CHECK(gData[8] == 60);
}

TEST_CASE_FIXTURE(LiveState, "a recording without a live window opens the link for itself, and closes it behind itself")
{
    Dialogs.AnswerYes = false;
    REQUIRE(SaveWhole(Folder.Path("crew_000.qvn"), "older"));
    Choose("mnuCalibrLog"); // and not over the older one
    CHECK((!gLogging && gFile.SampleCnt == 0 && Socket.State() == eSocketState::Closed));
    Dialogs.AnswerYes = true;
    Click("cmdToolBar_6");
    const auto IsRunning = [&] {
        if (Server.hasPendingConnections()) Logger = Server.nextPendingConnection();
        return Logger && Logger->bytesAvailable() == 5;
    };
    REQUIRE(QTest::qWaitFor(IsRunning, 4000));
    Send(1, 20);
    Click("cmdToolBar_6");
    CHECK(ReadWhole(Folder.Path("crew_000.qvn")) == Sent.toStdString());
    CHECK(QTest::qWaitFor([&] { return Socket.State() == eSocketState::Closed; }, 2000));
}

TEST_CASE_FIXTURE(LiveState, "the keys of the indicators hold the link, dump what comes, and close everything")
{
    Check();
    auto& Bars = Find<QWidget>("fCheckChans");
    auto& Traces = Find<QWidget>("fTrackChans");
    Dialogs.Files = {Folder.Path("dump.txt")};
    QTest::keyClick(&Traces, Qt::Key_Return);
    CHECK(Dialogs.Told.back() == "Dump to...: *.txt");
    CHECK(gDumping);
    Send(1, 1);
    Send(2, 2);
    CHECK(ReadWhole(Folder.Path("dump.txt"))->ends_with("\r\n1\t0.080\t2\t2\t2\t2\t2\t2\t2\t2\t\r\n"));

    QTest::keyClick(&Bars, Qt::Key_Space);
    CHECK(Socket.State() == eSocketState::Closed);
    QTest::keyClick(&Bars, Qt::Key_Space);
    CHECK(QTest::qWaitFor([&] { return Server.hasPendingConnections(); }, 2000));
    CHECK(Open() == 2);
    QTest::keyClick(&Bars, Qt::Key_Escape);
    CHECK(Socket.State() == eSocketState::Closed);
    CHECK(Open() == 0);
    CHECK(!gDumping);
}

TEST_CASE_FIXTURE(LiveState, "a recording into which nothing flows is reported on red ground until frames come again")
{
    Check();
    Send(1, 2);
    Choose("mnuCalibrLog");
    auto& Running = Find<QLabel>("sbStatusBar_2");
    const auto IsRed = [&] { return Running.grab().toImage().pixelColor(3, 3) == QColor(0xd0, 0, 0); };
    QTest::qWait(200);
    CHECK(!IsRed());
    CHECK(QTest::qWaitFor(IsRed, 4000));
    Send(3, 4);
    CHECK(QTest::qWaitFor([&] { return !IsRed(); }, 2000));
}

TEST_CASE_FIXTURE(LiveState, "the window does not close over a running recording unless told to")
{
    Check();
    Send(1, 5);
    Choose("mnuCalibrLog");
    CHECK(gLogging);
    Dialogs.AnswerYes = false;
    Choose("mnuFileExit");
    CHECK(Main.isVisible());
    CHECK(gLogging);
    Dialogs.AnswerYes = true;
    Choose("mnuFileExit");
    CHECK(!Main.isVisible());
    CHECK(!gLogging);
}

TEST_CASE_FIXTURE(LiveState,
                  "another session asks before it ends a recording and its link, and begins without its counts")
{
    const std::string Other = Folder.Path("other.txt");
    REQUIRE(SaveWhole(Other, "Main\r\nEnd\r\nEOF\r\n"));
    Check();
    Send(1, 5);
    Choose("mnuCalibrLog");
    Sent.clear();
    Send(6, 20);
    Dialogs.AnswerYes = false;
    Main.OpenFile(Other);
    CHECK(Dialogs.Told.back().find("A recording is running") != std::string::npos);
    CHECK(gCurFile == Folder.Path("crew.txt"));
    CHECK(gLogging);
    CHECK(Socket.State() != eSocketState::Closed);

    Dialogs.AnswerYes = true;
    Main.OpenFile(Other);
    CHECK(gCurFile == Other);
    CHECK(!gLogging);
    CHECK(Socket.State() == eSocketState::Closed);
    CHECK(ReadWhole(Folder.Path("crew_000.qvn")) == Sent.toStdString());
    CHECK(gData[8] == 0);

    const auto Asked = Dialogs.Told.size();
    Main.OpenFile(Folder.Path("crew.txt")); // nothing runs any more
    CHECK(Dialogs.Told.size() == Asked);
}
