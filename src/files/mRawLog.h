// Recording: the raw log of a new sample, from the prompt to its end, and what happens when it cannot be written.
#pragma once

#include "files/cRawLog.h"

#include <span>
#include <string>

extern bool gLogging; // the raw log is open
extern cRawLog gLogFile;
extern std::string gSampleName; // "Sample 07" of the sample recorded last

/// Starts the recording of a new sample: asks for its comment, makes the file's name of it, counts the sample in the
/// session data file, and opens the raw log. A file that exists is recorded over after a question, with the tail of a
/// longer one left as it is; while the sample before is still recorded, its log is closed first. gLogging tells whether
/// the log is open (told when it cannot be).
void StartLog();

/// Opens the raw log. False when it cannot be written (told).
bool OpenLog(const std::string& Path, OldBytes Old);

/// Appends a frame while the log is open. When it cannot be written the recording ends: the file is whole up to the
/// frame before, gLogging is false, and one message follows in the next turn of the event loop, so that the frames
/// that come meanwhile are not held up.
void LogFrame(std::span<const uint8_t> Frame);

/// Ends the recording. What was last written and cannot be brought to the disk is told.
void StopLog();
