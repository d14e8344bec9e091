// The plain serial port over a real pseudo-terminal and the plain socket over a real connection.
#include "platform/plain/sSerialPort.h"
#include "platform/plain/sSocket.h"
#include "support/LinkPeers.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <filesystem>

namespace {
std::string Taken(iSerialPort& Port, std::size_t Count)
{
    std::string Bytes(Count, '\0');
    Bytes.resize(Port.Input({reinterpret_cast<uint8_t*>(Bytes.data()), Count}));
    return Bytes;
}

std::string Taken(iSocket& Socket)
{
    std::string Bytes(Socket.BytesReceived(), '\0');
    Socket.GetData({reinterpret_cast<uint8_t*>(Bytes.data()), Bytes.size()});
    return Bytes;
}

template <class Condition>
bool Until(sEventLoop& Loop, Condition Holds)
{
    for (int Turn = 0; Turn < 5000; ++Turn) {
        if (Holds()) return true;
        Loop.Wait(1);
    }
    return false;
}

std::size_t OpenDescriptors()
{
    std::size_t Count = 0;
    for ([[maybe_unused]] const auto& Each : std::filesystem::directory_iterator("/proc/self/fd"))
        ++Count;
    return Count;
}
} // namespace

TEST_CASE("a plain serial port tells of bytes from its threshold on, and again of those that were left")
{
    const TempFolder Folder;
    PseudoTerminal Line(Folder.Path("port"));
    sEventLoop Loop;
    sSerialPort Port(Loop);
    std::string Told;
    Port.RThreshold = 4;
    Port.OnData = [&] { Told += Taken(Port, 3) + "|"; };
    REQUIRE(Port.Open(Folder.Path("port"), "256000,n,8,1"));
    std::string Binary = "\x80\r\n\x03\x11\x13";
    Binary += '\0';
    Line.Send(Binary.substr(0, 3));
    Loop.Wait(20);
    CHECK(Told == "");
    Line.Send(Binary.substr(3));
    CHECK(Until(Loop, [&] { return Told == Binary.substr(0, 3) + "|" + Binary.substr(3, 3) + "|"; }));
    Loop.Wait(20);
    CHECK(Port.InBufferCount() == 1);
    CHECK(Port.Output("#RUN\r"));
    CHECK(Line.Take() == "#RUN\r");
    sSerialPort Second(Loop);
    CHECK_FALSE(Second.Open(Folder.Path("port"), "57600,n,8,1"));
    CHECK_FALSE(Port.Open(Folder.Path("none"), "57600,n,8,1"));
    CHECK(Second.Open(Folder.Path("port"), "57600,n,8,1"));
    Second.Close();
    CHECK_FALSE(Port.Open("/dev/null", "57600,n,8,1"));
    CHECK_FALSE(Port.Open(Folder.Path("port"), "fast"));
}

TEST_CASE("a plain serial line that hangs up gives what came before, is told once and leaks nothing in 200 pulls")
{
    const TempFolder Folder;
    sEventLoop Loop;
    sSerialPort Port(Loop);
    int Broken = 0;
    std::string Left;
    Port.RThreshold = 100;
    Port.OnError = [&](const std::string&) {
        ++Broken;
        CHECK(!Port.IsOpen());
        Left = Taken(Port, 100);
    };
    PseudoTerminal Line(Folder.Path("port"));
    const std::size_t Before = OpenDescriptors();
    for (int Time = 1; Time <= 200; ++Time) {
        REQUIRE(Port.Open(Folder.Path("port"), "57600,n,8,1"));
        Line.Send("left");
        REQUIRE(Until(Loop, [&] { return Port.InBufferCount() == 4; }));
        Line.Pull();
        REQUIRE(Until(Loop, [&] { return Broken == Time; }));
        REQUIRE(Left == "left");
        REQUIRE(Port.InBufferCount() == 0);
        Line.PutBack();
    }
    CHECK(OpenDescriptors() == Before);
    CHECK(!Port.Output("#RUN\r"));
}

TEST_CASE("a plain socket tells of connection, data, close and breaks, and gives what came before")
{
    LoopbackServer Server;
    sEventLoop Loop;
    sSocket Socket(Loop);
    std::string Story;
    Socket.OnConnect = [&] { Story += "connected "; };
    Socket.OnClose = [&] { Story += Taken(Socket) + " closed"; };
    Socket.OnError = [&](const std::string&) { Story += Taken(Socket) + " error"; };
    Socket.Connect("localhost", Server.Port());
    REQUIRE(Until(Loop, [&] { return Story == "connected "; }));
    REQUIRE(Server.Accept());
    CHECK(Socket.SendData("#RUN\r"));
    CHECK(Until(Loop, [&] { return Server.Take() == "#RUN\r"; }));
    Server.Send("frames");

    SUBCASE("closed by the other side")
    {
        Server.Drop();
        CHECK(Until(Loop, [&] { return Story == "connected frames closed"; }));
    }
    SUBCASE("forgotten by the other side")
    {
        REQUIRE(Until(Loop, [&] { return Socket.BytesReceived() == 6; }));
        Server.Abort();
        CHECK(Until(Loop, [&] { return Story == "connected frames error"; }));
    }
    SUBCASE("refused, told behind Connect")
    {
        Server.StopListening();
        Story.clear();
        Socket.Connect("127.0.0.1", Server.Port());
        CHECK(Story == "");
        CHECK(Until(Loop, [&] { return Story == " error"; }));
    }
    SUBCASE("closed by oneself, not told")
    {
        Socket.Close();
        Loop.Wait(50);
        CHECK(Story == "connected ");
    }
    CHECK(Socket.State() == eSocketState::Closed);
    CHECK_FALSE(Socket.SendData("#RUN\r"));
}
