// The document behind a record grid: the rows of one kind, edited apart from the session until they are stored.
#pragma once

#include "records/cCrewDB.h"
#include "records/mGridImport.h"
#include "records/mGridKinds.h"
#include "records/mGridSteps.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class cDataGrid
{
public:
    explicit cDataGrid(const GridKind& InitKind);

    const GridKind& Kind;
    cGrid Grid;   // what is edited
    cCrewDB Crew; // rowers' database; of the kind "Crew" alone

    /// Fills the grid from the session, or from the kind's own file. False when that cannot be read (reported to the
    /// user).
    bool Load();

    /// Whether the session's rows are others than those that the grid was filled with or stored last.
    bool IsStale() const;

    /// Puts the rows into the session and calls Write; see StoreGrid.
    bool Store(const std::function<bool()>& Write) const;

    /// Stores the rows and writes the session behind its backup copy, or the kind's own file; the rowers' database too,
    /// if it was changed. Asks when the session's rows were changed elsewhere meanwhile. False when the user does not
    /// want it, or it fails (reported to the user): everything is as it was.
    bool Save();

    /// Makes Path the session data file and writes the session to it, without its samples. False as above.
    bool SaveAs(const std::string& Path);

    /// The step that puts rows of another session, or of a comma-separated table, in the place of all that there are;
    /// IsEmptyWanted is asked when that session has no such table. Nothing when that fails (reported to the user).
    std::optional<GridStep> Import(const std::string& Path,
                                   const std::function<bool(const std::string& Question)>& IsEmptyWanted) const;

    /// The step in which channels take the calibration of their sensors from another session. Nothing when it cannot
    /// be read (reported to the user).
    std::optional<GridStep> ReadIDs(const std::string& Path, int& Taken) const;

    /// What is to be remarked about a cell: that a row above has the same where no two should. Empty: nothing.
    std::string Remark(int Row, int Column);

    /// Writes the table as comma-separated text. False when that fails (reported to the user).
    bool Export(const std::string& Path) const;

private:
    bool Write();
    void TakeStored();

    GridStoring Storing;
    std::vector<std::vector<int>> FirstSame; // by column that is a key, in the version of the table below
    int SameVersion = -1;
    std::vector<GridRow> Present; // as the session has them
    std::vector<GridRow> Loaded;  // by their origin, from 1: as they were loaded, or last stored
};

/// Whether a file is a comma-separated table, by its name.
bool IsCsvName(const std::string& Path);

/// The step in which rows of a crew's grid take the newest measurements of their rowers, or why there is none. What was
/// not measured stays as it is.
GridEdit TakeNewestAntro(const cGrid& Crew, const std::vector<int>& Rows);
