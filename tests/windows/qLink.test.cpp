// The toolkit's links over a real pseudo-terminal and a real connection, and its timers.
#include "platform/qt/qClock.h"
#include "platform/qt/qSerialPort.h"
#include "platform/qt/qSocket.h"
#include "support/LinkChecks.h"

#include <doctest/doctest.h>

#include <QTest>

namespace {
const LinkWait Wait = [](int Milliseconds) { QTest::qWait(Milliseconds); };
} // namespace

TEST_CASE("a serial port reports bytes from its threshold on, and again of those that were left")
{
    qSerialPort Port;
    CheckSerialPort(Port, Wait);
}

TEST_CASE("a serial line that hangs up is reported once, closed, and can be taken up again, a hundred times over")
{
    qSerialPort Port;
    CheckHangUps(Port, Wait);
}

TEST_CASE("a socket reports connection, data and each end")
{
    qSocket Socket;
    CheckSocket(Socket, Wait);
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
