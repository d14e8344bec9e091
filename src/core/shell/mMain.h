// The order of start-up and shutdown, as far as it needs no window.
#pragma once

#include <string>

/// Makes Folder the program's folder and fills the globals from the settings store and the ini file. False when there
/// is no ini file (told): the defaults hold.
bool StartUp(const std::string& Folder);

/// Reads gCurFile into gFile with all sections and resolves the key and force channels. False when it cannot be read
/// (told).
bool LoadCurrentFile();

/// Makes Path the current session data file and loads it. False when it cannot be read (told).
bool OpenSession(const std::string& Path);

/// Saves what belongs to the program rather than to a session: the ini file and the display settings.
void ShutDown();
