// Typical patterns stored as samples of the session, in memory; the caller writes the session data file.
#pragma once

#include "processing/mProcess.h"

#include <cstdint>
#include <string>

/// Adds the pattern of Run 1 or 2 to the session as a sample of its own: a Desc row, a Data row for each channel and,
/// with gExpSTD, an STD row for each. Asks for a comment and proposes Prefix with the sample's number. Start, Finish,
/// DistReal, TimeReal and RawFN are left to the caller. Throws RunError, with the session as it was, when a channel
/// has no row or no pattern, or a count exceeds 16 bits.
void SaveNormSample(int Run, const std::string& Prefix);

/// Stores up to MaxCnt strokes from sample Start on, each as a sample of its own; the first runs from Start to the
/// first boundary after it. A stretch over which the clock runs back is no stroke. Ends at one whose last points lie
/// beyond the recording (reported to the user). Gives what CycleStats finds from Start to the last sample, or false
/// (reported to the user) without a key channel. Throws RunError, with the session as it was, when a sample cannot be
/// made.
bool ProcessStrokes(KeyWindow& Win, int32_t Start, int16_t MaxCnt);
