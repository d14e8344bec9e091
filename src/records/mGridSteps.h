// The changes that a user makes in a table: each function gives the step, which cGrid::Do makes.
#pragma once

#include "records/cGrid.h"

#include <string>
#include <vector>

/// A new text for a cell.
struct CellChange
{
    int Row = 0;
    int Column = 0;
    std::string Text;
};

/// The rows and columns of a block of cells, both in ascending order; rows that are not shown are not among them.
struct GridBlock
{
    std::vector<int> Rows;
    std::vector<int> Columns;

    bool IsEmpty() const { return Rows.empty() || Columns.empty(); }
};

/// What a command makes of a table: a step, or why there is none.
struct GridEdit
{
    GridStep Step{};
    std::string Reason{};
};

/// Puts texts into cells as they are. Those for row numbers are left out.
GridStep ChangeCells(const cGrid& Grid, const std::vector<CellChange>& Changes);

/// Puts rows in the place of all that there are.
GridStep ReplaceRows(const cGrid& Grid, std::vector<GridRow> Rows);

/// Adds a copy of row Behind behind it; to a table without rows an empty one.
GridStep InsertRow(const cGrid& Grid, int Behind);

/// Deletes rows, in ascending order; the next one becomes current, without one the last.
GridStep DeleteRows(const cGrid& Grid, const std::vector<int>& Rows);

/// Moves a run of rows up (-1) or down (1) by one. Nothing at either end.
GridStep MoveRows(const cGrid& Grid, int First, int Last, int By);

/// A row whose numbers are 0 and whose texts are empty.
GridRow EmptyRow(const cGrid& Grid);

/// Copies the top row of a block over those below it.
GridEdit FillDown(const cGrid& Grid, const GridBlock& Block);

/// Makes the cells of a block empty, numbers 0.
GridEdit ClearCells(const cGrid& Grid, const GridBlock& Block);

/// The cells of a block as other programs exchange them: tabs between cells, a line a row.
std::string BlockText(const cGrid& Grid, const GridBlock& Block);

/// Puts such a text into the cells from the block's first one on, into rows of Shown, the rows that are shown. One cell
/// fills the whole block. Rows that the table lacks are added behind it. Nothing is pasted when a cell does not take
/// its text, or the text is wider than the table.
GridEdit PasteBlock(const cGrid& Grid, const GridBlock& Block, const std::vector<int>& Shown, const std::string& Text);

/// The first row with the same text as row i in a column, by row; the row itself where none is above it, and for an
/// empty text.
std::vector<int> FirstWithSame(const cGrid& Grid, int Column);
