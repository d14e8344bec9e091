// The file as a transport of the simulated logger: a whole recording, and the table of what was simulated.
#pragma once

#include "sim/mSimOptions.h"

/// The logger that the options ask for on the channels of File. Gives an empty text, or why there is none.
std::string SettleLogger(const SimOptions& Options, const DataFile& File, LoggerSettings& Used);

/// Writes the recording, the truth table and the performance monitor's replies, those of them that the options ask for,
/// by the session in File. Nothing is written when it fails (reported to the user). Gives lines that sum up what was
/// done, empty after a failure.
std::string RecordFile(const SimOptions& Options, const DataFile& File);
