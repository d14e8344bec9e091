// The kinds of tables that the record grid edits: one table of kinds, with columns, captions and help.
#pragma once

#include "core/mGlobData.h"
#include "records/cGrid.h"

#include <functional>
#include <span>
#include <string>

/// Puts the rows of a grid in the place of the records that the grid was filled from. A field whose text was not
/// changed keeps its value with all its digits.
using GridStoring = std::function<void(const cGrid& Grid, DataFile& File)>;

struct GridKind
{
    const char* Name;    // "Calibr"
    const char* Section; // keyword in the session data file; null: the file does not hold it
    const char* Caption;
    const char* Tips;                                 // lines of help
    const char* Frozen;                               // head of the last column that stays in sight; null: none does
    GridStoring (*Load)(DataFile& File, cGrid& Grid); // fills Grid with the records' texts
};

/// All kinds. "View5" lives in memory alone, "Antro" in a file of its own, the others in the session data file.
std::span<const GridKind> AllGridKinds();

/// The kind of that name, null when there is none.
const GridKind* FindGridKind(const std::string& Name);

/// Whether the records of a kind stand beside the session's: "Dots", "Segs" and "Antro". Another session's are not
/// read.
bool IsBesideFile(const GridKind& Kind);

/// The texts of a crew row as the grid has them, and the row of such texts, made of Former where they are the same.
std::vector<std::string> CrewTexts(const CrewRow& Row);
CrewRow CrewFromTexts(const std::vector<std::string>& Texts, const CrewRow& Former = {});
