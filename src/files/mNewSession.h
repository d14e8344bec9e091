// A session that takes the place of the open one: written as a new file first, so that a failure keeps what is open.
#pragma once

#include "core/mGlobData.h"

#include <string>

/// Copies the reference tables that channels of File use from folder From, ending in the separator, to folder To. One
/// that is not there is passed over: opening a session reports it. False when one could not be written (reported to the
/// user).
bool CarryRefTables(const DataFile& File, const std::string& From, const std::string& To);

/// Writes New without its samples as a whole new file at Path, with the reference tables of its channels, from
/// RefFolder, beside it, and makes it the open session: its identifier and those of its rows become the title of Path,
/// and all windows are notified. The folder is made when it is not there; a file at Path is backed up. False when a
/// step failed (reported to the user): the open session stays as it was.
bool StartSession(const std::string& Path, DataFile New, const std::string& RefFolder);
