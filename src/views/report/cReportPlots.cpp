// What stands around the curves of a report.
#include "views/report/cReportPlots.h"

#include "base/mNumText.h"
#include "core/mModes.h"
#include "processing/mNorm.h"
#include "views/report/mPageText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr int32_t InkGrid = 0xECE8E4;
constexpr int Letters = 11;
constexpr int TitleLetters = 12;
constexpr double TitleRoom = 18, LeftRoom = 42, BottomRoom = 16, RightRoom = 14;
constexpr double ScaleGap = 5; // between a frame and the numbers on its left
constexpr int LineHeight = 16;
constexpr int MarkWidth = 12; // of the line ahead of a name in the legend

// Rows that share a rectangle, and what of their scales has room beside it.
struct Plot
{
    PlotRect Frame;
    std::vector<const cData03report*> Rows;
    bool TitleInside = false;
    bool LeftInside = false;
    bool BottomInside = false;

    bool LegendElsewhere = false; // a plot before it explains the same names and colours

    PlotRect TitleStrip() const { return {Frame.Left, Frame.Right, Frame.Top - TitleRoom, Frame.Top - 1}; }
    double ScaleWidth = LeftRoom; // of the numbers on the left
    PlotRect LeftStrip() const { return {Frame.Left - ScaleWidth, Frame.Left - 1, Frame.Top, Frame.Bottom}; }
    PlotRect BottomStrip() const { return {Frame.Left, Frame.Right, Frame.Bottom + 1, Frame.Bottom + BottomRoom}; }
    const cData03report& First() const { return *Rows.front(); }
};

bool Meet(const PlotRect& A, const PlotRect& B)
{
    return A.Left < B.Right && B.Left < A.Right && A.Top < B.Bottom && B.Top < A.Bottom;
}

// What names of the form "Seat 1", "Seat 2" have in common.
std::string CommonStart(const Plot& Each)
{
    const std::string& First = Each.First().Row().ID;
    const std::string Start = First.substr(0, First.rfind(' ') + 1);
    const bool AllHave = std::all_of(Each.Rows.begin(), Each.Rows.end(), [&](const cData03report* Row) {
        return Row->Row().ID.size() > Start.size() && Row->Row().ID.starts_with(Start);
    });
    return Each.Rows.size() > 2 && AllHave ? Start : "";
}

bool SharesScale(const cData03report& A, const cData03report& B)
{
    const auto Limits = [](const ViewRow& Row) {
        return std::array{Row.MinXPar, Row.MaxXPar, Row.MinYPar, Row.MaxYPar, static_cast<float>(Row.Mode)};
    };
    return Limits(A.Row()) == Limits(B.Row());
}

// What a legend explains: names without their common start, and colours.
std::vector<std::pair<std::string, int32_t>> Explained(const Plot& Each)
{
    const std::size_t Start = CommonStart(Each).size();
    std::vector<std::pair<std::string, int32_t>> Names;
    for (const cData03report* Row : Each.Rows)
        Names.emplace_back(SharesScale(*Row, Each.First()) ? Row->Row().ID.substr(Start) : Row->Row().ID,
                           Row->Colour());
    return Names;
}

// Values at which the scale on the left has numbers, and their step.
std::pair<std::vector<double>, double> TicksY(const Plot& Each)
{
    const double Low = Each.First().Row().MinYPar, High = Each.First().Row().MaxYPar;
    const int Wanted = RoundWithin(std::trunc(Each.Frame.Height() / 26), 1, 8);
    return {Ticks(Low, High, Wanted), NiceStep(std::abs(High - Low), Wanted)};
}

double ScaleWidth(const iSurface& Surface, const Plot& Each)
{
    const auto Scale = TicksY(Each);
    double Widest = 0;
    for (const double Value : Scale.first)
        Widest = std::max(Widest, Surface.TextWidth(TickText(Value, Scale.second), Letters));
    return Widest + 2 * ScaleGap;
}

std::vector<Plot> Gather(const iSurface& Surface, const cReport& Report)
{
    std::vector<Plot> Plots;
    for (const cData03report* Row : Report.Shown()) {
        auto Found =
            std::find_if(Plots.begin(), Plots.end(), [&](const Plot& Each) { return Each.Frame == Row->Rect(); });
        if (Found == Plots.end()) Found = Plots.insert(Plots.end(), Plot{Row->Rect(), {}});
        Found->Rows.push_back(Row);
    }
    for (Plot& Each : Plots)
        Each.ScaleWidth = ScaleWidth(Surface, Each);
    for (Plot& Each : Plots)
        for (const Plot& Other : Plots) {
            if (&Other == &Each) continue;
            Each.LeftInside |= Meet(Each.LeftStrip(), Other.Frame);
            Each.BottomInside |= Meet(Each.BottomStrip(), Other.Frame);
        }
    for (Plot& Each : Plots)
        for (const Plot& Other : Plots)
            if (&Other != &Each)
                Each.TitleInside |= Meet(Each.TitleStrip(), Other.Frame) ||
                                    (!Other.BottomInside && Meet(Each.TitleStrip(), Other.BottomStrip()));
    for (auto Each = Plots.begin(); Each != Plots.end(); ++Each)
        Each->LegendElsewhere =
            std::any_of(Plots.begin(), Each, [&](const Plot& Other) { return Explained(Other) == Explained(*Each); });
    return Plots;
}

