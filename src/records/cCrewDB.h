// The rowers' database: crew rows of all sessions, in a text file that a setting names.
#pragma once

#include "base/mCodePage.h"
#include "core/mGlobData.h"
#include "records/cGrid.h"

#include <string>
#include <vector>

class cCrewDB
{
public:
    /// Reads the file that gRowersDBFN names. Offers to make a missing one, and asks for its name where the setting has
    /// none. False when there is no database then, or the file is none (reported to the user).
    bool Read();

    /// Whether it was read.
    bool IsOpen() const { return IsRead; }

    const RowArray<CrewRow>& Rows() const { return Table; }

    /// Takes the rowers of a crew's grid into the database: asks before a rower of the same name is written over. Gives
    /// how many were taken.
    int Export(const cGrid& Crew);

    /// The texts of a row of the grid, which keeps its place in the boat, with those of rower Index, from 1.
    GridRow Rower(int Index, const GridRow& Place) const;

    bool IsChanged() const { return HasChanges; }

    /// Writes the file, behind a backup copy, if anything was changed. False when that fails (reported to the user).
    bool Write();

private:
    bool AskForFile() const;
    bool Make() const;
    bool Parse(const std::string& Bytes);

    RowArray<CrewRow> Table;
    TextEncoding Encoding = TextEncoding::Ascii;
    bool IsRead = false;
    bool HasChanges = false;
};
