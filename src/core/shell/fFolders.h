// Where the program keeps its files and finds its demonstration.
#pragma once

#include <string>

/// The program's folder, with the separator behind it: the executable's folder when it is writable or has an ini file,
/// otherwise the folder for the user's data, which is made.
std::string ProgramFolder(const std::string& ExecutableFolder, const std::string& UserFolder);

/// Copies the demonstration sessions found in From into the folder "demo" of the program's folder, without replacing
/// any, and gives the path of the eight's; empty when it is not there.
std::string CopyDemo(const std::string& From, const std::string& Folder);

/// After a first start without an ini file: offers the demonstration session and makes it the current one.
void OfferDemo(const std::string& From, const std::string& Folder);
