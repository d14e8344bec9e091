// Skarvelin.ini, the small text file in the program's folder: its globals, reading and writing.
#pragma once

#include <array>
#include <cstdint>
#include <string>

/// A calibrator: a channel with known factors against which channel ChToCal is calibrated.
struct CalibrSensRow
{
    bool IsActive = false;
    std::string Name;
    int16_t CalCh = 0;
    double Q0 = 0;
    double Q1 = 0;
    int16_t ChToCal = 0;
};

/// Geometry of the main window; a width of 0 means that none was kept.
struct WindowPlace
{
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
};

extern std::string gAppDir; // the program's folder, ending in the separator
extern std::string gSysID;
extern WindowPlace gMainPlace;
extern std::string gBaseFolder;  // root of all data folders
extern int16_t gCOMport;         // serial port number
extern std::string gCOMdevice;   // path of the serial device that the key "COM port" names in place of a number
extern std::string gLinkAddress; // where the wireless logger listens
extern int32_t gLinkPort;
extern std::string gBackground; // background picture of the rower's panel
extern std::string gModelsFN;   // targets file
extern int16_t gAutoCalCh;      // channel of the active automatic calibrator
extern double gAutoCalQ0;
extern double gAutoCalQ1;
extern std::array<CalibrSensRow, 5> gCalibrSens;
extern bool gIsCurves; // feedback switches; without a file the panel shows curves, values, dots and grid
extern bool gIsValue;
extern bool gIsScore;
extern bool gIsInd;
extern bool gIsSound;
extern bool gIsGrid;

/// Path of the ini file.
std::string IniPath();

/// Reads the ini file into the globals above and gCurFile. A missing file is reported, result false; unknown keys and
/// lines without "=" are skipped, a number that its global cannot hold leaves the former value.
bool ReadIni();

/// Writes the ini file whole. False when it cannot be written (reported to the user).
bool WriteIni();

/// Fills the globals from the bytes of an ini file. Lines of unknown keys are left out.
void ParseIni(const std::string& Bytes);

/// The globals as the text of an ini file.
std::string IniText();

/// The serial port as the key "COM port" has it: its number, or the path of its device.
std::string PortText();

/// Takes the serial port from such a text; one without a number gives 0.
void SetPort(const std::string& Text);

/// Copies the calibrator rows made for channel CalCh to gAutoCalCh, gAutoCalQ0 and gAutoCalQ1; the last one wins.
void SelectCalibrSens(int16_t CalCh);
