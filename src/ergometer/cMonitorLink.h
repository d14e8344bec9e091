// The one link to the performance monitor, on a thread of its own, so that a monitor that stalls holds up no frame of
// the logger: windows ask for something and take what has come.
#pragma once

#include "ergometer/cPMPoll.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

/// What has come since it was taken last.
struct PMNews
{
    std::vector<PMLine> Lines;
    std::vector<std::string> Reports; // what the user is to know
};

class cMonitorLink
{
public:
    cMonitorLink() = default;
    ~cMonitorLink() { Use(nullptr); }
    cMonitorLink(const cMonitorLink&) = delete;
    cMonitorLink& operator=(const cMonitorLink&) = delete;

    /// The way to the monitors from now on; null: there is none. What was asked for is dropped, and an exchange that is
    /// running is waited for.
    void Use(iMonitor* Monitor);

    // A window that uses the link attaches while it is open; when the last one detaches, the link is shut down.
    void Attach() { ++Users; }
    void Detach();

    // What a window asks for: none of these waits.
    void Discover() { Ask(eWish::Discover); }
    void SetPolling(bool Polls) { Ask(Polls ? eWish::StartPolling : eWish::StopPolling); }
    void Shutdown() { Ask(eWish::Shutdown); }

    /// The state of the link now.
    PMSnapshot Snapshot() const;

    /// Whether lines and reports are kept for Take; those kept before are dropped.
    void KeepNews(bool Keeps);
    PMNews Take();

    /// Milliseconds of the clock that snapshots count by.
    static int64_t Now();

private:
    enum class eWish
    {
        Discover,
        StartPolling,
        StopPolling,
        Shutdown
    };

    void Ask(eWish Wish);
    void Run();
    void Step(cPMPoll& Poll, std::optional<eWish> Wish);
    std::optional<eWish> NextWish();

    iMonitor* Device = nullptr;
    int Users = 0;
    std::thread Worker;
    mutable std::mutex Lock;
    std::condition_variable Wake;
    // All below is shared, under Lock.
    std::deque<eWish> Wishes;
    PMSnapshot Shot;
    PMNews News;
    bool KeepsNews = false;
    bool IsEnding = false;
};

extern cMonitorLink gMonitorLink;
