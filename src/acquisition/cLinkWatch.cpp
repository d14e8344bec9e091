// Detects silence, retries at growing intervals, and words both for the user.
#include "acquisition/cLinkWatch.h"

#include "base/mNumText.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int64_t SilentAfter = 2000;   // ms without a frame
constexpr int64_t NoAnswerAfter = 5000; // ms of an attempt to connect
constexpr int64_t FirstDelay = 250;     // ms from a loss to the first attempt
constexpr int64_t LongestDelay = 500;   // ms between attempts: frames sent before the next one are lost

constexpr int64_t BesideAfter = 4000;      // ms without a frame before a second connection is tried
constexpr int64_t BesideEvery = 2000;      // ms, since the system repeats an attempt ever more rarely
constexpr int64_t LongestPatience = 32000; // ms, for a logger that stays silent on each connection

std::string WholeSeconds(int64_t Milliseconds)
{
    const int64_t Seconds = Milliseconds / 1000;
    return FormatNum(static_cast<double>(Seconds), "0");
}
} // namespace

void cLinkWatch::Connecting(const std::string& Name, int64_t Now)
{
    const bool IsNew = Stage == eState::Closed;
    if (IsNew) Begin(Name);
    Enter(eState::Connecting, Now);
    if (IsNew) Tell(Words(Now));
}

void cLinkWatch::Opened(const std::string& Name, int64_t Now)
{
    if (Stage == eState::Closed) Begin(Name);
    Enter(eState::Open, Now);
    LastFrame = Now;
    NextBeside = Now + Patience;
    Tell(std::exchange(WasOpen, true) ? Link + " is back" : "Connected to " + Link);
}

void cLinkWatch::Lost(const std::string& Reason, int64_t Now)
{
    if (Stage == eState::Closed) return;
    // A loss is reported once, however many attempts fail for the same reason.
    const bool IsNews = Stage == eState::Open || Reason != Why;
    Why = Reason;
    StillLost(Now);
    if (IsNews) Tell(Words(Now));
}

void cLinkWatch::StillLost(int64_t Now)
{
    NextTry = Now + Delay;
    Delay = std::min(2 * Delay, LongestDelay);
    Enter(eState::Lost, Now);
}

void cLinkWatch::Replaced(int64_t Now)
{
    Patience = std::min(2 * Patience, LongestPatience);
    NextBeside = Now + Patience;
    Tell(Link + ": a second connection took over");
}

void cLinkWatch::Restarted() const
{
    Tell(Link + ": the logger's clock was restarted");
}

void cLinkWatch::Closed()
{
    Enter(eState::Closed, 0);
}

void cLinkWatch::FrameCame(int64_t Now)
{
    if (Stage != eState::Open) return;
    LastFrame = Now;
    Delay = FirstDelay;
    Patience = BesideAfter;
    NextBeside = Now + Patience;
    Why.clear();
    if (std::exchange(Silent, false)) Tell(Link + ": frames again");
}

void cLinkWatch::Tick(int64_t Now)
{
    if (Stage == eState::Open && !Silent && Now - LastFrame >= SilentAfter) {
        Silent = true;
        Tell(Words(Now));
    }
    if (Stage == eState::Open && Now >= NextBeside) {
        NextBeside = Now + BesideEvery;
        if (TryBeside) TryBeside();
    }
    if (Stage == eState::Connecting && Now - Since >= NoAnswerAfter) Lost("no answer", Now);
    if (Stage == eState::Lost && Now >= NextTry) {
        if (Reopen) Reopen();
    }
}

std::string cLinkWatch::Failure() const
{
    if (Stage == eState::Closed || Stage == eState::Open) return "";
    return (WasOpen ? Link + " lost" : "No connection to " + Link) + (Why.empty() ? "" : ": " + Why);
}

std::string cLinkWatch::Words(int64_t Now) const
{
    switch (Stage) {
    case eState::Closed:
        return "";
    case eState::Connecting:
        return Why.empty() ? "Connecting to " + Link : Failure() + ". Trying again";
    case eState::Open:
        return Silent ? Link + ": no frames for " + WholeSeconds(Now - LastFrame) + " s" : Link;
    case eState::Lost:
        return Failure() + ". Trying again";
    }
    return "";
}

void cLinkWatch::Begin(const std::string& Name)
{
    Link = Name;
    Why.clear();
    WasOpen = false;
    Delay = FirstDelay;
    Patience = BesideAfter;
}

void cLinkWatch::Enter(eState Next, int64_t Now)
{
    Stage = Next;
    Since = Now;
    Silent = false;
}

void cLinkWatch::Tell(const std::string& Text) const
{
    if (OnChange) OnChange(Text);
}
