// Blocks of the table: where they part, what stands above their columns, and their cells.
#include "views/report/cReportTable.h"

#include "views/report/mPageText.h"

#include <algorithm>
#include <array>

namespace {
constexpr int Letters = 12;
constexpr int SmallLetters = 10;
constexpr double LineHeight = TableLineHeight, HeadHeight = TableHeadHeight;
constexpr double MostKey = 96;  // width of a column
constexpr double MostGap = 70;  // between blocks
constexpr double UnitRoom = 24; // of a unit beside its value
constexpr double CellEdge = 8;

struct Function
{
    const char* Key;
    const char* Name;
};
constexpr std::array<Function, 6> Functions = {
    {{"MinX", "Min"}, {"MaxX", "Max"}, {"DelX", "Range"}, {"MinY", "Min"}, {"MaxY", "Max"}, {"DelY", "Range"}}};

// Place of a key among the columns; unknown ones stand behind.
std::size_t OrderOf(const std::string& Key)
{
    const auto* const Found =
        std::find_if(Functions.begin(), Functions.end(), [&](const Function& Each) { return Key == Each.Key; });
    return static_cast<std::size_t>(Found - Functions.begin());
}

bool IsOf(char Axis, const std::string& Key)
{
    return OrderOf(Key) < Functions.size() && Key.back() == Axis;
}
} // namespace

cReportTable::Block cReportTable::MakeBlock(const TablePart& Part) const
{
    Block Result{Part, {}, {}, {}, Layout.NameWidth(Part)};
    for (std::size_t i = Part.From; i < Part.To; ++i) {
        const ReportLine& Line = Lines[i];
        for (const RowValue& Value : Line.Values) {
            if (Result.ColumnOf(Value.Key) == Result.Columns.size())
                Result.Columns.push_back({Value.Key, Value.Key, true});
            if (IsOf('X', Value.Key)) Result.X = Result.X ? Common(*Result.X, Line.X) : Line.X;
            if (IsOf('Y', Value.Key)) Result.Y = Result.Y ? Common(*Result.Y, Line.Y) : Line.Y;
        }
    }
    std::stable_sort(Result.Columns.begin(), Result.Columns.end(),
                     [](const Column& A, const Column& B) { return OrderOf(A.Key) < OrderOf(B.Key); });
    for (Column& Each : Result.Columns) {
        const auto& What = IsOf('X', Each.Key) ? Result.X : Result.Y;
        if (OrderOf(Each.Key) == Functions.size() || !What) continue;
        Each.HasUnits = AxisText(*What).empty();
        if (!Each.HasUnits || !Result.X || !Result.Y) Each.Head = Functions[OrderOf(Each.Key)].Name;
    }
    return Result;
}

std::size_t cReportTable::Block::ColumnOf(const std::string& Key) const
{
    const auto Found =
        std::find_if(Columns.begin(), Columns.end(), [&](const Column& Each) { return Each.Key == Key; });
    return static_cast<std::size_t>(Found - Columns.begin());
}

// The name and unit of what a part of the columns shows, with a line below from the first of them to the last.
void cReportTable::DrawSpan(iSurface& Surface, const Block& Each, char Axis, double First, double KeyWidth,
                            double Top) const
{
    const auto& What = Axis == 'X' ? Each.X : Each.Y;
    const auto IsMine = [Axis](const Column& Mine) { return IsOf(Axis, Mine.Key); };
    const auto Count = std::count_if(Each.Columns.begin(), Each.Columns.end(), IsMine);
    const auto Start = std::find_if(Each.Columns.begin(), Each.Columns.end(), IsMine);
    if (!What || AxisText(*What).empty()) return;
    const double Left = First + KeyWidth * static_cast<double>(Start - Each.Columns.begin()) + 10;
    const double Right = Left - 10 + KeyWidth * static_cast<double>(Count) - CellEdge;
    const double Room = Right - Left + (Count == 1 ? 12 : 0);
    const std::string Text = Surface.TextWidth(AxisText(*What), SmallLetters) <= Room ? AxisText(*What) : What->Unit;
    Surface.SetFont(SmallLetters);
    Surface.SetPen(InkSoft);
    if (Count == 1) return Surface.Text(Right, Top, Text, eAlign::Right);
    Surface.Text((Left + Right) / 2, Top, Fitting(Surface, Text, SmallLetters, Room), eAlign::Centre);
    Surface.SetPen(InkLine);
    Surface.Line(Left, Top + 14, Right, Top + 14);
}

