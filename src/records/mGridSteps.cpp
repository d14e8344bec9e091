// Steps of rows, and steps of cells.
#include "records/mGridSteps.h"

#include "base/mError.h"
#include "base/mNumText.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace {
std::vector<GridRow> Run(const cGrid& Grid, int First, int Last)
{
    return {Grid.Rows().begin() + First, Grid.Rows().begin() + Last + 1};
}

std::string EmptyText(const GridColumn& Column)
{
    return IsNumeric(Column) ? "0" : "";
}

// "Row 3, Seat: is no number"
std::string Placed(const cGrid& Grid, int Row, int Column, const std::string& Reason)
{
    return "Row " + FormatNum(Row + 1, "0") + ", " + At(Grid.Columns(), Column).Head + ": " + Reason;
}

// Takes a cell of copied text up to the tab or the line's end behind it. Programs put those in quotes that hold either.
std::string TakePasted(std::string_view& Text)
{
    std::string Cell;
    if (Text.starts_with('"')) {
        std::string_view Rest = Text.substr(1);
        for (auto End = Rest.find('"'); End != std::string_view::npos; End = Rest.find('"')) {
            Cell += Rest.substr(0, End);
            Rest.remove_prefix(End + 1);
            if (Rest.empty() || Rest[0] == '\t' || Rest[0] == '\n') {
                Text = Rest;
                return Cell;
            }
            if (Rest.starts_with('"')) Rest.remove_prefix(1);
            Cell += '"';
        }
    }
    const auto End = std::min(Text.find_first_of("\t\n"), Text.size());
    Cell = Text.substr(0, End);
    Text.remove_prefix(End);
    return Cell;
}

std::vector<std::vector<std::string>> CutPasted(std::string Words)
{
    std::erase(Words, '\r');
    if (Words.ends_with('\n')) Words.pop_back();
    std::vector<std::vector<std::string>> Lines(1);
    for (std::string_view Text = Words;; Text.remove_prefix(1)) {
        Lines.back().push_back(TakePasted(Text));
        if (Text.empty()) return Lines;
        if (Text[0] == '\n') Lines.emplace_back();
    }
}

// Behind the last row, with as many empty ones as the changes need.
GridStep ChangeAndAdd(const cGrid& Grid, const std::vector<CellChange>& Changes, int RowCount)
{
    GridStep Step =
        ChangeCells(Grid, {Changes.begin(), std::find_if(Changes.begin(), Changes.end(), [&](const CellChange& Each) {
                               return Each.Row >= Grid.RowCount();
                           })});
    if (RowCount <= Grid.RowCount()) return Step;
    const int First = Step.Out.empty() ? Grid.RowCount() : Step.First;
    Step.First = Step.Current = First;
    const int Behind = First + static_cast<int>(Step.Out.size());
    const auto Rest = Behind < Grid.RowCount() ? Run(Grid, Behind, Grid.RowCount() - 1) : std::vector<GridRow>();
    for (std::vector<GridRow>* Side : {&Step.Out, &Step.In})
        Side->insert(Side->end(), Rest.begin(), Rest.end());
    Step.In.resize(static_cast<std::size_t>(RowCount - First), EmptyRow(Grid));
    for (const CellChange& Each : Changes)
        if (Each.Row >= Grid.RowCount()) At(At(Step.In, Each.Row - First).Cells, Each.Column) = Each.Text;
    return Step;
}
} // namespace

GridStep ChangeCells(const cGrid& Grid, const std::vector<CellChange>& Changes)
{
    if (Changes.empty()) return {.Current = Grid.Current()};
    const auto [Lowest, Highest] = std::minmax_element(
        Changes.begin(), Changes.end(), [](const CellChange& A, const CellChange& B) { return A.Row < B.Row; });
    GridStep Step{Lowest->Row, Run(Grid, Lowest->Row, Highest->Row), {}, Lowest->Row};
    Step.In = Step.Out;
    for (const CellChange& Each : Changes)
        if (At(Grid.Columns(), Each.Column).Kind != eCell::RowNumber)
            At(At(Step.In, Each.Row - Step.First).Cells, Each.Column) = Each.Text;
    return Step;
}

GridStep ReplaceRows(const cGrid& Grid, std::vector<GridRow> Rows)
{
    return {0, Grid.Rows(), std::move(Rows), Grid.Current()};
}

GridRow EmptyRow(const cGrid& Grid)
{
    GridRow Row;
    for (const GridColumn& Column : Grid.Columns())
        Row.Cells.push_back(EmptyText(Column));
    return Row;
}

GridStep InsertRow(const cGrid& Grid, int Behind)
{
    if (Grid.RowCount() == 0) return {0, {}, {EmptyRow(Grid)}};
    return {Behind + 1, {}, {Grid.Row(Behind)}, Behind + 1};
}

