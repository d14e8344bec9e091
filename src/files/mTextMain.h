// The two sections of a session data file that hold one record each.
#pragma once

#include "core/mGlobData.h"
#include "files/mTextRows.h"

#include <string>

void ReadMain(LineReader& Lines, DataFile& File);
void ReadSess(LineReader& Lines, DataFile& File);
void AppendMain(std::string& Text, const DataFile& File);
void AppendSess(std::string& Text, const DataFile& File);
