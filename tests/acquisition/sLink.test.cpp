// The engine's own links over a real pseudo-terminal and a real connection.
#include "platform/plain/sSerialPort.h"
#include "platform/plain/sSocket.h"
#include "support/Case.h"
#include "support/LinkChecks.h"
#include "support/LinkPeers.h"

namespace {
struct PlainLoop
{
    sEventLoop Loop;
    LinkWait Wait = [this](int Milliseconds) { Loop.Wait(Milliseconds); };
};
} // namespace

TEST_CASE_FIXTURE(PlainLoop, "a plain serial port tells of bytes from its threshold on, and again of those left")
{
    sSerialPort Port(Loop);
    CheckSerialPort(Port, Wait);
}

TEST_CASE_FIXTURE(PlainLoop, "a plain serial line that hangs up is told once, and gives what came before")
{
    sSerialPort Port(Loop);
    CheckHangUps(Port, Wait);
}

TEST_CASE_FIXTURE(PlainLoop, "two programs do not share a serial line, and what is no line is refused")
{
    const TempFolder Folder;
    const PseudoTerminal Line(Folder.Path("port"));
    sSerialPort First(Loop), Second(Loop);
    REQUIRE(First.Open(Folder.Path("port"), "57600,n,8,1", eWaiting::Dropped));
    CHECK_FALSE(Second.Open(Folder.Path("port"), "57600,n,8,1", eWaiting::Dropped));
    CHECK_FALSE(First.Open("/dev/null", "57600,n,8,1", eWaiting::Dropped));
    CHECK(Second.Open(Folder.Path("port"), "57600,n,8,1", eWaiting::Dropped));
}

TEST_CASE_FIXTURE(PlainLoop, "a plain socket tells of connection, data, close and breaks")
{
    sSocket Socket(Loop);
    CheckSocket(Socket, Wait);
}
