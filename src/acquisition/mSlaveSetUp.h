// The session's slaves and channel rows when the slaves are set up.
#pragma once

#include "core/mGlobData.h"

#include <cstddef>

/// Makes Table Count rows long and keeps the rows that it has: rows are added behind with the ParamID "In" and their
/// number, or the surplus is cut once that is confirmed. False when it is not.
bool FitCalibr(RowArray<CalibrRow>& Table, int16_t Count);

/// Sets the session's slaves to a row of SlaveKinds, HasExtras with two more channels each, fits its channel rows,
/// resolves key and H1 channel, and saves the session. False when the surplus is kept or the file cannot be written
/// (reported to the user): then the session is as before. Windows that show channels hear of another session when
/// its channels are others.
bool SetSlaves(std::size_t Kind, bool HasExtras);
