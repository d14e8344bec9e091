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
    std::string Replies;   // file of a performance monitor's replies to write; empty: none
    std::string Video;     // video of the rower to write; empty: none
    double VideoRate = 50; // pictures a second
    uint16_t Port = 0;     // TCP port to stream on; 0: none
    std::string Terminal;  // symbolic link of a pseudo-terminal to stream on; empty: none
    std::string Sent;      // file that takes what was sent; empty: none
    double Speed = 1;      // times real time
    double Cut = 0;        // seconds between cuts of the link; 0: none
    int Model = 0;         // 0: the session's
    int Freq = 0;          // Hz, 0: by the session's TimeStep
    int Strokes = 0;       // whole strokes; 0: Seconds count
    double Seconds = 0;    // 0, and no strokes: 30 strokes of a recording, an endless stream
    bool WantsHelp = false;
    bool WantsVersion = false;
    LoggerSettings Logger; // all the rest; its model and frequency are filled from the session

    // Faults of a logger that is set up.
    bool Mute = false;         // commands are obeyed, but not answered
    bool SlowAnswers = false;  // answers come late
    bool SplitAnswers = false; // answers come byte by byte, behind a frame that breaks off
};

/// Reads the arguments of a command line, "--name value" or "--name=value". Gives an empty text, or what is wrong.
std::string ParseSimOptions(std::span<const std::string> Words, SimOptions& Options);

/// The usage in one line.
std::string SimUsage();

/// The whole help.
std::string SimHelp();
