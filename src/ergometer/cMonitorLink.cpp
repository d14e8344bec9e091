// The worker of the link.
#include "ergometer/cMonitorLink.h"

#include "platform/mHost.h"

#include <algorithm>
#include <chrono>
#include <utility>

cMonitorLink gMonitorLink;

int64_t cMonitorLink::Now()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void cMonitorLink::Use(iMonitor* Monitor)
{
    if (Worker.joinable()) {
        {
            const std::lock_guard Hold(Lock);
            IsEnding = true;
        }
        Wake.notify_one();
        Worker.join();
    }
    IsEnding = false;
    Wishes.clear();
    Shot = {};
    News = {};
    Device = Monitor;
}

void cMonitorLink::Detach()
{
    if (--Users == 0 && Worker.joinable()) Shutdown();
}

void cMonitorLink::Ask(eWish Wish)
{
    {
        const std::lock_guard Hold(Lock);
        Wishes.push_back(Wish);
    }
    if (!Worker.joinable()) Worker = std::thread([this] { Run(); });
    Wake.notify_one();
}

PMSnapshot cMonitorLink::Snapshot() const
{
    const std::lock_guard Hold(Lock);
    return Shot;
}

void cMonitorLink::KeepNews(bool Keeps)
{
    const std::lock_guard Hold(Lock);
    KeepsNews = Keeps;
    News = {};
}

PMNews cMonitorLink::Take()
{
    const std::lock_guard Hold(Lock);
    return std::exchange(News, {});
}

std::optional<cMonitorLink::eWish> cMonitorLink::NextWish()
{
    if (Wishes.empty()) return {};
    const eWish First = Wishes.front();
    Wishes.pop_front();
    return First;
}

void cMonitorLink::Run()
{
    cPMPoll Poll(Device);
    int64_t Due = Now();
    std::unique_lock Hold(Lock);
    while (!IsEnding) {
        const std::optional<eWish> Wish = NextWish();
        if (!Wish && !Shot.IsPolling) {
            Wake.wait(Hold);
            continue;
        }
        if (const int64_t Rest = Due - Now(); !Wish && Rest > 0) {
            Wake.wait_for(Hold, std::chrono::milliseconds(Rest));
            continue;
        }
        if (!Wish) Due = std::max(Due + PollMs, Now());
        Hold.unlock();
        Step(Poll, Wish);
        Hold.lock();
    }
    Hold.unlock();
    Poll.Shutdown();
}

// A failure here is a report like any other.
void cMonitorLink::Step(cPMPoll& Poll, std::optional<eWish> Wish)
{
    std::vector<std::string> Failures;
    Guard("The link to the performance monitor", Failures, [&] {
        if (!Wish)
            Poll.Tick(Now());
        else if (*Wish == eWish::Discover)
            Poll.Discover();
        else if (*Wish == eWish::Shutdown)
            Poll.Shutdown();
        else
            Poll.SetPolling(*Wish == eWish::StartPolling, Now());
        std::vector<PMLine> Lines = Poll.TakeLines();
        std::vector<std::string> Reports = Poll.TakeReports();
        const std::lock_guard Hold(Lock);
        Shot = Poll.Now();
        if (!KeepsNews) return true;
        News.Lines.insert(News.Lines.end(), Lines.begin(), Lines.end());
        News.Reports.insert(News.Reports.end(), Reports.begin(), Reports.end());
        return true;
    });
    if (Failures.empty()) return;
    const std::lock_guard Hold(Lock);
    if (KeepsNews) News.Reports.insert(News.Reports.end(), Failures.begin(), Failures.end());
}
