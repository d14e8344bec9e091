// Turns of the loop: wait for a descriptor or the next timer, then run what is due.
#include "platform/plain/sEventLoop.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <ctime>
#include <limits>
#include <poll.h>
#include <sys/signalfd.h>
#include <utility>
#include <vector>

namespace {
constexpr int64_t Never = std::numeric_limits<int64_t>::max();
constexpr int64_t LongestWait = 60000; // ms
} // namespace

int WatchEndSignals()
{
    sigset_t Ends;
    sigemptyset(&Ends);
    sigaddset(&Ends, SIGINT);
    sigaddset(&Ends, SIGTERM);
    sigprocmask(SIG_BLOCK, &Ends, nullptr);
    return signalfd(-1, &Ends, SFD_CLOEXEC);
}

int64_t sEventLoop::Milliseconds() const
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

LocalTime sEventLoop::Now() const
{
    const std::time_t Moment = std::time(nullptr);
    std::tm Local{};
    localtime_r(&Moment, &Local);
    return {Local.tm_year + 1900, Local.tm_mon + 1, Local.tm_mday, Local.tm_hour, Local.tm_min, Local.tm_sec};
}

int sEventLoop::StartOnce(int Delay, std::function<void()> Work)
{
    return Start({Milliseconds() + Delay, 0, std::move(Work)});
}

int sEventLoop::StartRepeating(int Interval, std::function<void()> Work)
{
    const int Period = std::max(Interval, 1);
    return Start({Milliseconds() + Period, Period, std::move(Work)});
}

int sEventLoop::Start(Timer Item)
{
    Timers[++LastTimer] = std::move(Item);
    return LastTimer;
}

void sEventLoop::StopTimer(int Number)
{
    Timers.erase(Number);
}

void sEventLoop::Watch(int Descriptor, short Events, std::function<void(short)> Work)
{
    Sources[Descriptor] = {++LastSource, Events, std::move(Work)};
}

void sEventLoop::Unwatch(int Descriptor)
{
    Sources.erase(Descriptor);
}

void sEventLoop::Wait(int Delay)
{
    const int64_t End = Milliseconds() + Delay;
    do
        Turn(End);
    while (Milliseconds() < End);
}

void sEventLoop::Run()
{
    IsRunning = true;
    while (IsRunning)
        Turn(Never);
}

// Timers started by the work that runs wait for the next turn, so that descriptors are not starved.
void sEventLoop::RunDue()
{
    const int64_t Now = Milliseconds();
    std::vector<int> Due;
    for (const auto& [Number, Item] : Timers)
        if (Item.Due <= Now) Due.push_back(Number);
    for (const int Number : Due) {
        const auto Found = Timers.find(Number);
        if (Found == Timers.end()) continue;
        const auto Work = Found->second.Work;
        if (Found->second.Interval > 0)
            Found->second.Due = std::max(Found->second.Due + Found->second.Interval, Now);
        else
            Timers.erase(Found);
        Work();
    }
}

void sEventLoop::RunSources(int Time)
{
    std::vector<pollfd> Polled;
    std::vector<int> Numbers;
    for (const auto& [Descriptor, Item] : Sources) {
        Polled.push_back({Descriptor, Item.Events, 0});
        Numbers.push_back(Item.Number);
    }
    if (poll(Polled.data(), Polled.size(), Time) <= 0) return;
    for (std::size_t i = 0; i < Polled.size(); ++i) {
        if (Polled[i].revents == 0) continue;
        const auto Found = Sources.find(Polled[i].fd);
        if (Found == Sources.end() || Found->second.Number != Numbers[i]) continue;
        const auto Work = Found->second.Work;
        Work(Polled[i].revents);
    }
}

void sEventLoop::Turn(int64_t Until)
{
    int64_t Next = Until;
    for (const auto& [Number, Item] : Timers)
        Next = std::min(Next, Item.Due);
    RunSources(static_cast<int>(std::clamp<int64_t>(Next - Milliseconds(), 0, LongestWait)));
    RunDue();
}
