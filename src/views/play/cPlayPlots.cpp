// Plots of rows that share a rectangle.
#include "views/play/cPlayPlots.h"

#include "base/mNumText.h"
#include "core/mSettings.h"
#include "views/mQuantity.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int32_t White = 0xFFFFFF, InkGrid = 0xECE8E4, InkLine = 0xB4ACA4, InkText = 0x302820, InkSoft = 0x7A7068,
                  InkNow = 0x2828B0, InkPaper = 0xFAF8F6;
constexpr int Letters = 11;
constexpr double LineHeight = 14, LeftRoom = 46, RightRoom = 10, TopRoom = 18, BottomRoom = 22;
constexpr double Gap = 2;        // between plots
constexpr double TickRoom = 62;  // between two numbers of the time
constexpr double ValueRoom = 26; // between two numbers of a scale

// Rows that share a rectangle; the first of them has the scale.
struct Plot
{
    std::vector<const PlayRow*> Rows;

    const cData04play& First() const { return Rows.front()->Plot; }
    const PlotRect& Frame() const { return First().Rect(); }
};

std::vector<Plot> Gather(const cPlay& Play)
{
    std::vector<Plot> Plots;
    for (const PlayRow& Row : Play.Rows()) {
        auto Found =
            std::find_if(Plots.begin(), Plots.end(), [&](const Plot& Each) { return Each.Frame() == Row.Plot.Rect(); });
        if (Found == Plots.end()) Found = Plots.insert(Plots.end(), Plot{});
        Found->Rows.push_back(&Row);
    }
    return Plots;
}

int32_t InkOf(const PlayRow& Row)
{
    return PaperInk(RowColour(Row.Plot.Row()));
}

// Whether another plot stands right below, so that the numbers of the time would lie on it.
bool IsLowest(const Plot& Each, const std::vector<Plot>& Plots)
{
    return std::none_of(Plots.begin(), Plots.end(), [&](const Plot& Other) {
        return Other.Frame().Top >= Each.Frame().Bottom - 1 && Other.Frame().Left < Each.Frame().Right &&
               Each.Frame().Left < Other.Frame().Right;
    });
}

void DrawTimes(iSurface& Surface, const Plot& Each, bool HasNumbers)
{
    const cData04play& Row = Each.First();
    const PlotRect& Frame = Each.Frame();
    const int Wanted = RoundWithin(std::trunc(Frame.Width() / TickRoom), 1, 10);
    const double Span = Row.RightTime() - Row.LeftTime();
    for (const double Time : Ticks(Row.LeftTime(), Row.RightTime(), Wanted)) {
        const double X = Row.Middle() + (Frame.Right - Frame.Left) * Time / Span;
        Surface.SetPen(InkGrid);
        Surface.Line(X, Frame.Top, X, Frame.Bottom);
        Surface.SetPen(InkSoft);
        std::string Text = TickText(Time, NiceStep(Span, Wanted));
        if (Time > 0 && Text[0] != '0') Text = "+" + Text;
        if (HasNumbers) Surface.Text(X, Frame.Bottom + 3, Text + " s", eAlign::Centre);
    }
}

void DrawNumbers(iSurface& Surface, const Plot& Each)
{
    const ViewRow& Row = Each.First().Row();
    const PlotRect& Frame = Each.Frame();
    const double Low = Row.MinYPar, High = Row.MaxYPar;
    const int Wanted = RoundWithin(std::trunc(Frame.Height() / ValueRoom), 1, 8);
    for (const double Value : Ticks(Low, High, Wanted)) {
        const double Y = Each.First().PlaceY(Value);
        Surface.SetPen(InkGrid);
        Surface.Line(Frame.Left, Y, Frame.Right, Y);
        Surface.SetPen(InkSoft);
        const double TextY = std::clamp(Y - Letters / 2.0 - 1, Frame.Top - 2, Frame.Bottom - Letters);
        Surface.Text(Frame.Left - 4, TextY, TickText(Value, NiceStep(std::abs(High - Low), Wanted)), eAlign::Right);
    }
}

