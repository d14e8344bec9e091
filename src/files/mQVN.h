// Strokes of a long recording, found by one pass over its raw file.
#pragma once

#include "base/mRowArray.h"
#include "files/mUnread.h"

#include <cstdint>
#include <string>

/// One stroke of a scanned recording.
struct ScanRow
{
    int32_t Pos = 0;  // one-based position in the file behind the frame before its first one
    double Time = 0;  // s, frames so far by the sampling period
    double Rate = 0;  // strokes per minute
    double Speed = 0; // mean of the speed channel, 0 without one
    double Dist = 0;  // value of channel 16, 0 without a speed channel
};

/// The strokes of the last recording scanned.
extern RowArray<ScanRow> gScanRows;

/// Scans a raw file for strokes of the key channel and fills gScanRows. The scan ends with the first frame that fails;
/// what was not read is reported to the user, or given in Left. False when the file cannot be read, what was not read
/// is a failure, the session has no key channel (each reported to the user) or the user gives up: gScanRows is as it
/// was.
bool ScanRawFile(const std::string& Path, Unread* Left = nullptr);

/// Writes gScanRows as a tab-separated table with times in minutes from the first stroke. False when that fails
/// (reported to the user).
bool WriteStrFile(const std::string& Path);

/// Number of rows From to To and the sums of their rates and speeds. False, with everything as it was, unless both rows
/// exist and From lies before To.
bool SumScan(int From, int To, int& Count, double& RateSum, double& SpeedSum);
