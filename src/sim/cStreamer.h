// The simulated logger on a live link: frames at their times, answers to commands, and cuts of the link.
#pragma once

#include "core/mGlobData.h"
#include "sim/cLine.h"
#include "sim/cLogger.h"
#include "sim/mAnswers.h"
#include "sim/mSimOptions.h"

#include <memory>
#include <string>
#include <vector>

/// Streams by the options until the seconds are over or Stop is called. Simulated time begins when the link is first
/// connected and goes on while nobody listens: what is sent then is lost.
class cStreamer
{
public:
    cStreamer(sEventLoop& EventLoop, const SimOptions& Options, const LoggerSettings& Used, const DataFile& File);

    /// Opens the link. Gives an empty text, or why there is none.
    std::string OpenLine();

    /// Runs until the end. Gives a line that sums up what was done.
    std::string Run();

    void Stop() { Loop.Quit(); }

    /// The curves of the rigs as a table, empty without a rig.
    std::string RigTruth() const { return Logger->RigTruth(); }

    std::function<void(const std::string& Lines)> OnNews; // loads that came to rest on a rig

private:
    void Begin();
    void SendDue();
    void SendFrame();
    void LoseFrame();
    void Obey(const std::string& Text);
    void Answer(const std::vector<LoggerAnswer>& Lines);
    void SendLater(int64_t Due, const std::string& Text);
    void BreakOffFrame();
    void FollowMode();
    void Drain(int Looks, const std::function<void()>& Then);
    void PlanCut();
    void Cut();
    double SimulatedNow() const;

    sEventLoop& Loop;
    SimOptions Wanted;
    LoggerSettings Used;
    const DataFile& Session;
    DataFile Shown; // the session with the channels that the slaves' set-up leaves
    cLine Line;
    LoggerMode Mode;
    FrameLayout Layout;  // of the session
    FrameLayout Current; // as the commands have set it
    int Resets = 0;      // of the logger, as far as they were followed
    int64_t LastDue = 0; // when the last byte of an answer goes out, ms of the machine's clock
    std::unique_ptr<cLogger> Logger;
    std::vector<uint8_t> Bytes;
    std::string Command; // as far as it has come
    std::string SentBytes;
    double StartTime = 0;    // simulated seconds on the logger's clock when it was made
    int64_t StartMs = -1;    // the machine's clock when simulated time began; -1 before
    bool IsDraining = false; // nothing more is sent, what was sent may still arrive
    int64_t FramesSent = 0;
    int64_t FramesLost = 0;
};
