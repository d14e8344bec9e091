// What the simulated logger does and says on the text commands of its set-up protocol.
#pragma once

#include "platform/iClock.h"
#include "sim/cFrameEncoder.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// The settings by key, as "MODE" with "2,40,0"; a row of a table by key and number, as "WLDEVCFG/0".
using LoggerValues = std::map<std::string, std::string>;

/// What commands change.
struct LoggerMode
{
    bool IsRunning = true; // frames are sent
    int Resets = 0;        // since the logger was switched on
    int LineSpeed = 57600; // baud of its line until a command sets a speed
    std::string SetClock;  // what the clock was last set to; empty: the machine's time counts
    LoggerValues Values;   // in use
    LoggerValues Saved;    // kept through a reset
};

/// The mode of a logger that was switched on: with that layout and that number of frames a second.
LoggerMode SwitchedOn(const FrameLayout& Layout, int Freq);

/// One line of an answer, with its CR, and how long (ms) after the command it comes.
struct LoggerAnswer
{
    int Delay = 0;
    std::string Text;
};

/// Obeys one command, without its CR, and gives the answer; empty for a command without one.
std::vector<LoggerAnswer> AnswerCommand(const std::string& Command, LoggerMode& Mode, const LocalTime& Now);

/// Frames a second.
int FreqOf(const LoggerMode& Mode);

/// Speed of the port in baud that a command has set; 0 until then.
int SpeedOf(const LoggerMode& Mode);

/// Layout with the channels of a slave as the mode has them. Slaves alone have no mask.
FrameLayout LayoutOf(const LoggerMode& Mode, const FrameLayout& Layout);
