// The sections with a row of values for each sample and channel: Data, STD and Models.
#pragma once

#include "core/mGlobData.h"
#include "core/mTextRows.h"

#include <string>
#include <string_view>

/// Reads rows whose sample is known from Desc and which hold as many values as it says; others are dropped. Each gets
/// SessID. Gives the number of lines that were dropped.
int ReadSampleRows(LineReader& Lines, const DataFile& File, const std::string& SessID, RowArray<DataRow>& Rows);

/// Appends a section; rows of unknown samples and of samples with a count below 1 are left out.
void AppendSampleRows(std::string& Text, std::string_view Keyword, const DataFile& File, const RowArray<DataRow>& Rows);
