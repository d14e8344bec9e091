// The zero of reference tables: a table is shifted so that the channel's logical zero reads 0.
#pragma once

#include "processing/mRefTable.h"

/// Shifts the table of a channel of ProcMode 4, as its file has it, by its output at the channel's Log0. Sets the row's
/// Min and Max from the table's ends. On sides 2 and 4 the output changes its sign; a channel without a side keeps the
/// table as it is.
void ShiftRefTable(CalibrRow& Row, RefTable& Table);

/// Reads the channel's table again from its file and shifts it, so that doing it twice gives what doing it once gives.
/// False when the table cannot be read (reported to the user): it is as it was.
bool ZeroRefTable(int Chan);

/// ZeroRefTable for each channel of ProcMode 4 that has a logical zero; a Log0 of 0 says that none was set.
void ZeroAllRefTables();
