// The two sections of a session data file that hold one record each.
#pragma once

#include "core/mTextRows.h"
#include "files/mLoadedSession.h"

#include <string>

void ReadMain(LineReader& Lines, LoadedSession& Into);
void ReadSess(LineReader& Lines, LoadedSession& Into);
void AppendMain(std::string& Text, const DataFile& File);
void AppendSess(std::string& Text, const DataFile& File);