// A typical stroke's positions are shown in percent of the stroke.
double ShownPer(const cData03report& Row)
{
    return Row.Row().Mode == RowOverPosition && !Row.IsPrimary() ? 100.0 / NormSteps : 1;
}

void DrawXScale(iSurface& Surface, const Plot& Each)
{
    const cData03report& Row = Each.First();
    const int Wanted = RoundWithin(std::trunc(Each.Frame.Width() / 60), 1, 8);
    const double Per = ShownPer(Row);
    const std::vector<double> Values = Ticks(Row.LeftValue() * Per, Row.RightValue() * Per, Wanted);
    const double Step = NiceStep(std::abs(Row.RightValue() - Row.LeftValue()) * Per, Wanted);
    const double Y = Each.BottomInside ? Each.Frame.Bottom - Letters - 4 : Each.Frame.Bottom + 3;
    for (const double Value : Values) {
        const double X = Row.PlaceX(Value / Per);
        Surface.SetPen(InkGrid);
        Surface.Line(X, Each.Frame.Top, X, Each.Frame.Bottom);
        const bool IsAtCorner = Each.BottomInside && (X < Each.Frame.Left + 8 || X > Each.Frame.Right - 8);
        Surface.SetPen(InkSoft);
        if (!IsAtCorner) Surface.Text(X, Y, TickText(Value, Step), eAlign::Centre);
    }
}

void DrawYScale(iSurface& Surface, const Plot& Each)
{
    const auto [Values, Step] = TicksY(Each);
    for (const double Value : Values) {
        const double Y = Each.First().PlaceY(Value);
        Surface.SetPen(InkGrid);
        Surface.Line(Each.Frame.Left, Y, Each.Frame.Right, Y);
        Surface.SetPen(InkSoft);
        if (!Each.LeftInside)
            Surface.Text(Each.Frame.Left - ScaleGap, Y - Letters / 2.0 - 1, TickText(Value, Step), eAlign::Right);
        else if (Y > Each.Frame.Top + 2 * LineHeight && Y < Each.Frame.Bottom - LineHeight)
            Surface.Text(Each.Frame.Left + 4, Y - Letters - 3, TickText(Value, Step));
    }
}

std::string WithSmallStart(std::string Words)
{
    if (!Words.empty() && Words[0] >= 'A' && Words[0] <= 'Z') Words[0] = static_cast<char>(Words[0] - 'A' + 'a');
    return Words;
}

// What the curves show, and over what.
std::pair<std::string, std::string> TitleOf(const Plot& Each)
{
    Quantity Y = Each.First().Y();
    Quantity X = Each.First().X();
    for (const cData03report* Row : Each.Rows) {
        Y = Common(Y, Row->Y());
        X = Common(X, Row->X());
    }
    std::string Over = WithSmallStart(AxisText(X));
    if (Each.First().Row().Mode == RowOverPosition) Over = Each.First().IsPrimary() ? "sample" : "the stroke, %";
    std::string Name = AxisText(Y);
    if (Name.empty() && Each.Rows.size() == 1) Name = Each.First().Row().ID;
    return {Name, Over.empty() ? "" : (Name.empty() ? "over " : "  over ") + Over};
}

struct Entry
{
    std::string Text;
    int32_t Colour; // NoFill for words without a mark
    double Width;
};

std::vector<Entry> LegendOf(const iSurface& Surface, const Plot& Each)
{
    std::vector<Entry> Entries;
    const std::string Start = CommonStart(Each);
    const auto Width = [&](const std::string& Text) { return Surface.TextWidth(Text, Letters) + 8; };
    if (!Start.empty()) Entries.push_back({Start, NoFill, Width(Start) - 4});
    for (const cData03report* Row : Each.Rows) {
        const ViewRow& View = Row->Row();
        std::string Text = View.ID.substr(Start.size());
        if (!SharesScale(*Row, Each.First()))
            Text +=
                " (" + FormatShortest(View.MinYPar) + " to " + FormatShortest(View.MaxYPar) + " " + Row->Y().Unit + ")";
        Entries.push_back({Text, PaperInk(Row->Colour()), Width(Text) + MarkWidth + 3});
    }
    return Entries;
}

void DrawEntry(iSurface& Surface, const Entry& Each, double X, double Y)
{
    if (Each.Colour == NoFill) {
        Surface.SetPen(InkSoft);
        return Surface.Text(X, Y, Each.Text);
    }
    Surface.SetPen(Each.Colour, 3);
    Surface.Line(X, Y + Letters / 2.0 + 1, X + MarkWidth, Y + Letters / 2.0 + 1);
    Surface.SetPen(InkText);
    Surface.Text(X + MarkWidth + 3, Y, Each.Text);
}