// Whether a line of letters fits between a plot and the one above it.
bool HasRoomAbove(const Plot& Each, const std::vector<Plot>& Plots)
{
    const PlotRect& Frame = Each.Frame();
    return std::none_of(Plots.begin(), Plots.end(), [&](const Plot& Other) {
        return Other.Frame().Top < Frame.Top && Other.Frame().Bottom > Frame.Top - LineHeight &&
               Other.Frame().Left < Frame.Right && Frame.Left < Other.Frame().Right;
    });
}

// What the curves measure, and their names in their colours, from the left edge as far as they have room.
void DrawNames(iSurface& Surface, const Plot& Each, const std::vector<Plot>& Plots)
{
    const PlotRect& Frame = Each.Frame();
    Quantity What = QuantityY(Each.First().Row());
    for (const PlayRow* Row : Each.Rows)
        What = Common(What, QuantityY(Row->Plot.Row()));
    double X = Frame.Left + 6;
    const double Y = HasRoomAbove(Each, Plots) ? Frame.Top - LineHeight : Frame.Top + 3;
    const auto Write = [&](const std::string& Text, int32_t Ink, bool Bold) {
        const double Width = Surface.TextWidth(Text, Letters, Bold);
        if (X + Width > Frame.Right - 4) return;
        Surface.SetFont(Letters, Bold);
        Surface.SetPen(Ink);
        Surface.Text(X, Y, Text);
        X += Width + 9;
    };
    const bool IsFigure = Each.Rows.front()->Figure.has_value();
    if (!IsFigure && !AxisText(What).empty()) Write(AxisText(What), InkText, true);
    for (const PlayRow* Row : Each.Rows)
        Write(Row->Plot.Row().ID, InkOf(*Row), false);
}

void DrawGround(iSurface& Surface, const Plot& Each, const std::vector<Plot>& Plots)
{
    const PlotRect& Frame = Each.Frame();
    if (Frame.Width() < LineHeight || Frame.Height() < LineHeight) return;
    Surface.SetFont(Letters);
    Surface.SetPen(White);
    Surface.SetFill(White);
    Surface.Box(Frame.Left, Frame.Top, Frame.Right, Frame.Bottom);
    if (!Each.Rows.front()->Figure) {
        DrawTimes(Surface, Each, IsLowest(Each, Plots));
        DrawNumbers(Surface, Each);
        Each.First().DrawScales(Surface);
    }
    Surface.SetFill(NoFill);
    Surface.SetPen(InkLine);
    Surface.Box(Frame.Left, Frame.Top, Frame.Right, Frame.Bottom);
    DrawNames(Surface, Each, Plots);
}

// A value with as many decimals as its scale asks for.
std::string ValueText(const cData04play& Row, double Value)
{
    const double Span = std::abs(static_cast<double>(Row.Row().MaxYPar) - static_cast<double>(Row.Row().MinYPar));
    return TickText(Value, Span / 1000) + (QuantityY(Row.Row()).Unit.empty() ? "" : " " + QuantityY(Row.Row()).Unit);
}

struct ValueLabel
{
    double Y = 0;
    std::string Text;
    int32_t Ink = 0;
};

// The values of a plot's curves from the highest to the lowest.
std::vector<ValueLabel> ValueLabels(const Plot& Each)
{
    std::vector<ValueLabel> Labels;
    for (const PlayRow* Row : Each.Rows)
        if (const auto Value = Row->Plot.Current())
            Labels.push_back({std::clamp(Row->Plot.PlaceY(*Value), Each.Frame().Top, Each.Frame().Bottom),
                              Row->Plot.Row().ID + "  " + ValueText(Row->Plot, *Value), InkOf(*Row)});
    std::stable_sort(Labels.begin(), Labels.end(), [](const auto& A, const auto& B) { return A.Y < B.Y; });
    return Labels;
}

