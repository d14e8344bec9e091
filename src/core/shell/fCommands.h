// What the main window's commands do, as far as they do more than open a window: each calls the module that does the
// work.
#pragma once

#include <string>

class frmMain;

void FileNew(frmMain& Main);
void FileOpen(frmMain& Main);
void FileSave(frmMain& Main);
void FileSaveAs(frmMain& Main);
void FileExit(frmMain& Main);
void SetSession(frmMain& Main);
void CheckChannels(frmMain& Main);
void DumpChannels(frmMain& Main);
void SetCalibrator(frmMain& Main);

/// Zeroes horizontal angles and handle forces by the counts of the next second, and saves the session. A group without
/// channels is passed over. Gives the names of the channels zeroed.
std::string AutoReZero(frmMain& Main);

/// AutoReZero, once it is confirmed that the sensors are at rest, and a message with the channels that were zeroed.
void AskAutoReZero(frmMain& Main);

void ViewRawFile(frmMain& Main);
void ViewPrimaryFile(frmMain& Main);
void ViewLoggerFile(frmMain& Main);
void ViewScannedFile(frmMain& Main);

void SampleRower(frmMain& Main);
void SampleCatch(frmMain& Main);
void SampleAllPanels(frmMain& Main);
void LogChannels(frmMain& Main);
void ReadLog(frmMain& Main);
void PlayRawRower(frmMain& Main);
void PlayRawCoach(frmMain& Main);
void PlayVideo(frmMain& Main);
void PlayMPEG(frmMain& Main);
void ToggleLog(frmMain& Main);
void ShowHelp(frmMain& Main);
