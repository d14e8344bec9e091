// Saving pieces of what the data view shows: frames as a recording of their own, samples as text, the stroke table.
#pragma once

#include "views/data/mViewLoad.h"

#include <cstdint>
#include <string>

extern double gDistInp; // m, distance typed in
extern double gTimeInp; // s, time typed in

/// Copies the frames of samples Start to Stop into a new recording; asks for the file. False when cancelled or failed
/// (reported to the user): no file is changed.
bool SaveFrames(int32_t Start, int32_t Stop, const FrameMap& Map);

/// Copies the frames between two rows of gScanRows into a new recording; asks for the file. The rows' times go to
/// gScanStart and gScanStop. False when cancelled or failed (reported to the user).
bool SaveRows(int FirstRow, int LastRow);

/// Name for a text export of a stretch: the recording's and the stretch's, in the session's folder.
std::string ExportName(const ViewData& Data, int32_t Start, int32_t Stop);

/// Writes samples Start to Stop as text; asks for the file. False when cancelled or failed (reported to the user).
bool ExportSamples(const ViewData& Data, int32_t Start, int32_t Stop);

/// Writes gScanRows beside the session, under its name with ".str". False when that fails (reported to the user).
bool SaveStrokes();
