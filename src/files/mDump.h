// The dump of raw counts: a text file that gets a line for every frame as long as it is open.
#pragma once

#include <string>

extern bool gDumping; // the dump is open

/// Opens the dump in place of a file of that name and writes its head: "N", "T" and the channel numbers. False when it
/// cannot be written (reported to the user).
bool StartDump(const std::string& Path);

/// Writes the frame in gData: its number from 0, its time and the counts of the session's channels. A dump that cannot
/// be written is closed (reported to the user).
void DumpFrame();

/// Closes the dump, if one is open.
void StopDump();
