// A performance monitor that does what a test wants: answers, stalls, breaks its frames, is unplugged and comes back.
#pragma once

#include "ergometer/mPMI.h"
#include "platform/iMonitor.h"
#include "platform/mMonitorFrame.h"
#include "support/Hex.h"

#include <atomic>
#include <chrono>
#include <thread>

/// The contents of the answer to a poll: a state, a number of drives, the rest fixed.
inline std::vector<uint8_t> PollContents(int State, int Drives)
{
    std::vector<uint8_t> Bytes =
        Hex("01 A6 03 F2 00 39 A7 03 1C 00 54 B4 03 AF 00 58 1A 1B BF 01 00 A0 05 E8 03 00 00 0A "
            "A3 05 F4 01 00 00 07 6E 08 6B 03 5E 7A 00 8C 00 00");
    Bytes[20] = static_cast<uint8_t>(State);
    Bytes[43] = static_cast<uint8_t>(Drives);
    return Bytes;
}

class ScriptedMonitor : public iMonitor
{
public:
    // Set while another thread polls.
    std::atomic<bool> IsAttached = true;
    std::atomic<bool> IsRefused = false; // cannot be opened
    std::atomic<bool> Stalls = false;    // an exchange lasts until this is false
    std::atomic<bool> IsMute = false;    // exchanges end without an answer
    std::atomic<bool> IsBroken = false;  // the checksum of its frames is wrong
    std::atomic<int> State = 0;
    std::atomic<int> Drives = 0;
    std::atomic<int> Opened = 0;
    std::atomic<int> Polls = 0;

    std::vector<std::string> Discover() override
    {
        return IsAttached ? std::vector<std::string>{"Monitor A"} : std::vector<std::string>{};
    }
    eMonitorCode Open(int16_t) override
    {
        if (IsRefused) return eMonitorCode::NotOpened;
        ++Opened;
        return eMonitorCode::Success;
    }
    eMonitorCode Command(std::span<const uint8_t> Frame, std::vector<uint8_t>& Reply, int) override
    {
        if (!IsAttached) return eMonitorCode::Gone;
        const std::vector<uint8_t> Asked = UnpackFrame(Frame).Bytes;
        if (Asked.size() > 1) ++Polls;
        while (Stalls)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (IsMute) return eMonitorCode::NoAnswer;
        if (Asked[0] == CommandVersion)
            Reply = PackFrame(Hex("01 91 07 16 02 05 53 01 1B 00"));
        else if (Asked[0] == CommandSerial)
            Reply = PackFrame(Hex("01 94 09 34 33 30 30 31 00 00 00 00"));
        else
            Reply = PackFrame(PollContents(State, Drives));
        if (IsBroken) Reply[Reply.size() - 2] ^= 1;
        return eMonitorCode::Success;
    }
    void Close() override {}
    std::string Reason() const override { return "Permission denied"; }
};
