// A table of texts that is edited in steps, each of which can be taken back and done again: what a grid window shows.
#pragma once

#include "records/mColumn.h"

#include <optional>
#include <string>
#include <vector>

/// A row. Origin is the record that it was made from, 0 for none: it goes with the row, and with its copies.
struct GridRow
{
    std::vector<std::string> Cells;
    int Origin = 0;

    bool operator==(const GridRow&) const = default;
};

/// The rows from First on that a change takes out, and those that it puts in their place. Every change is one of these.
struct GridStep
{
    int First = 0;
    std::vector<GridRow> Out{};
    std::vector<GridRow> In{};
    int Current = 0; // the row to go to
    int Former = 0;  // the row to go to when it is taken back

    bool IsNothing() const { return Out == In; }
    GridStep Reversed() const { return {First, In, Out, Former, Current}; }
};

class cGrid
{
public:
    cGrid() = default;
    explicit cGrid(std::vector<GridColumn> InitColumns) : ColumnList(std::move(InitColumns)) {}

    const std::vector<GridColumn>& Columns() const { return ColumnList; }
    std::vector<GridColumn>& Columns() { return ColumnList; }
    int ColumnCount() const { return static_cast<int>(ColumnList.size()); }
    int RowCount() const { return static_cast<int>(RowList.size()); }

    /// Index of the column with that head, -1 when there is none.
    int FindColumn(const std::string& Head) const;

    /// Text of a cell. Throws RunError outside the table.
    std::string Cell(int Row, int Column) const;

    const GridRow& Row(int Index) const;
    const std::vector<GridRow>& Rows() const { return RowList; }

    /// Makes Text what a cell of a column takes. Gives why it takes none, empty when it does.
    std::string Take(int Column, std::string& Text, eFrom From) const;

    /// The row that commands work on, -1 in a table without rows.
    int Current() const { return CurrentRow; }
    void SetCurrent(int Row);

    /// Fills the table: it is a new one, with no steps behind it.
    void Fill(std::vector<GridRow> Rows);

    /// Makes a change. One that changes nothing is no step. Throws RunError when Out is not what stands there.
    void Do(GridStep Step);

    /// The change that Undo and Redo would make; nothing when there is none.
    std::optional<GridStep> NextUndo() const;
    std::optional<GridStep> NextRedo() const;

    /// Takes the last change back, or does the last one taken back again. False when there is none.
    bool Undo();
    bool Redo();

    /// Whether the table is another than at first or at the last SetSaved.
    bool IsChanged() const { return Done != Saved; }
    void SetSaved() { Saved = Done; }

    /// Another number after each change.
    int Version() const { return Changes; }

private:
    void Apply(const GridStep& Step);

    std::vector<GridColumn> ColumnList;
    std::vector<GridRow> RowList;
    int CurrentRow = -1;
    std::vector<GridStep> Steps; // those from Done on have been taken back
    int Done = 0;
    int Saved = 0; // -1: the saved table can no longer be reached
    int Changes = 0;
};