// Columns of one quantity have its name and unit above them; otherwise each value has its unit beside it.
void cReportTable::DrawHead(iSurface& Surface, const Block& Each, double Left, double KeyWidth, double Top) const
{
    const double First = Left + Each.NameWidth;
    for (const char Axis : {'X', 'Y'})
        DrawSpan(Surface, Each, Axis, First, KeyWidth, Top);
    Surface.SetFont(Letters, true);
    Surface.SetPen(InkText);
    double Right = First - CellEdge;
    for (const Column& One : Each.Columns) {
        Right += KeyWidth;
        Surface.Text(Right - (One.HasUnits ? UnitRoom : 0), Top + HeadHeight - LineHeight, One.Head, eAlign::Right);
    }
    Surface.SetPen(InkLine);
    Surface.Line(Left, Top + HeadHeight - 2, Right + CellEdge, Top + HeadHeight - 2);
}

void cReportTable::DrawLine(iSurface& Surface, const Block& Each, const ReportLine& Line, double Left, double KeyWidth,
                            double Y) const
{
    Surface.SetPen(InkText);
    Surface.SetFont(Letters);
    Surface.Text(Left + CellEdge, Y, FittingName(Surface, Line.ID, Letters, Each.NameWidth - CellEdge));
    for (const RowValue& Value : Line.Values) {
        const std::size_t k = Each.ColumnOf(Value.Key);
        const bool HasUnit = Each.Columns[k].HasUnits;
        const double Right =
            Left + Each.NameWidth + KeyWidth * static_cast<double>(k + 1) - CellEdge - (HasUnit ? UnitRoom : 0);
        Surface.SetFont(Letters);
        Surface.SetPen(InkText);
        Surface.Text(Right, Y, ValueText(Value), eAlign::Right);
        if (!HasUnit) continue;
        Surface.SetFont(SmallLetters);
        Surface.SetPen(InkSoft);
        Surface.Text(Right + 3, Y + 2, ValueUnit(Line, Value));
    }
}

void cReportTable::DrawBlock(iSurface& Surface, const Block& Each, double Left, double KeyWidth, double Top) const
{
    const double Right = Left + Each.NameWidth + KeyWidth * static_cast<double>(Each.Columns.size());
    DrawHead(Surface, Each, Left, KeyWidth, Top);
    double Y = Top + HeadHeight;
    for (std::size_t i = Each.Part.From; i < Each.Part.To; ++i, Y += LineHeight) {
        Surface.SetPen(InkBand);
        Surface.SetFill(InkBand);
        if ((i - Each.Part.From) % 2 == 1) Surface.Box(Left, Y - 1, Right, Y + LineHeight - 2);
        DrawLine(Surface, Each, Lines[i], Left, KeyWidth, Y + 1);
    }
}

// Read down each block, then on to the next. The blocks take the whole width between them.
void cReportTable::Draw(iSurface& Surface, std::size_t From, std::size_t To, const PlotRect& Place) const
{
    if (From >= To) return;
    std::vector<Block> Blocks;
    double Names = 0, Columns = 0;
    for (const TablePart& Part : Layout.Parts(From, To, Place.Width())) {
        const Block& Each = Blocks.emplace_back(MakeBlock(Part));
        Names += Each.NameWidth;
        Columns += static_cast<double>(Each.Columns.size());
    }
    const double Gaps = static_cast<double>(Blocks.size()) - 1;
    const double KeyWidth = std::min((Place.Width() - Names - TableLeastGap * Gaps) / std::max(Columns, 1.0), MostKey);
    const double Gap = std::min((Place.Width() - Names - KeyWidth * Columns) / std::max(Gaps, 1.0), MostGap);
    double Left = Place.Left;
    for (const Block& Each : Blocks) {
        DrawBlock(Surface, Each, Left, KeyWidth, Place.Top);
        Left += Each.NameWidth + KeyWidth * static_cast<double>(Each.Columns.size()) + Gap;
    }
}
