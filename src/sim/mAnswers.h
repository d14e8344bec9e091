// What the simulated logger does and says on the text commands of its set-up protocol.
#pragma once

#include "platform/iClock.h"

#include <string>

/// What commands change.
struct LoggerMode
{
    bool IsRunning = true; // frames are sent
    int Freq = 25;         // Hz
    std::string SetClock;  // what the clock was last set to; empty: the machine's time counts
};

/// Obeys one command, without its CR, and gives the answer with its CR; empty for a command without one.
std::string AnswerCommand(const std::string& Command, LoggerMode& Mode, const LocalTime& Now);
