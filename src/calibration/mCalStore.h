// What a failed save of a calibration leaves as it was: channels and tables in memory, table and session on the disk.
#pragma once

#include "core/mGlobData.h"
#include "processing/mRefTable.h"

#include <string>
#include <vector>

/// The channels of the open session with their reference tables, as they were when it was made.
class FormerChannels
{
public:
    /// Makes them those of the session again, without a look at the files of the tables.
    void PutBack() const;

private:
    RowArray<CalibrRow> Rows = gFile.Calibr;
    std::vector<RefTable> Tables = gRefTabs;
    int16_t TableCnt = gRefCnt;
};

/// Writes a reference table and the open session to their files. False when one of them cannot be written (reported to
/// the user): then both files are as they were.
bool WriteTableAndSession(const ComingRefFile& Table, const std::string& Session);
