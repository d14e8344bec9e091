// What reading a session data file gives, until it is whole and takes the place of what was there.
#pragma once

#include "core/mGlobData.h"
#include "processing/mRefTable.h"

#include <string>

/// The dimensions of the oar in files with Model 0 and 1, which hold them once for all seats.
struct OldOars
{
    float Inboard = 0;
    float OarLen = 0;
    float BladeLen = 0;
};

/// A session in reading. It begins as a copy of what is there, since what the file does not name stays. What stands
/// beside the record counts for the open session alone, not for a file that rows are taken from.
struct LoadedSession
{
    bool IsOpen = false; // read for the open session
    std::string SessID;  // identifier that each row gets
    std::string Folder;  // of its reference tables
    DataFile File;
    OldOars Oars;
    int16_t KeyMode = 0;
    RefTableSet Tables;
    RowArray<DotRow> Dots;
    RowArray<SegRow> Segs;
    RowArray<VideoIDRow> VideoID;
    RowArray<VidCoordsRow> Coords;
    RowArray<VidCoordsRow> Angles;
    std::string BrokenOff; // where the file ends too soon, in words; empty when it is whole
    int Dropped = 0;       // lines of samples' values that were left out
};

/// Begins the reading of a file into File.
LoadedSession BeginLoading(const DataFile& File, std::string SessID, std::string Folder);

/// Puts what was read in place of File; for the open session also the globals beside it. Cannot fail.
void Publish(LoadedSession&& Read, DataFile& File);