// The entries in lines, each as long as fits.
std::vector<std::vector<Entry>> LinesOf(const std::vector<Entry>& Entries, double Room)
{
    std::vector<std::vector<Entry>> Lines;
    double Free = -1;
    for (const Entry& Each : Entries) {
        if (Lines.empty() || Free < Each.Width) {
            Lines.emplace_back();
            Free = Room;
        }
        Lines.back().push_back(Each);
        Free -= Each.Width;
    }
    return Lines;
}

// How much of the curves lies between two heights, in points.
std::size_t PointsBetween(const Plot& Each, double Top, double Bottom)
{
    std::size_t Count = 0;
    for (const cData03report* Row : Each.Rows)
        for (const double Value : Row->Ys()) {
            const double Y = Row->PlaceY(Value);
            if (Y >= Top && Y <= Bottom) ++Count;
        }
    return Count;
}

// A height in the plot for that many lines: at the top, or at the bottom where the curves leave more room there.
double LegendTop(const Plot& Each, std::size_t Lines)
{
    const double Height = LineHeight * static_cast<double>(Lines);
    const double Top = Each.Frame.Top + 5.0 + (Each.TitleInside ? LineHeight : 0);
    const double Low = Each.Frame.Bottom - Height - (Each.BottomInside ? LineHeight : 0);
    return PointsBetween(Each, Top, Top + Height) <= PointsBetween(Each, Low, Low + Height) ? Top : Low;
}

// Lines from the right edge; the room may not hold them all.
void DrawLegend(iSurface& Surface, const Plot& Each, const std::vector<std::vector<Entry>>& Lines, double Y)
{
    for (const std::vector<Entry>& Line : Lines) {
        if (Y >= Each.Frame.Bottom - LineHeight / 2.0) return;
        double X = Each.Frame.Right - 4;
        for (const Entry& Part : Line)
            X -= Part.Width;
        for (const Entry& Part : Line) {
            DrawEntry(Surface, Part, X, Y);
            X += Part.Width;
        }
        Y += LineHeight;
    }
}

void DrawTitle(iSurface& Surface, const Plot& Each)
{
    const auto [Name, Over] = TitleOf(Each);
    const double Top = Each.TitleInside ? Each.Frame.Top + 4 : Each.Frame.Top - TitleRoom + 3;
    const double Left = Each.Frame.Left + (Each.TitleInside ? 5 : 0);
    const double NameWidth = Surface.TextWidth(Name, TitleLetters, true);
    const double OverWidth = Surface.TextWidth(Over, Letters);
    Surface.SetFont(TitleLetters, true);
    Surface.SetPen(InkText);
    Surface.Text(Left, Top, Name);
    Surface.SetFont(Letters);
    Surface.SetPen(InkSoft);
    const bool HasOver = NameWidth + OverWidth + 8 < Each.Frame.Width();
    if (HasOver) Surface.Text(Left + NameWidth, Top + 1, Over);
    const std::vector<Entry> Entries = LegendOf(Surface, Each);
    if (Each.Rows.size() == 1 && Entries[0].Text == Name) return;
    double Length = 24 + NameWidth + (HasOver ? OverWidth : 0);
    for (const Entry& Part : Entries)
        Length += Part.Width;
    const bool FitsBehind = Length < Each.Frame.Width();
    if (!FitsBehind && Each.LegendElsewhere) return;
    const auto Lines = LinesOf(Entries, Each.Frame.Width() - 16);
    DrawLegend(Surface, Each, Lines, FitsBehind ? Top + 1 : LegendTop(Each, Lines.size()));
}

void DrawGround(iSurface& Surface, const Plot& Each)
{
    const PlotRect& Frame = Each.Frame;
    if (Frame.Width() < LineHeight || Frame.Height() < LineHeight) return;
    Surface.SetFont(Letters);
    Surface.SetPen(InkWhite);
    Surface.SetFill(InkWhite);
    Surface.Box(Frame.Left, Frame.Top, Frame.Right, Frame.Bottom);
    DrawXScale(Surface, Each);
    DrawYScale(Surface, Each);
    Each.First().DrawScales(Surface);
    Surface.SetFill(NoFill);
    Surface.SetPen(InkLine);
    Surface.Box(Frame.Left, Frame.Top, Frame.Right, Frame.Bottom);
    DrawTitle(Surface, Each);
}
} // namespace

void DrawReportPlots(iSurface& Surface, cReport& Report, const PlotRect& Area)
{
    Report.SetDrawScale({Area.Left + LeftRoom, Area.Right - RightRoom, Area.Top + TitleRoom, Area.Bottom - BottomRoom},
                        Surface.Pixel());
    for (const Plot& Each : Gather(Surface, Report))
        DrawGround(Surface, Each);
    Report.DrawData(Surface);
}
