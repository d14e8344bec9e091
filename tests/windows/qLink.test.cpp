// The serial port over a real pseudo-terminal and the socket over a real connection.
#include "platform/qt/qClock.h"
#include "platform/qt/qSerialPort.h"
#include "platform/qt/qSocket.h"

#include <doctest/doctest.h>

#include <QTcpServer>
#include <QTest>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {
// The logger's end of a serial line.
struct PseudoTerminal
{
    int Master = posix_openpt(O_RDWR | O_NOCTTY);
    std::string Device;

    PseudoTerminal()
    {
        REQUIRE(grantpt(Master) == 0);
        REQUIRE(unlockpt(Master) == 0);
        Device = ptsname(Master);
    }
    ~PseudoTerminal() { HangUp(); }
    void HangUp()
    {
        if (Master >= 0) close(Master);
        Master = -1;
    }
    void Send(const std::string& Bytes)
    {
        REQUIRE(write(Master, Bytes.data(), Bytes.size()) == static_cast<ssize_t>(Bytes.size()));
    }
};

std::string Take(qSerialPort& Port, std::size_t Count)
{
    std::string Bytes(Count, '\0');
    Bytes.resize(Port.Input({reinterpret_cast<uint8_t*>(Bytes.data()), Count}));
    return Bytes;
}
} // namespace

TEST_CASE("a serial port tells of bytes from its threshold on, and again of those that were left")
{
    PseudoTerminal Line;
    qSerialPort Port;
    std::string Told;
    Port.RThreshold = 4;
    Port.OnData = [&] { Told += Take(Port, 3) + "|"; };
    REQUIRE(Port.Open(Line.Device, "57600,n,8,1"));
    Line.Send("abc");
    QTest::qWait(50);
    CHECK(Told == "");
    Line.Send("defghijk");
    CHECK(QTest::qWaitFor([&] { return Told == "abc|def|ghi|"; }, 2000));
    QTest::qWait(50);
    CHECK(Port.InBufferCount() == 2);
    CHECK(Port.Output("#RUN\r"));
    char Answer[8] = {};
    CHECK(read(Line.Master, Answer, sizeof Answer) == 5);
    CHECK(std::string(Answer) == "#RUN\r");
}

TEST_CASE("a serial line that hangs up is told once, closed, and can be taken up again, a hundred times over")
{
    qSerialPort Port;
    int Broken = 0;
    Port.OnError = [&](const std::string&) {
        ++Broken;
        CHECK(!Port.IsOpen());
    };
    for (int Time = 1; Time <= 100; ++Time) {
        PseudoTerminal Line;
        REQUIRE(Port.Open(Line.Device, "115200,n,8,1"));
        Line.HangUp();
        REQUIRE(QTest::qWaitFor([&] { return Broken == Time; }, 2000));
    }
    QTest::qWait(20);
    CHECK(Broken == 100);
    CHECK(!Port.Output("#RUN\r"));
    CHECK(!Port.Open("/dev/skarvelin-none", "57600,n,8,1"));
}

TEST_CASE("a socket tells of connection, data and the other side's close")
{
    QTcpServer Server;
    REQUIRE(Server.listen(QHostAddress::LocalHost));
    qSocket Socket;
    std::string Story;
    Socket.OnConnect = [&] { Story += "connected "; };
    Socket.OnData = [&](std::size_t Total) {
        std::string Bytes(Total, '\0');
        Socket.GetData({reinterpret_cast<uint8_t*>(Bytes.data()), Total});
        Story += Bytes;
    };
    Socket.OnClose = [&] { Story += " closed"; };
    Socket.OnError = [&](const std::string&) { Story += " error"; };
    Socket.Connect("127.0.0.1", Server.serverPort());
    REQUIRE(QTest::qWaitFor([&] { return Server.hasPendingConnections() && Story == "connected "; }, 2000));
    QTcpSocket* Logger = Server.nextPendingConnection();
    CHECK(Socket.SendData("#RUN\r"));
    REQUIRE(QTest::qWaitFor([&] { return Logger->bytesAvailable() == 5; }, 2000));
    Logger->write("frames");
    Logger->disconnectFromHost();
    CHECK(QTest::qWaitFor([&] { return Story == "connected frames closed"; }, 2000));
    CHECK(Socket.State() == eSocketState::Closed);

    SUBCASE("a refused connection is an error, told behind Connect")
    {
        const quint16 Port = Server.serverPort();
        Server.close();
        Story.clear();
        Socket.Connect("127.0.0.1", Port);
        CHECK(Story == "");
        CHECK(QTest::qWaitFor([&] { return Story == " error"; }, 2000));
    }
    SUBCASE("one's own close is not told")
    {
        Story.clear();
        Socket.Connect("127.0.0.1", Server.serverPort());
        REQUIRE(QTest::qWaitFor([&] { return Story == "connected "; }, 2000));
        Socket.Close();
        QTest::qWait(50);
        CHECK(Story == "connected ");
    }
}

TEST_CASE("timers are stopped by number, from inside their own work too")
{
    qClock Clock;
    int Once = 0, Ticks = 0, Timer = 0;
    Clock.StopTimer(Clock.StartOnce(0, [&] { Once += 100; }));
    Clock.StartOnce(0, [&] { ++Once; });
    Timer = Clock.StartRepeating(1, [&] {
        if (++Ticks == 3) Clock.StopTimer(Timer);
    });
    Clock.Wait(100);
    CHECK(Once == 1);
    CHECK(Ticks == 3);
}
