// Adding and removing rows, and the current row.
#include "records/cGrid.h"

#include "base/mError.h"

#include <algorithm>
#include <utility>

const std::vector<std::string>& cGrid::Row(int Index) const
{
    return At(Rows, Index);
}

const std::string& cGrid::Cell(int Row, int Column) const
{
    return At(At(Rows, Row), Column);
}

void cGrid::SetCell(int Row, int Column, const std::string& Text)
{
    At(At(Rows, Row), Column) = Text;
}

void cGrid::SetCurrent(int Row)
{
    CurrentRow = std::clamp(Row, std::min(0, RowCount() - 1), RowCount() - 1);
}

void cGrid::Append(std::vector<std::string> Cells)
{
    Cells.resize(Columns.size());
    Rows.push_back(std::move(Cells));
    CurrentRow = RowCount() - 1;
}

void cGrid::AddRow()
{
    Append(Rows.empty() ? std::vector<std::string>() : Rows.back());
}

void cGrid::DeleteRow()
{
    if (CurrentRow < 0) return;
    Rows.erase(Rows.begin() + CurrentRow);
    SetCurrent(CurrentRow);
}
