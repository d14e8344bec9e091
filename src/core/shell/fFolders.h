// Where the program keeps its files and finds its demonstration.
#pragma once

#include <string>
#include <vector>

/// The program's folder, with the separator behind it: the executable's folder when it is writable or has an ini file,
/// otherwise the folder for the user's data, which is made.
std::string ProgramFolder(const std::string& ExecutableFolder, const std::string& UserFolder);

/// Copies the demonstration sessions found in From into the folder "demo" of the program's folder, without replacing
/// any, and gives the path of the eight's; empty when it is not there.
std::string CopyDemo(const std::string& From, const std::string& Folder);

/// A folder that came with the program: beside it, in an installed one, or in the source tree, whose build folders lie
/// within it. Holds is a file that is in it. Empty when it is not there.
std::string FindShipped(const std::string& ExecutableFolder, const std::string& Name, const std::string& Holds);

/// Where templates of sessions are: those that came with the program, and the user's own folder in the program's.
std::vector<std::string> TemplateFolders(const std::string& ExecutableFolder);

/// After a first start without an ini file: offers the demonstration session and makes it the current one.
void OfferDemo(const std::string& From, const std::string& Folder);
