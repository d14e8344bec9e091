// Measurements of rowers by day: the table of all sessions, in a file of its own in the program's folder.
#pragma once

#include "core/mFields.h"
#include "core/mGlobData.h"

#include <span>
#include <string>

/// What was measured of a rower on a day: height in metres, mass in kilograms, lengths in millimetres, angles of the
/// ankle in degrees. 0 stands for what was not measured.
struct AntroRow
{
    std::string RowerID;
    DateDays Date = 0;
    float Height = 0;
    float Weight = 0;
    float Foot = 0;
    float Shank = 0;
    float Thigh = 0;
    float Trunk = 0;
    float TrunkBend = 0;
    float Head = 0;
    float UpArm = 0;
    float ForeArm = 0;
    float Wrist = 0;
    float ShouldW = 0;
    float AnkleFlex = 0;
    float AnkleExt = 0;
    float HipSeat = 0;
};

extern RowArray<AntroRow> gAntro;

std::span<const Field<AntroRow>> AntroFields();

/// Path of the table's file, Antro.txt.
std::string AntroPath();

/// Reads the file into gAntro; without one the table is empty. False when there is one that cannot be read, or that is
/// another kind of file (reported to the user).
bool LoadAntro();

/// Writes gAntro, behind a backup copy of the file. False when that fails (reported to the user).
bool SaveAntro();

/// The newest measurements of a rower, null when there are none. Of two of a day the later row counts.
const AntroRow* NewestAntro(const std::string& RowerID);
