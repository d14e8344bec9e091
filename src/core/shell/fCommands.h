// What the main window's commands do, each by handing on to the module or window that does the work.
#pragma once

#include <cstdint>
#include <string>

class frmMain;

void FileOpen(frmMain& Main);
void FileSave(frmMain& Main);
void FileExit(frmMain& Main);
void CheckChannels(frmMain& Main);
void DumpChannels(frmMain& Main);

/// The calibration workbench; one that is open keeps its points.
void DoCalibration(frmMain& Main);

void ReZeroChannels(frmMain& Main);
void SetCalibrator(frmMain& Main);

/// Zeroes horizontal angles and handle forces by the counts of the next second, and saves the session. A group without
/// channels is passed over. Gives the names of the channels zeroed.
std::string AutoReZero(frmMain& Main);

/// AutoReZero, once it is confirmed that the sensors are at rest; tells which channels were zeroed.
void AskAutoReZero(frmMain& Main);

/// Asks for a stored sample and opens its report.
void ViewTypical(frmMain& Main);

void ViewRawFile(frmMain& Main);
void ViewPrimaryFile(frmMain& Main);
void ViewLoggerFile(frmMain& Main);
void ViewScannedFile(frmMain& Main);

/// Opens the data view on a file; Mode is the kind of data. Nothing is shown when it cannot be loaded (told).
void OpenDataView(frmMain& Main, const std::string& FileName, int16_t Mode);

void CorrectVars(frmMain& Main);
void SampleRower(frmMain& Main);
void EditTargets(frmMain& Main);
void LogChannels(frmMain& Main);
void ReadLog(frmMain& Main);
void PlayRawRower(frmMain& Main);
void PlayRawCoach(frmMain& Main);
void ToggleLog(frmMain& Main);
void ShowHelp(frmMain& Main);
void ShowAbout(frmMain& Main);
