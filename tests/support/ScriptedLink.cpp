// The frames to feed, and the program around a link.
#include "support/ScriptedLink.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mGlobData.h"
#include "files/mStream.h"

namespace {

char Low(int Value)
{
    return static_cast<char>(Value % 128);
}
} // namespace

std::string PlainFrame(int Time, int BodySize)
{
    std::string Body(static_cast<std::size_t>(BodySize), '\0');
    Body[0] = Low(Time);
    Body[1] = Low(Time / 128);
    Body[2] = Low(Time / 16384);
    const int Length = BodySize - 1;
    return std::string{'\xff', 'h', Low(Length), Low(Length / 128)} + Body;
}

std::string LongFrame(int Time)
{
    std::string Frame = PlainFrame(Time, 35);
    Frame[4 + 5] = 1;
    Frame[4 + 6] = 26;
    return Frame;
}

std::string ShortFrame(int Time)
{
    return PlainFrame(Time, 29);
}

LinkState::LinkState()
{
    gFile = {};
    gFrameCnt = gMissed = 0;
    gLinkStream = gReplayStream = {};
    gFrameMin = 0;
    gHost.Clock = &Clock;
    gHost.SerialPort = &Port;
    gHost.Socket = &Socket;
    InitSampling(&SecondSocket);
}

LinkState::~LinkState()
{
    StopAll();
    DropLink();
}

std::string LinkState::Panel(int Number) const
{
    const std::string Start = std::string(1, static_cast<char>('0' + Number)) + ": ";
    for (auto Text = Status.Shown.rbegin(); Text != Status.Shown.rend(); ++Text)
        if (Text->starts_with(Start)) return Text->substr(3);
    return "";
}