GridStep DeleteRows(const cGrid& Grid, const std::vector<int>& Rows)
{
    if (Rows.empty()) return {.Current = Grid.Current()};
    GridStep Step{Rows.front(), Run(Grid, Rows.front(), Rows.back()), {}, Rows.front()};
    for (int Row = Rows.front(); Row <= Rows.back(); ++Row)
        if (!std::binary_search(Rows.begin(), Rows.end(), Row)) Step.In.push_back(Grid.Row(Row));
    return Step;
}

GridStep MoveRows(const cGrid& Grid, int First, int Last, int By)
{
    const int Low = By < 0 ? First - 1 : First;
    const int High = By < 0 ? Last : Last + 1;
    if (Low < 0 || High >= Grid.RowCount() || First > Last) return {.Current = Grid.Current()};
    GridStep Step{Low, Run(Grid, Low, High), {}, Grid.Current() + By};
    Step.In = Step.Out;
    std::rotate(Step.In.begin(), By < 0 ? Step.In.begin() + 1 : Step.In.end() - 1, Step.In.end());
    return Step;
}

GridEdit FillDown(const cGrid& Grid, const GridBlock& Block)
{
    std::vector<CellChange> Changes;
    if (Block.Rows.size() < 2) return {{}, "Mark the cell to copy and the cells below it first."};
    for (std::size_t i = 1; i < Block.Rows.size(); ++i)
        for (const int Column : Block.Columns)
            Changes.push_back({Block.Rows[i], Column, Grid.Cell(Block.Rows[0], Column)});
    return {ChangeCells(Grid, Changes), {}};
}

GridEdit ClearCells(const cGrid& Grid, const GridBlock& Block)
{
    std::vector<CellChange> Changes;
    for (const int Row : Block.Rows)
        for (const int Column : Block.Columns) {
            std::string Text = EmptyText(At(Grid.Columns(), Column));
            Changes.push_back({Row, Column, Text});
        }
    return {ChangeCells(Grid, Changes), {}};
}

std::string BlockText(const cGrid& Grid, const GridBlock& Block)
{
    std::string Text;
    for (const int Row : Block.Rows) {
        for (std::size_t i = 0; i < Block.Columns.size(); ++i)
            Text.append(i == 0 ? "" : "\t").append(Grid.Cell(Row, Block.Columns[i]));
        Text += '\n';
    }
    return Text;
}

GridEdit PasteBlock(const cGrid& Grid, const GridBlock& Block, const std::vector<int>& Shown, const std::string& Text)
{
    const auto Lines = CutPasted(Text);
    const int Left = Block.Columns.empty() ? 0 : Block.Columns[0];
    const auto Top = std::lower_bound(Shown.begin(), Shown.end(), Block.Rows.empty() ? 0 : Block.Rows[0]);
    const bool IsOne = Lines.size() == 1 && Lines[0].size() == 1 && !Block.IsEmpty();
    const std::size_t Height = IsOne ? Block.Rows.size() : Lines.size();
    int RowCount = Grid.RowCount();
    std::vector<CellChange> Changes;
    for (std::size_t i = 0; i < Height; ++i) {
        const auto& Cells = IsOne ? Lines[0] : Lines[i];
        const std::size_t Width = IsOne ? Block.Columns.size() : Cells.size();
        if (Left + static_cast<int>(Width) > Grid.ColumnCount())
            return {{}, "What is to be pasted is wider than the table from this column on."};
        const bool IsThere = static_cast<std::ptrdiff_t>(i) < Shown.end() - Top;
        const int Row = IsOne ? Block.Rows[i] : IsThere ? Top[static_cast<std::ptrdiff_t>(i)] : RowCount++;
        for (std::size_t j = 0; j < Width; ++j) {
            const int Column = Left + static_cast<int>(j);
            CellChange Change{Row, Column, IsOne ? Cells[0] : Cells[j]};
            if (At(Grid.Columns(), Column).Kind == eCell::RowNumber) continue;
            if (const std::string Reason = Grid.Take(Column, Change.Text, eFrom::Typed); !Reason.empty())
                return {{}, Placed(Grid, Row, Column, Reason) + ". Nothing was pasted."};
            Changes.push_back(std::move(Change));
        }
    }
    return {ChangeAndAdd(Grid, Changes, RowCount), {}};
}

std::vector<int> FirstWithSame(const cGrid& Grid, int Column)
{
    std::vector<int> First;
    std::unordered_map<std::string, int> Known;
    for (int Row = 0; Row < Grid.RowCount(); ++Row) {
        const std::string& Text = At(Grid.Row(Row).Cells, Column);
        First.push_back(Text.empty() ? Row : Known.emplace(Text, Row).first->second);
    }
    return First;
}
