// A clock's ticks end waits; bytes only collect.
#include "acquisition/cLoggerTalk.h"

#include "acquisition/mComFast.h"
#include "acquisition/mLoggerCommands.h"
#include "acquisition/mSampling.h"
#include "base/mNumText.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "platform/mHost.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace {
constexpr int TickMs = 20;
constexpr int CalmMs = 100;           // between the bytes of an answer there is less
constexpr int ConnectPatience = 6000; // ms for a connection to be made

std::string TimeText(const LocalTime& At)
{
    return FormatNum(At.Hour, "00") + ":" + FormatNum(At.Minute, "00") + ":" + FormatNum(At.Second, "00");
}
} // namespace

cLoggerTalk::cLoggerTalk() : Timer(gHost.Clock->StartRepeating(TickMs, [this] { Tick(); }))
{
    DivertLink([this](std::span<const uint8_t> Bytes) { Take(Bytes); });
}

cLoggerTalk::~cLoggerTalk()
{
    gHost.Clock->StopTimer(Timer);
    DivertLink({});
}

void cLoggerTalk::Ask(LoggerRequest Request)
{
    if (Waiting.empty()) {
        AskedAt = gHost.Clock->Milliseconds();
        AllWaits = DoneWaits = 0;
        IsSent = false;
    }
    AllWaits += Request.Wait;
    Waiting.push_back(std::move(Request));
    Changed();
}

void cLoggerTalk::Cancel(const std::string& Why)
{
    if (!Waiting.empty()) Abandon(Why);
}

int cLoggerTalk::Percent() const
{
    if (Waiting.empty() || AllWaits <= 0) return 0;
    const int64_t Gone = IsSent ? std::min<int64_t>(gHost.Clock->Milliseconds() - SentAt, Waiting.front().Wait) : 0;
    return static_cast<int>(std::clamp<int64_t>(100 * (DoneWaits + Gone) / AllWaits, 0, 100));
}

std::vector<std::string> cLoggerTalk::ReadWaiting()
{
    Finder.Settle();
    Collect();
    const bool IsNew = Waiting.empty() && IsLastOwn;
    IsLastOwn = false;
    return IsNew ? Exchanges.back().Received : std::vector<std::string>{};
}

std::string cLoggerTalk::LogText(std::size_t From, std::size_t To) const
{
    std::string Text;
    for (std::size_t i = From; i < To; ++i) {
        const LoggerExchange& Each = Exchanges[i];
        std::string Head = TimeText(Each.At) + "\t" + Each.Sent + "\t";
        for (const std::string& Line : Each.Received) {
            Text += Head + Line + "\n";
            Head = "\t\t";
        }
        if (Each.Received.empty() || !Each.Failure.empty()) Text += Head + Each.Failure + "\n";
    }
    return Text;
}

void cLoggerTalk::Take(std::span<const uint8_t> Bytes)
{
    LastByte = gHost.Clock->Milliseconds();
    Finder.Add(Bytes);
    Collect();
}

// Puts the lines that were found into the exchange under way, or into one of their own.
void cLoggerTalk::Collect()
{
    std::vector<std::string> Lines = Finder.TakeLines();
    if (Lines.empty()) return;
    IsHeard = true;
    const bool IsAnswer = !Waiting.empty() && IsSent;
    if (!IsAnswer && !IsLastOwn) Exchanges.push_back({gHost.Clock->Now(), "", {}, ""});
    IsLastOwn = !IsAnswer;
    if (IsAnswer)
        HasKey = HasKey || std::any_of(Lines.begin(), Lines.end(), [&](const std::string& Line) {
                     return SplitAnswer(Line).Key == Waiting.front().Key;
                 });
    std::move(Lines.begin(), Lines.end(), std::back_inserter(Exchanges.back().Received));
    Changed();
}

void cLoggerTalk::Tick()
{
    const int64_t Now = gHost.Clock->Milliseconds();
    const bool IsCalm = Now - LastByte >= CalmMs;
    if (IsCalm && Finder.IsUnsettled()) {
        Finder.Settle();
        Collect();
    }
    CheckLink();
    if (Waiting.empty()) return;
    if (!IsSent) return Begin(Now);
    const LoggerRequest& First = Waiting.front();
    const bool IsOver = Now - SentAt >= First.Wait;
    if (IsOver) {
        Finder.Settle(Exchanges.back().Received.empty());
        Collect();
    }
    const bool IsEnough = !First.Key.empty() && HasKey && IsCalm;
    if (IsOver || IsEnough)
        End(First.NeedsAnswer && Exchanges.back().Received.empty() ? NoAnswerText : "");
    else
        Changed(); // the progress
}

// A link that is lost leaves the logger in a state that is not known.
void cLoggerTalk::CheckLink()
{
    const auto State = gLinkWatch.State();
    if (State == cLinkWatch::eState::Open) return;
    IsIn = IsHeard = false;
    if (Waiting.empty()) return;
    const int64_t Now = gHost.Clock->Milliseconds();
    const bool IsPatient = State == cLinkWatch::eState::Connecting && !IsSent && Now - AskedAt < ConnectPatience;
    if (IsPatient) return;
    const std::string Words = gLinkWatch.Failure();
    Abandon(Words.empty() ? "the link is not open" : Words);
}

void cLoggerTalk::Begin(int64_t Now)
{
    if (gLinkWatch.State() != cLinkWatch::eState::Open) return;
    if (!IsIn && Waiting.front().Command != SetUpCommand) {
        Waiting.push_front(SetUpRequest());
        AllWaits += Waiting.front().Wait;
    }
    const std::string& Command = Waiting.front().Command;
    Exchanges.push_back({gHost.Clock->Now(), Command, {}, ""});
    IsLastOwn = HasKey = false;
    IsSent = true;
    SentAt = Now;
    const bool IsDone = Command == SetUpCommand ? SendSetUp() : SendText(Command + "\r");
    IsIn = true;
    if (!IsDone) return Abandon("the link took no bytes");
    Changed();
}

// What is wrong, if anything.
std::string cLoggerTalk::FollowSpeed(const std::string& Command)
{
    const std::string Begin = "#" + std::string(SettingOf(SettingBaud).Key) + "=";
    const int Choice = Command.starts_with(Begin) ? ChoiceOf(SettingBaud, Command.substr(Begin.size())) : -1;
    if (Choice < 0 || gConnection == ConnectionTCP) return {};
    if (!IsStored(SettingBaud, Choice))
        gQVNbauds = SettingOf(SettingBaud).Choices[static_cast<std::size_t>(Choice)].Stored;
    return OpenLink() ? "" : "the port cannot be opened at " + FormatNum(gQVNbauds, "0") + " baud";
}

void cLoggerTalk::End(const std::string& Failure)
{
    const LoggerRequest Done = std::move(Waiting.front());
    const std::string Wrong = FollowSpeed(Done.Command);
    Exchanges.back().Failure = Fault = Wrong.empty() ? Failure : Wrong;
    Waiting.pop_front();
    DoneWaits += Done.Wait;
    IsSent = false;
    const LoggerExchange Result = Exchanges.back(); // Then may ask again
    if (Done.Then) Done.Then(Result);
    Changed();
}

void cLoggerTalk::Abandon(const std::string& Failure)
{
    if (!IsSent) {
        Exchanges.push_back({gHost.Clock->Now(), Waiting.front().Command, {}, ""});
        IsLastOwn = false;
    }
    Exchanges.back().Failure = Failure;
    Fault = Failure;
    Waiting.clear();
    IsSent = false;
    Changed();
}

void cLoggerTalk::Changed() const
{
    if (OnChange) OnChange();
}
