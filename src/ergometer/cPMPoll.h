// The link to a performance monitor, step by step: discovery, one exchange a tick, and a unit that goes away and comes
// back. It waits for answers, so it runs where that holds nobody up.
#pragma once

#include "ergometer/mPMI.h"
#include "platform/iMonitor.h"

/// Milliseconds from one exchange to the next.
inline constexpr int PollMs = 20;

/// Milliseconds after which an exchange is given up.
inline constexpr int AnswerMs = 1000;

enum class ePMState
{
    Closed,
    NoUnits, // discovered, and none was there
    Refused, // one is there, and cannot be opened
    Open,
    Lost // was unplugged; polling looks for it
};

/// What is known of the unit in use.
struct PMUnitInfo
{
    int PMCount = 0; // units found
    std::string Product;
    std::string PMSerial; // these are empty when the unit does not tell
    std::string PMHWVersion;
    std::string PMFWVersion;
    std::string PMInitMsg;
};

/// The state of the link at one moment. Times in milliseconds of the clock that Tick is given.
struct PMSnapshot
{
    ePMState State = ePMState::Closed;
    PMUnitInfo Unit;
    bool IsPolling = false;
    std::optional<PMFigures> Figures; // none before the first answer, and while the unit is away
    int64_t WaitsSince = 0;           // last answer, or when polling began or the unit came back
    int64_t StrokeAt = 0;             // when a figure of the stroke changed last
    int64_t Answers = 0;
    int64_t Failures = 0; // exchanges without an answer that could be read

    /// Whether the monitor owes an answer for longer than an exchange may take.
    bool IsSilent(int64_t Now) const;

    /// Whether the figures are those of a monitor that answers now.
    bool IsConnected(int64_t Now) const { return IsPolling && Figures && !IsSilent(Now); }

    /// The state as a sentence for the user.
    std::string Text(int64_t Now) const;

    /// Pace, rate, power and stroke state in one line, or why there are none.
    std::string FiguresText(int64_t Now) const;
};

class cPMPoll
{
public:
    /// Null: the program has no way to a monitor, so that none is ever found.
    explicit cPMPoll(iMonitor* InitMonitor) : Monitor(InitMonitor) {}

    /// Finds the units and opens the first. The outcome is a line for both boxes, or a report.
    void Discover();

    /// Begins or ends polling. Polling without a unit looks for one.
    void SetPolling(bool Polls, int64_t Now);

    /// One exchange, or once a second a look for a unit that is not there.
    void Tick(int64_t Now);

    /// Closes the link; the outcome is a line for both boxes.
    void Shutdown();

    const PMSnapshot& Now() const { return Shot; }

    /// Lines for the text boxes, and what went wrong in words for the user, since the last call.
    std::vector<PMLine> TakeLines();
    std::vector<std::string> TakeReports();

private:
    void PMInit();
    std::vector<std::string> Attached();
    eMonitorCode PMCommand(std::span<const uint8_t> Contents);
    bool OpenUnit(int16_t Unit, const std::string& Product);
    void ReadTexts();
    std::vector<uint8_t> Ask(uint8_t Command);
    void LookForUnit(int64_t Now);
    void TakeReply(int64_t Now);
    void Fail(eMonitorCode Code);
    void ReportOnce(const std::string& Text);
    void Say(const char* Text) { Lines.push_back({Ticks, 0, Text}); }

    iMonitor* Monitor;
    PMSnapshot Shot;
    cPMLines Changes;
    std::vector<uint8_t> Reply;
    std::vector<PMLine> Lines;
    std::vector<std::string> Reports;
    std::string Reported; // last report of an exchange; empty while all is well
    int64_t Ticks = 0;
    int64_t NextLook = 0;
    bool IsBegun = false;
};
