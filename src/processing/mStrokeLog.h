// The stroke log: one line of figures for every single stroke of a stretch, in a file beside the session data file.
#pragma once

#include "processing/mProcess.h"

#include <cstdint>
#include <string>

// Figures of the current stroke. The live panels write them too, and only a written row clears gImpulse, gMaxForce and
// gWork, so a log goes on from whatever they held. Force and key value as stored: an angle in degrees gives work in
// force x degrees.
extern double gDriveT;    // s from catch to finish
extern double gMaxFT;     // s from catch to the greatest force
extern double gRecovT;    // s, rest of the cycle
extern double gLength;    // key value at the finish less that at the catch
extern double gMaxForce;  // greatest force of the drive
extern double gAverForce; // impulse by drive time
extern double gImpulse;   // force x s of the drive
extern double gWork;      // force x key units of the drive
extern double gPower;     // work by cycle time

/// Full name of the last log.
extern std::string StrokeLogFN;

/// Writes a row for every cycle of the stretch that has a finish and over which the clock does not run back into a new
/// log; an older one is never overwritten. Stop 0 becomes the last sample. False (reported to the user) without the key
/// channel, channel H1 or a whole cycle, and when the log cannot be opened or written. Throws RunError when a stroke
/// has no duration; rows written so far stay in the file.
bool ExportStrokes(KeyWindow& Win, int32_t Start, int32_t& Stop);
