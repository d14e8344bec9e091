// The history of a table.
#include "records/cGrid.h"

#include "base/mError.h"
#include "base/mNumText.h"

#include <algorithm>
#include <utility>

int cGrid::FindColumn(const std::string& Head) const
{
    const auto Found =
        std::find_if(ColumnList.begin(), ColumnList.end(), [&](const GridColumn& Each) { return Each.Head == Head; });
    return Found == ColumnList.end() ? -1 : static_cast<int>(Found - ColumnList.begin());
}

const GridRow& cGrid::Row(int Index) const
{
    return At(RowList, Index);
}

std::string cGrid::Cell(int Row, int Column) const
{
    if (At(ColumnList, Column).Kind == eCell::RowNumber) return FormatNum(Row + 1, "0");
    return At(At(RowList, Row).Cells, Column);
}

std::string cGrid::Take(int Column, std::string& Text, eFrom From) const
{
    const GridColumn& Into = At(ColumnList, Column);
    return Into.Rule ? Into.Rule(Into, Text, From) : std::string();
}

void cGrid::SetCurrent(int Row)
{
    CurrentRow = std::clamp(Row, std::min(0, RowCount() - 1), RowCount() - 1);
}

void cGrid::Fill(std::vector<GridRow> Rows)
{
    RowList = std::move(Rows);
    for (GridRow& Each : RowList)
        Each.Cells.resize(ColumnList.size());
    Steps.clear();
    Done = Saved = 0;
    ++Changes;
    SetCurrent(0);
}

void cGrid::Do(GridStep Step)
{
    if (Step.IsNothing()) return SetCurrent(Step.Current);
    for (GridRow& Each : Step.In)
        Each.Cells.resize(ColumnList.size());
    Step.Former = std::max(0, CurrentRow);
    Apply(Step);
    if (Saved > Done) Saved = -1;
    Steps.resize(static_cast<std::size_t>(Done));
    Steps.push_back(std::move(Step));
    ++Done;
}

std::optional<GridStep> cGrid::NextUndo() const
{
    if (Done == 0) return {};
    return At(Steps, Done - 1).Reversed();
}

std::optional<GridStep> cGrid::NextRedo() const
{
    if (Done == static_cast<int>(Steps.size())) return {};
    return At(Steps, Done);
}

bool cGrid::Undo()
{
    const auto Step = NextUndo();
    if (!Step) return false;
    Apply(*Step);
    --Done;
    return true;
}

bool cGrid::Redo()
{
    const auto Step = NextRedo();
    if (!Step) return false;
    Apply(*Step);
    ++Done;
    return true;
}

void cGrid::Apply(const GridStep& Step)
{
    const auto Out = static_cast<int>(Step.Out.size());
    if (Step.First < 0 || Step.First + Out > RowCount()) throw RunError("Index out of range");
    const auto First = RowList.begin() + Step.First;
    if (!std::equal(Step.Out.begin(), Step.Out.end(), First)) throw RunError("The table has changed");
    const auto Behind = RowList.erase(First, First + Out);
    RowList.insert(Behind, Step.In.begin(), Step.In.end());
    ++Changes;
    SetCurrent(Step.Current);
}
