// The same course of events for the engine's own links and for the toolkit's.
#include "support/LinkChecks.h"

#include "support/Case.h"
#include "support/LinkPeers.h"

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

bool Until(const LinkWait& Wait, const std::function<bool()>& Holds)
{
    for (int Turn = 0; Turn < 5000; ++Turn) {
        if (Holds()) return true;
        Wait(1);
    }
    return false;
}

std::ptrdiff_t OpenDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}
} // namespace

void CheckSerialPort(iSerialPort& Port, const LinkWait& Wait)
{
    const TempFolder Folder;
    const std::string Device = Folder.Path("port");
    PseudoTerminal Line(Device);
    Line.Send("waiting");
    std::string Told;
    Port.RThreshold = 4;
    Port.OnData = [&] { Told += Taken(Port, 3) + "|"; };
    REQUIRE(Port.Open(Device, "256000,n,8,1", eWaiting::Dropped));
    std::string Binary = "\x80\r\n\x03\x11\x13";
    Binary += '\0';
    Line.Send(Binary.substr(0, 3));
    Wait(20);
    CHECK(Told == "");
    Line.Send(Binary.substr(3));
    CHECK(Until(Wait, [&] { return Told == Binary.substr(0, 3) + "|" + Binary.substr(3, 3) + "|"; }));
    Wait(20);
    CHECK(Port.InBufferCount() == 1);
    CHECK(Port.Output("#RUN\r"));
    CHECK(Line.Take() == "#RUN\r");
    for (const char* None : {"none", "folder/none"})
        CHECK_FALSE(Port.Open(Folder.Path(None), "57600,n,8,1", eWaiting::Dropped));
    CHECK_FALSE(Port.Open(Device, "fast", eWaiting::Dropped));
    CHECK_FALSE(Port.IsOpen());
}

void CheckHangUps(iSerialPort& Port, const LinkWait& Wait)
{
    const TempFolder Folder;
    int Broken = 0;
    std::string Left;
    Port.RThreshold = 100;
    Port.OnError = [&](const std::string&) {
        ++Broken;
        CHECK(!Port.IsOpen());
        Left = Taken(Port, 100);
    };
    PseudoTerminal Line(Folder.Path("port"));
    const auto Before = OpenDescriptors();
    Line.Send("\x80\r\n\x03"); // ahead of the opening
    for (int Time = 1; Time <= 100; ++Time) {
        REQUIRE(Port.Open(Folder.Path("port"), "57600,n,8,1", eWaiting::Kept));
        Line.Send("left");
        REQUIRE(Until(Wait, [&] { return Port.InBufferCount() == 8; }));
        Line.Pull();
        REQUIRE(Until(Wait, [&] { return Broken == Time; }));
        REQUIRE(Left == "\x80\r\n\x03left");
        REQUIRE(Port.InBufferCount() == 0);
        Line.PutBack();
        Line.Send("\x80\r\n\x03");
    }
    Wait(20);
    CHECK(Broken == 100);
    CHECK(OpenDescriptors() == Before);
    CHECK(!Port.Output("#RUN\r"));
}

void CheckSocket(iSocket& Socket, const LinkWait& Wait)
{
    LoopbackServer Server;
    std::string Story;
    Socket.OnConnect = [&] { Story += "connected "; };
    Socket.OnClose = [&] { Story += Taken(Socket) + " closed"; };
    Socket.OnError = [&](const std::string&) { Story += Taken(Socket) + " error"; };
    Socket.Connect("127.0.0.1", Server.Port());
    REQUIRE(Until(Wait, [&] { return Story == "connected " && Server.Accept(); }));
    CHECK(Socket.SendData("#RUN\r"));
    CHECK(Until(Wait, [&] { return Server.Take() == "#RUN\r"; }));
    Server.Send("frames");
    REQUIRE(Until(Wait, [&] { return Socket.BytesReceived() == 6; }));

    SUBCASE("closed by the other side")
    {
        Server.Drop();
        CHECK(Until(Wait, [&] { return Story == "connected frames closed"; }));
    }
    SUBCASE("forgotten by the other side")
    {
        Server.Abort();
        CHECK(Until(Wait, [&] { return Story.starts_with("connected frames "); }));
    }
    SUBCASE("refused, reported after Connect has returned")
    {
        Server.StopListening();
        Story.clear();
        Socket.Connect("127.0.0.1", Server.Port());
        CHECK(Story == "");
        CHECK(Until(Wait, [&] { return Story == " error"; }));
    }
    SUBCASE("closed by the program itself, not reported")
    {
        Socket.Close();
        Wait(50);
        CHECK(Story == "connected ");
    }
    CHECK(Socket.State() == eSocketState::Closed);
    CHECK_FALSE(Socket.SendData("#RUN\r"));
}
