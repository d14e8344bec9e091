// Rows from elsewhere: another session, a comma-separated table, the calibration of sensors by their identifiers.
#pragma once

#include "records/mGridKinds.h"
#include "records/mGridSteps.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Rows that were read, or why they were not.
struct ReadTable
{
    std::vector<GridRow> Rows{};
    std::string Reason{}; // empty: they were read
    std::string Note{};   // what was left out of them
};

/// The rows of a kind of another session. IsEmptyWanted is asked when that session has no such table. Nothing when it
/// cannot be read, or nothing is copied (both reported to the user).
std::optional<std::vector<GridRow>>
RowsOfSession(const GridKind& Kind, const std::string& Path,
              const std::function<bool(const std::string& Question)>& IsEmptyWanted);

/// A table as comma-separated text: the heads, then a record a row.
std::string GridToCsv(const cGrid& Grid);

/// The rows that such a text, the bytes of a file, gives for the columns of Grid, which are found by name. Every value
/// is checked as if it were typed; the reason names line and column.
ReadTable RowsFromCsv(const cGrid& Grid, const std::string& Bytes);

/// The step in which channels take Q0 and Q1 from the channel of Other that has the same sensor and a parameter of the
/// same first letter; the last such channel counts. Taken is how many channels take them.
GridStep ReadIDs(const cGrid& Grid, const RowArray<CalibrRow>& Other, int& Taken);
