// A performance monitor that is played from a file of replies, as one that is rowed on in real time.
#pragma once

#include "platform/iMonitor.h"

#include <chrono>
#include <utility>

/// A line of a file of replies.
struct PlayedReply
{
    enum eKind
    {
        Frame,
        Failed, // "-": an exchange that failed
        NotHex  // the line is no hexadecimal text
    };
    eKind Kind = Frame;
    std::vector<uint8_t> Bytes; // of a frame, whole or not
};

/// The lines of a file of replies in their order, a reply each. Blanks in a line mean nothing.
std::vector<PlayedReply> ParseReplies(const std::string& Text);

class sMonitor : public iMonitor
{
public:
    /// Polls get the replies 50 a second from Open on; behind the last one they begin again. There must be one.
    explicit sMonitor(std::vector<PlayedReply> InitReplies) : Replies(std::move(InitReplies)) {}

    std::vector<std::string> Discover() override { return {"Simulated performance monitor"}; }
    eMonitorCode Open(int16_t Unit) override;
    eMonitorCode Command(std::span<const uint8_t> Frame, std::vector<uint8_t>& Reply, int Wait) override;
    void Close() override {}
    std::string Reason() const override { return {}; }

private:
    std::vector<PlayedReply> Replies;
    std::chrono::steady_clock::time_point Begin; // when it was opened
};
