// Raw calibration files (.xcl): the points of a calibration with their channel, line and sensor, as text.
#pragma once

#include "calibration/mCalPoints.h"
#include "core/mGlobData.h"

#include <cstdint>
#include <optional>
#include <string>

/// What a raw calibration file holds.
struct RawCal
{
    DateDays Date = 0;
    int16_t Chan = 0;
    std::string ParamID;
    bool IsAuto = false; // the physical values are those of a calibrator
    double Freq = 0;     // Hz
    CalLine Line;
    double Lever = 0;
    std::string SensID;
    CalPoints Points;
};

/// Writes the whole file. False when that fails (reported to the user).
bool SaveRawCal(const std::string& Path, const RawCal& Data);

/// Reads channel, line, sensor and points; the other fields are not taken. Lines without numbers are left out (reported
/// to the user). Nothing when the file cannot be read or is none of this kind (reported to the user).
std::optional<RawCal> LoadRawCal(const std::string& Path);

/// The same from the bytes of a file. Bad counts the lines that hold no point. Nothing when they are no such file.
std::optional<RawCal> ParseRawCal(std::string Bytes, int& Bad);
