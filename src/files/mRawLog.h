// Recording: the raw log of a new sample, from the prompt to its end, and what happens when it cannot be written.
#pragma once

#include "files/cRawLog.h"

#include <span>
#include <string>

extern bool gLogging; // the raw log is open
extern cRawLog gLogFile;
extern std::string gSampleName; // "Sample 07" of the sample recorded last

/// Starts the recording of a new sample: asks for its comment, derives the file's name from it, counts the sample in
/// the session data file, and opens the raw log. An existing file is recorded over after a question; what lies beyond a
/// shorter recording stays in it. A recording that is still running is closed first. gLogging says whether the log is
/// open; a failure is reported to the user.
void StartLog();

/// Opens the raw log. False when it cannot be written (reported to the user).
bool OpenLog(const std::string& Path, OldBytes Old);

/// Appends a frame while the log is open. When it cannot be written the recording ends: the file is whole up to the
/// frame before, gLogging is false, and one message follows in the next turn of the event loop, so that the frames
/// that come meanwhile are not held up.
void LogFrame(std::span<const uint8_t> Frame);

/// Ends the recording. A failure to sync what was written last is reported to the user.
void StopLog();
