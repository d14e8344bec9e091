// Host and port of a text, and the host's ports on one plain loop.
#include "batch/mBatchLink.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "platform/mHost.h"

#include <charconv>
#include <csignal>
#include <optional>
#include <poll.h>
#include <unistd.h>

namespace {
// "HOST:PORT", a numeric IPv6 address in brackets.
struct Place
{
    std::string Host;
    uint16_t Port = 0;
};

std::optional<Place> ReadPlace(const std::string& Text)
{
    const std::size_t Colon = Text.rfind(':');
    if (Colon == std::string::npos || Colon == 0) return {};
    Place Found{Text.substr(0, Colon), 0};
    if (Found.Host.starts_with('[') && Found.Host.ends_with(']')) Found.Host = Found.Host.substr(1, Colon - 2);
    const char* End = Text.data() + Text.size();
    const auto [Last, Error] = std::from_chars(Text.data() + Colon + 1, End, Found.Port);
    if (Error != std::errc{} || Last != End || Found.Port == 0) return {};
    return Found;
}
} // namespace

std::string LinkObjection(const Args& Line)
{
    if (Line.Has("--serial") == Line.Has("--tcp")) return "one of --serial DEVICE and --tcp HOST:PORT is wanted";
    if (Line.Has("--tcp") && !ReadPlace(Line.Text("--tcp", ""))) return "--tcp takes HOST:PORT";
    return {};
}

void SelectLink(const Args& Line)
{
    gConnection = Line.Has("--tcp") ? ConnectionTCP : ConnectionSerial;
    gCOMdevice = Line.Text("--serial", "");
    if (const auto Where = ReadPlace(Line.Text("--tcp", ""))) {
        gLinkAddress = Where->Host;
        gLinkPort = Where->Port;
    }
}

bool ReportNoPort()
{
    return FileFailed("Can't open serial port: ", gCOMdevice, TitleError, "not there, or another program has it");
}

cBatchLink::cBatchLink() : Signals(WatchEndSignals())
{
    std::signal(SIGPIPE, SIG_IGN);
    gHost.Clock = &Loop;
    gHost.SerialPort = &Port;
    gHost.Socket = &Socket;
    InitSampling(&SecondSocket);
    Loop.Watch(Signals, POLLIN, [this](short) {
        if (OnSignal) OnSignal();
    });
}

cBatchLink::~cBatchLink()
{
    close(Signals);
    gLinkWatch.OnChange = nullptr;
    gHost.Clock = nullptr;
    gHost.SerialPort = nullptr;
    gHost.Socket = nullptr;
}
