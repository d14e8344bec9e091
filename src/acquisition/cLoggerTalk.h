// Exchanges with a logger that is being set up: commands one after the other, what comes in answer, and their log.
#pragma once

#include "acquisition/cAnswerFinder.h"
#include "platform/iClock.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <span>
#include <string>
#include <vector>

/// The failure of an exchange that had no answer.
inline constexpr const char* NoAnswerText = "no answer";

/// One exchange. What came without a command, such as a late answer, has none.
struct LoggerExchange
{
    LocalTime At;
    std::string Sent;                  // the command, without its CR
    std::vector<std::string> Received; // lines, without their CR
    std::string Failure;               // why there was no exchange, or that there was no answer; else empty
};

/// A command to be sent, and how long its answers are waited for.
struct LoggerRequest
{
    std::string Command;
    int Wait = 500;                                    // ms
    std::string Key{};                                 // an answer with this key and calm behind it end the wait
    bool NeedsAnswer = true;                           // none is a failure
    std::function<void(const LoggerExchange&)> Then{}; // called at the end, unless it was cancelled or the link failed
};

/// Takes the link's bytes from when it is made until it is gone. Times run by the host's clock, so nothing waits here.
/// Behind a command that changes the speed of the logger's port the link is opened at that speed.
class cLoggerTalk
{
public:
    cLoggerTalk();
    ~cLoggerTalk();
    cLoggerTalk(const cLoggerTalk&) = delete;
    cLoggerTalk& operator=(const cLoggerTalk&) = delete;

    /// Sends the command as soon as those ahead of it are done. "#SETUP" goes ahead of the first, and of the next one
    /// behind a loss of the link.
    void Ask(LoggerRequest Request);

    /// Ends the wait that goes on and drops the commands behind it; the log says why.
    void Cancel(const std::string& Why = "cancelled");

    bool IsBusy() const { return !Waiting.empty(); }

    /// The command whose answer is waited for; empty when there is none.
    std::string Current() const { return IsSent ? Waiting.front().Command : ""; }

    /// How much of the time that the commands asked for may take is over, 0 to 100.
    int Percent() const;

    /// Whether the logger was sent "#SETUP" and the link has not failed since.
    bool IsSetUp() const { return IsIn; }

    /// "#SETUP" goes ahead of the next command again, as behind a reset.
    void LeaveSetUp() { IsIn = false; }

    /// Whether the logger has answered anything since the link was last opened.
    bool HasAnswered() const { return IsHeard; }

    /// Why the last exchange failed; empty when it did not.
    const std::string& Failure() const { return Fault; }

    /// Takes what has come since the last exchange and is not in the log yet.
    std::vector<std::string> ReadWaiting();

    /// All exchanges from the first.
    const std::vector<LoggerExchange>& Log() const { return Exchanges; }

    /// Rows From to To of the log, without To, as text: a line an answer, time, command and answer with tabs between.
    std::string LogText(std::size_t From, std::size_t To) const;

    /// Something of all this has changed.
    std::function<void()> OnChange;

private:
    void Take(std::span<const uint8_t> Bytes);
    void Tick();
    void Begin(int64_t Now);
    void Collect();
    void End(const std::string& Failure);
    void Abandon(const std::string& Failure);
    void CheckLink();
    static std::string FollowSpeed(const std::string& Command);
    void Changed() const;

    int Timer;
    cAnswerFinder Finder;
    std::deque<LoggerRequest> Waiting; // the first is the one under way
    std::vector<LoggerExchange> Exchanges;
    std::string Fault;
    bool IsIn = false;
    bool IsHeard = false;
    bool IsSent = false;    // the first command of Waiting
    bool HasKey = false;    // its answer has come
    bool IsLastOwn = false; // the last row of the log holds answers without a command
    int64_t SentAt = 0;     // ms of the clock
    int64_t AskedAt = 0;    // when the first of a row of commands was asked for
    int64_t LastByte = 0;
    int64_t AllWaits = 0; // ms of the commands asked for in a row
    int64_t DoneWaits = 0;
};
