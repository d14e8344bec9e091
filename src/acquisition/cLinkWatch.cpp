// Silence, tries again at growing distances, and the words for both.
#include "acquisition/cLinkWatch.h"

#include "base/mNumText.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int64_t SilentAfter = 2000;   // ms without a frame
constexpr int64_t NoAnswerAfter = 5000; // ms of an attempt to connect
constexpr int64_t FirstDelay = 250;     // ms from a loss to the first try
constexpr int64_t LongestDelay = 500;   // ms between tries: what comes back is lost until the next

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
    Tell(std::exchange(WasOpen, true) ? Link + " is back" : "Connected to " + Link);
}

void cLinkWatch::Lost(const std::string& Reason, int64_t Now)
{
    if (Stage == eState::Closed) return;
    // One loss is told once, however often the tries fail for the same reason.
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

void cLinkWatch::Closed()
{
    Enter(eState::Closed, 0);
}

void cLinkWatch::FrameCame(int64_t Now)
{
    if (Stage != eState::Open) return;
    LastFrame = Now;
    Delay = FirstDelay;
    Why.clear();
    if (std::exchange(Silent, false)) Tell(Link + ": frames again");
}

void cLinkWatch::Tick(int64_t Now)
{
    if (Stage == eState::Open && !Silent && Now - LastFrame >= SilentAfter) {
        Silent = true;
        Tell(Words(Now));
    }
    if (Stage == eState::Connecting && Now - Since >= NoAnswerAfter) Lost("no answer", Now);
    if (Stage == eState::Lost && Now >= NextTry) {
        if (Reopen) Reopen();
    }
}

std::string cLinkWatch::Words(int64_t Now) const
{
    const std::string Failure = WasOpen ? Link + " lost" : "No connection to " + Link;
    switch (Stage) {
    case eState::Closed:
        return "";
    case eState::Connecting:
        return Why.empty() ? "Connecting to " + Link : Failure + ": " + Why + ". Trying again";
    case eState::Open:
        return Silent ? Link + ": no frames for " + WholeSeconds(Now - LastFrame) + " s" : Link;
    case eState::Lost:
        return Failure + ": " + Why + ". Trying again";
    }
    return "";
}

void cLinkWatch::Begin(const std::string& Name)
{
    Link = Name;
    Why.clear();
    WasOpen = false;
    Delay = FirstDelay;
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
