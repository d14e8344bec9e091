// The order of start-up and shutdown, as far as it needs no window.
#pragma once

#include <string>

/// Makes Folder the program's folder and fills the globals from the settings store and the ini file. False when there
/// is no ini file (reported to the user): the defaults hold.
bool StartUp(const std::string& Folder);

/// Reads gCurFile into gFile with all sections and resolves the key and force channels. False when it cannot be read
/// (reported to the user); the former session stays, also when reading ends in an exception.
bool LoadCurrentFile();

/// Loads Path, makes it the current session data file and notifies all windows. False when it cannot be read (reported
/// to the user); the former session stays, also when reading ends in an exception.
bool OpenSession(const std::string& Path);

/// Saves what belongs to the program rather than to a session: the ini file and the display settings.
void ShutDown();
