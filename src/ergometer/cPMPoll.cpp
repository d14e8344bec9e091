// Steps of the link, and the words for its states.
#include "ergometer/cPMPoll.h"

#include "base/mNumText.h"
#include "platform/mMonitorFrame.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int LookMs = 1000; // from one look for a unit to the next

std::string Named(const char* Article, const std::string& Product)
{
    return std::string(Article) + " monitor \"" + Product + "\"";
}

std::string NumberText(std::span<const uint8_t> Data, std::size_t Low)
{
    return FormatNum(Data[Low] + Data[Low + 1] * 256, "0");
}
} // namespace

bool PMSnapshot::IsSilent(int64_t Now) const
{
    return IsPolling && State == ePMState::Open && Now - WaitsSince > AnswerMs;
}

std::string PMSnapshot::Text(int64_t Now) const
{
    const std::string Name = Named("The", Unit.Product);
    switch (State) {
    case ePMState::Closed:
        return IsPolling ? "Looking for a performance monitor." : "No performance monitor is open: press Discover.";
    case ePMState::NoUnits:
        return IsPolling ? "No performance monitor is attached; polling begins when one is."
                         : "No performance monitor is attached. Connect one by USB and press Discover.";
    case ePMState::Refused:
        return Name + " cannot be opened.";
    case ePMState::Lost:
        return Name + (IsPolling ? " was unplugged; polling goes on when it is back." : " was unplugged.");
    case ePMState::Open:
        break;
    }
    if (IsSilent(Now)) return Name + " does not answer.";
    if (!IsPolling) return Name + " is ready.";
    const auto Count = [](int64_t Number) { return FormatNum(static_cast<double>(Number), "0"); };
    return Named("Polling the", Unit.Product) + ": " + Count(Answers) + " answers" +
           (Failures > 0 ? ", " + Count(Failures) + " exchanges failed." : ".");
}

std::string PMSnapshot::FiguresText(int64_t Now) const
{
    if (!IsConnected(Now)) {
        const bool IsThere = State == ePMState::Open || State == ePMState::Refused;
        return IsThere ? Text(Now) : "No performance monitor is connected";
    }
    return Figures->Pace500Text() + " /500 m    " + FormatNum(Figures->Cadence, "0") + " /min    " +
           FormatNum(Figures->Power, "0") + " W    " + StrokeStateName(Figures->StrokeState);
}

void cPMPoll::Discover()
{
    PMInit();
    if (Shot.State == ePMState::NoUnits)
        Say("No PMs detected.....");
    else if (Shot.State == ePMState::Open)
        Say("Initialised.....");
}

void cPMPoll::PMInit()
{
    Shot.Unit = {};
    Shot.Figures.reset();
    Reported.clear();
    IsBegun = true;
    const std::vector<std::string> Products = Attached();
    if (!Monitor)
        Reports.emplace_back("This program was built without the library for USB devices (hidapi): it finds no "
                             "performance monitor.");
    Shot.Unit.PMCount = static_cast<int>(Products.size());
    if (Products.empty())
        Shot.State = ePMState::NoUnits;
    else if (!OpenUnit(0, Products[0]))
        Reports.push_back(Named("The", Products[0]) + " cannot be opened (" + Monitor->Reason() +
                          "). Another program may have it, or the system does not let this user open it: the README "
                          "says how to allow it.");
    Shot.Unit.PMInitMsg = Shot.State == ePMState::Refused ? "CSAFE Init Error(6)" : "Init 0k!";
}

std::vector<std::string> cPMPoll::Attached()
{
    return Monitor ? Monitor->Discover() : std::vector<std::string>{};
}

bool cPMPoll::OpenUnit(int16_t Unit, const std::string& Product)
{
    Shot.Unit.Product = Product;
    const bool Opened = Monitor->Open(Unit) == eMonitorCode::Success;
    Shot.State = Opened ? ePMState::Open : ePMState::Refused;
    if (Opened) ReadTexts();
    return Opened;
}

void cPMPoll::ReadTexts()
{
    constexpr std::size_t VersionLength = 7; // maker, class, model, hardware, firmware
    const std::vector<uint8_t> Version = Ask(CommandVersion);
    if (Version.size() >= VersionLength) {
        Shot.Unit.PMHWVersion = NumberText(Version, 3);
        Shot.Unit.PMFWVersion = NumberText(Version, 5);
    }
    for (const uint8_t Letter : Ask(CommandSerial))
        if (Letter >= ' ' && Letter <= '~') Shot.Unit.PMSerial += static_cast<char>(Letter);
}

