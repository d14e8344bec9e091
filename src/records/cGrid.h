// A table of texts under column heads with a current row: what a grid window shows and edits.
#pragma once

#include <string>
#include <vector>

class cGrid
{
public:
    cGrid() = default;
    explicit cGrid(std::vector<std::string> ColumnHeads) : Columns(std::move(ColumnHeads)) {}

    const std::vector<std::string>& Heads() const { return Columns; }
    int ColumnCount() const { return static_cast<int>(Columns.size()); }
    int RowCount() const { return static_cast<int>(Rows.size()); }

    /// Text of a cell. Throws RunError outside the table.
    const std::string& Cell(int Row, int Column) const;
    void SetCell(int Row, int Column, const std::string& Text);

    /// The cells of a row, as many as there are columns.
    const std::vector<std::string>& Row(int Index) const;

    /// The row that commands work on, -1 in a table without rows.
    int Current() const { return CurrentRow; }
    void SetCurrent(int Row);

    /// Appends a row and makes it current; cells that are missing are empty, those beyond the columns are dropped.
    void Append(std::vector<std::string> Cells);

    /// Appends a copy of the last row, or an empty one when there is none.
    void AddRow();

    /// Removes the current row; the next one becomes current, without one the last.
    void DeleteRow();

private:
    std::vector<std::string> Columns;
    std::vector<std::vector<std::string>> Rows;
    int CurrentRow = -1;
};
