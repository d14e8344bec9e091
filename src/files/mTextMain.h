// The two sections of a session data file that hold one record each.
#pragma once

#include "core/mGlobData.h"
#include "core/mTextRows.h"

#include <string>

/// Whether File is the open session data file: what stands outside the record is read for it alone, not for a file
/// that rows are taken from.
inline bool IsOpenFile(const DataFile& File)
{
    return &File == &gFile;
}

void ReadMain(LineReader& Lines, DataFile& File);
void ReadSess(LineReader& Lines, DataFile& File);
void AppendMain(std::string& Text, const DataFile& File);
void AppendSess(std::string& Text, const DataFile& File);