// The data of the answer on a plain command, empty when there is none.
std::vector<uint8_t> cPMPoll::Ask(uint8_t Command)
{
    if (PMCommand({&Command, 1}) != eMonitorCode::Success) return {};
    const FrameContents Inner = UnpackFrame(Reply);
    for (const PMAnswer& Each : ParseAnswers(Inner.Bytes))
        if (!Each.IsOwn && Each.Command == Command) return {Each.Data.begin(), Each.Data.end()};
    return {};
}

eMonitorCode cPMPoll::PMCommand(std::span<const uint8_t> Contents)
{
    Reply.clear();
    return Monitor->Command(PackFrame(Contents), Reply, AnswerMs);
}

void cPMPoll::SetPolling(bool Polls, int64_t Now)
{
    Shot.IsPolling = Polls;
    Shot.WaitsSince = Now;
    NextLook = Now;
    Reported.clear();
    if (!Polls) Shot.Figures.reset();
}

void cPMPoll::Tick(int64_t Now)
{
    if (Shot.State != ePMState::Open) return LookForUnit(Now);
    const eMonitorCode Code = PMCommand(PollCommand);
    if (Code == eMonitorCode::Success)
        TakeReply(Now);
    else
        Fail(Code);
    ++Ticks;
}

// The unit that was lost, or any unit when none was in use.
void cPMPoll::LookForUnit(int64_t Now)
{
    if (Now < NextLook) return;
    NextLook = Now + LookMs;
    const std::vector<std::string> Products = Attached();
    Shot.Unit.PMCount = static_cast<int>(Products.size());
    const bool WasLost = Shot.State == ePMState::Lost;
    const auto Found = WasLost ? std::ranges::find(Products, Shot.Unit.Product) : Products.begin();
    if (Found == Products.end()) {
        if (!WasLost) Shot.State = ePMState::NoUnits;
        return;
    }
    IsBegun = true;
    if (!OpenUnit(static_cast<int16_t>(Found - Products.begin()), std::string(*Found))) {
        if (WasLost) Shot.State = ePMState::Lost; // the system may need a moment to make it ready
        return;
    }
    Shot.WaitsSince = Now;
    if (WasLost) Reports.push_back(Named("The", Shot.Unit.Product) + " is back.");
}

void cPMPoll::TakeReply(int64_t Now)
{
    Shot.WaitsSince = Now;
    std::string Fault;
    const std::optional<PMFigures> New = DecodePoll(Reply, Fault);
    if (!New) {
        ++Shot.Failures;
        return ReportOnce("An answer of " + Named("the", Shot.Unit.Product) + " was left out: " + Fault + ".");
    }
    ++Shot.Answers;
    Reported.clear();
    const std::size_t Before = Lines.size();
    Changes.Take(*New, Ticks, Lines);
    if (Lines.size() > Before && Lines.back().Box == 2) Shot.StrokeAt = Now;
    Shot.Figures = New;
}

void cPMPoll::Fail(eMonitorCode Code)
{
    ++Shot.Failures;
    if (Code == eMonitorCode::Gone) {
        Shot.State = ePMState::Lost;
        Shot.Figures.reset();
        return ReportOnce(Named("The", Shot.Unit.Product) + " was unplugged.");
    }
    ReportOnce("CSAFE Command Error.  Command = " + FormatNum(PollCommand[0], "0") + " (" +
               Named("the", Shot.Unit.Product) + " did not answer within a second)");
}

void cPMPoll::ReportOnce(const std::string& Text)
{
    if (Reported == Text) return;
    Reported = Text;
    Reports.push_back(Text);
}

void cPMPoll::Shutdown()
{
    if (Monitor) Monitor->Close();
    Shot = {};
    Say(std::exchange(IsBegun, false) ? "Shutdown Complete....." : "No SDK Shutdown!.....");
}

std::vector<PMLine> cPMPoll::TakeLines()
{
    return std::exchange(Lines, {});
}

std::vector<std::string> cPMPoll::TakeReports()
{
    return std::exchange(Reports, {});
}
