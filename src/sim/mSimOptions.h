// The command line of the simulated logger: one table of options, from which reading and help follow.
#pragma once

#include "sim/cLogger.h"

#include <span>
#include <string>

/// What the command line asks for.
struct SimOptions
{
    std::string Session;   // session data file
    std::string Recording; // raw sample file to write
    std::string Truth;     // table of the true strokes to write; empty: none
    int Model = 0;         // 0: the session's
    int Freq = 0;          // Hz, 0: by the session's TimeStep
    int Strokes = 30;      // whole strokes; 0: Seconds count
    double Seconds = 0;
    bool WantsHelp = false;
    bool WantsVersion = false;
    LoggerSettings Logger; // all the rest; its model and frequency are filled from the session
};

/// Takes the words of a command line, "--name value" or "--name=value". Gives an empty text, or what is wrong.
std::string ParseSimOptions(std::span<const std::string> Words, SimOptions& Options);

/// The usage in one line.
std::string SimUsage();

/// The whole help.
std::string SimHelp();