// Lines that would meet are moved apart, within the plot.
void MoveApart(std::span<ValueLabel> Labels, const PlotRect& Frame)
{
    double Free = Frame.Top;
    for (ValueLabel& Label : Labels) {
        Label.Y = std::max(Label.Y - LineHeight / 2, Free);
        Free = Label.Y + LineHeight;
    }
    double Low = Frame.Bottom - 1;
    for (auto Label = Labels.rbegin(); Label != Labels.rend(); ++Label)
        Low = Label->Y = std::min(Label->Y, Low - LineHeight);
}

void DrawValue(iSurface& Surface, const ValueLabel& Label, double Left, double Width)
{
    Surface.SetPen(White);
    Surface.SetFill(White);
    Surface.Box(Left - 2, Label.Y, Left + Width, Label.Y + LineHeight - 1);
    Surface.SetFill(NoFill);
    Surface.SetFont(Letters, true);
    Surface.SetPen(Label.Ink);
    Surface.Text(Left, Label.Y, Label.Text);
}

// Beside the points in the middle, each on a line of its own, in as many columns as the plot's height asks for.
void DrawValues(iSurface& Surface, const Plot& Each)
{
    const PlotRect& Frame = Each.Frame();
    std::vector<ValueLabel> Labels = ValueLabels(Each);
    const auto Fit = static_cast<std::size_t>(RoundWithin(std::floor((Frame.Height() - 1) / LineHeight), 1, 1000));
    double Left = Each.First().Middle() + 8;
    double LeftSide = Left - 16; // of columns that have no room on the right
    for (std::size_t First = 0; First < Labels.size(); First += Fit) {
        const auto Column = std::span(Labels).subspan(First, std::min(Fit, Labels.size() - First));
        MoveApart(Column, Frame);
        double Width = 0;
        for (const ValueLabel& Label : Column)
            Width = std::max(Width, Surface.TextWidth(Label.Text, Letters, true) + 6);
        const bool IsRight = Left + Width <= Frame.Right;
        if (!IsRight) LeftSide -= Width;
        for (const ValueLabel& Label : Column)
            DrawValue(Surface, Label, IsRight ? Left : LeftSide, Width);
        if (IsRight) Left += Width;
    }
}

void DrawCurves(iSurface& Surface, const Plot& Each)
{
    const PlotRect& Frame = Each.Frame();
    const double X = Each.First().Middle();
    Surface.SetPen(InkNow);
    Surface.Line(X, Frame.Top, X, Frame.Bottom);
    for (const PlayRow* Row : Each.Rows) {
        Surface.SetPen(InkOf(*Row), gDrawWidth);
        Row->Plot.DrawData(Surface);
        const auto Value = Row->Plot.Current();
        const double Y = Value ? Row->Plot.PlaceY(*Value) : Frame.Top - 1;
        if (Y < Frame.Top || Y > Frame.Bottom) continue;
        Surface.SetFill(InkOf(*Row));
        Surface.Circle(X, Y, 3);
        Surface.SetFill(NoFill);
    }
}
} // namespace

void DrawPlayGround(iSurface& Surface, cPlay& Play)
{
    const SurfacePoint Size = Surface.Size();
    Surface.Clear(InkPaper);
    Play.SetDrawScale({LeftRoom, Size.X - RightRoom, TopRoom, Size.Y - BottomRoom}, Surface.Pixel());
    const std::vector<Plot> Plots = Gather(Play);
    for (const Plot& Each : Plots)
        DrawGround(Surface, Each, Plots);
    Surface.KeepGround();
}

void DrawPlayData(iSurface& Surface, const cPlay& Play, bool ShowValues)
{
    for (const Plot& Each : Gather(Play)) {
        const PlotRect& Frame = Each.Frame();
        Surface.RestoreGround(Frame.Left - Gap, Frame.Top - Gap, Frame.Right + Gap, Frame.Bottom + Gap);
        if (Each.Rows.front()->Figure) {
            for (const PlayRow* Row : Each.Rows)
                if (Row->Figure) Row->Figure->Draw(Surface);
            continue;
        }
        DrawCurves(Surface, Each);
        if (ShowValues) DrawValues(Surface, Each);
    }
}
