// The sections of coordinates and angles of old files with digitised video, which are read and never written.
#pragma once

#include "core/mGlobData.h"
#include "core/mTextRows.h"

void ReadVideoPoints(LineReader& Lines, RowArray<VidCoordsRow>& Rows);
