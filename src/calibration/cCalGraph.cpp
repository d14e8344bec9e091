// Axes, clipping, and a running line that leaves no trace.
#include "calibration/cCalGraph.h"

#include "base/mNumText.h"
#include "calibration/mChanGrid.h"
#include "core/mSettings.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int32_t White = 0xFFFFFF;
constexpr int32_t Fore = 0x000000;
constexpr int32_t Red = 0x0000FF;
constexpr int32_t Blue = 0xFF0000;
constexpr int32_t Unchosen = 0xB4B4B4; // points that are in no curve
constexpr int GridParts = 10;
constexpr int CurveParts = 50;
constexpr int CurveWidth = 2;
constexpr int ErasedAside = 2;  // what smoothing adds to the running line
constexpr double LeftRoom = 58; // for the numbers
constexpr double BottomRoom = 20;
constexpr double OuterRoom = 8;
constexpr int NumberFont = 11;
constexpr int CaptionFont = 13;
constexpr double ErasedPart = 16;          // length of a piece of line that is erased at once
constexpr double Reach = 12;               // of the pointer around a point
constexpr std::size_t MostUngrounded = 64; // then all is drawn anew

double Mapped(double Value, double Min, double Max, double From, double To)
{
    return From + (Value - Min) / (Max - Min) * (To - From);
}

// A number with that many significant places, 0 for none after the point; one too long for the margin gets an exponent.
std::string AxisText(double Value, int Places)
{
    constexpr double Longest = 1e6;
    if (!(std::fabs(Value) < Longest)) return FormatGeneral(Value, 3);
    std::string Text = FormatSig(Value, Places);
    if (Text.ends_with('.')) Text.pop_back();
    return Text;
}
} // namespace

void cCalGraph::TakeScales()
{
    const SurfacePoint Size = Surface.Size();
    Left = LeftRoom;
    Top = OuterRoom;
    Right = std::max(Size.X - 1 - OuterRoom, Left + 1);
    Bottom = std::max(Size.Y - 1 - BottomRoom, Top + 1);
    Radius = std::max(Size.Y / 200.0, 2.0);
    IsXLogical = Calibr.Flag(FlagXisLog);
}

cCalGraph::Spot cCalGraph::PlaceOf(const CalPoint& Point) const
{
    const CalRange& Axes = Calibr.Axes();
    if (IsXLogical)
        return {Mapped(Point.L, Axes.MinL, Axes.MaxL, Left, Right), Mapped(Point.P, Axes.MinP, Axes.MaxP, Bottom, Top)};
    return {Mapped(Point.P, Axes.MinP, Axes.MaxP, Left, Right), Mapped(Point.L, Axes.MinL, Axes.MaxL, Bottom, Top)};
}

bool cCalGraph::IsWithin(Spot Where) const
{
    return Where.X >= Left && Where.X <= Right && Where.Y >= Top && Where.Y <= Bottom;
}

// The part of a segment that lies within the plot. From and To are fractions of its length.
std::optional<cCalGraph::Segment> cCalGraph::Clipped(Segment Whole) const
{
    const auto [A, B] = Whole;
    const double Dx = B.X - A.X, Dy = B.Y - A.Y;
    if (!std::isfinite(A.X + A.Y + Dx + Dy)) return {};
    double From = 0, To = 1;
    const std::pair<double, double> Sides[] = {
        {-Dx, A.X - Left}, {Dx, Right - A.X}, {-Dy, A.Y - Top}, {Dy, Bottom - A.Y}};
    for (const auto& [Outward, Room] : Sides) {
        if (Outward == 0 && Room < 0) return {};
        if (Outward < 0) From = std::max(From, Room / Outward);
        if (Outward > 0) To = std::min(To, Room / Outward);
    }
    if (From > To) return {};
    return Segment{{A.X + From * Dx, A.Y + From * Dy}, {A.X + To * Dx, A.Y + To * Dy}};
}

void cCalGraph::Draw()
{
    TakeScales();
    Surface.Clear(White);
    DrawGrid();
    const bool HasCurves = fApproxMode == ApproxOneLine || fApproxMode == ApproxTwoLines;
    Line.reset();
    Grounded = Drawn = Calibr.Points().size();
    DrawPoints(Calibr.Points(), HasCurves && !Calibr.IsTaking() ? Unchosen : Fore);
    if (!HasCurves || Calibr.IsTaking()) {
        Surface.KeepGround();
        return DrawLine();
    }
    if (!Calibr.IsAnalysed()) return;
    DrawBranch(Calibr.Analysis().Up, Red);
    if (fApproxMode == ApproxTwoLines) DrawBranch(Calibr.Analysis().Down, Blue);
}

void cCalGraph::DrawGrid()
{
    Surface.SetFill(NoFill);
    Surface.SetPen(GridColour);
    Surface.Box(Left, Top, Right, Bottom);
    for (int k = 1; k < GridParts; ++k) {
        const double X = std::round(Mapped(k, 0, GridParts, Left, Right));
        const double Y = std::round(Mapped(k, 0, GridParts, Bottom, Top));
        Surface.Line(X, Top, X, Bottom);
        Surface.Line(Left, Y, Right, Y);
    }
    DrawAxisNumbers();
    DrawCaptions();
}

void cCalGraph::DrawAxisNumbers()
{
    constexpr int Places = 4;
    constexpr double Widest = 50;
    const CalRange& Axes = Calibr.Axes();
    const int Every = (Right - Left) / GridParts < Widest ? 2 : 1;
    const int EveryUp = (Bottom - Top) / GridParts < NumberFont + 3 ? 2 : 1;
    Surface.SetFont(NumberFont);
    for (int k = 1; k < GridParts; ++k) {
        const double X = Mapped(k, 0, GridParts, Left, Right);
        const double Y = Mapped(k, 0, GridParts, Bottom, Top);
        const std::string Logical = AxisText(Mapped(k, 0, GridParts, Axes.MinL, Axes.MaxL), 0);
        const std::string Physical = AxisText(Mapped(k, 0, GridParts, Axes.MinP, Axes.MaxP), Places);
        if (k % Every == 0) Surface.Text(X, Bottom + 3, IsXLogical ? Logical : Physical, eAlign::Centre);
        if (k % EveryUp == 0)
            Surface.Text(Left - 5, Y - NumberFont * 0.6, IsXLogical ? Physical : Logical, eAlign::Right);
    }
}

void cCalGraph::DrawCaptions()
{
    const char* const Along = IsXLogical ? "Logical" : "Physical";
    const char* const Up = IsXLogical ? "Physical" : "Logical";
    Surface.SetFont(CaptionFont, true);
    DrawCaption(Left + 6, Top + 3, Up, eAlign::Left);
    DrawCaption(Right - 6, Bottom - CaptionFont - 6, Along, eAlign::Right);
    if (Calibr.Chan() >= 1)
        DrawCaption(Left + 6, Top + 6 + CaptionFont, "Channel " + ChanLabel(Calibr.Chan()), eAlign::Left);
}

// On a white box, so that no grid line runs through the text.
void cCalGraph::DrawCaption(double X, double Y, const std::string& Text, eAlign Align)
{
    constexpr double LetterWidth = 0.66 * CaptionFont;
    const double Width = LetterWidth * static_cast<double>(Text.size());
    Surface.SetPen(White);
    Surface.SetFill(White);
    Surface.Box(Align == eAlign::Left ? X - 2 : X - Width, Y, Align == eAlign::Left ? X + Width : X + 2,
                Y + CaptionFont + 2);
    Surface.SetPen(GridColour);
    Surface.Text(X, Y, Text, Align);
}

void cCalGraph::DrawPoints(std::span<const CalPoint> Points, int32_t Colour)
{
    Surface.SetPen(Colour);
    Surface.SetFill(Colour);
    for (const CalPoint& Point : Points)
        if (const Spot Where = PlaceOf(Point); IsWithin(Where)) Surface.Circle(Where.X, Where.Y, Radius);
}

void cCalGraph::DrawBranch(const CalBranch& Branch, int32_t Colour)
{
    if (Branch.Points.empty()) return;
    DrawPoints(Branch.Points, Colour);
    DrawCurve(Branch, Colour);
}

void cCalGraph::DrawCurve(const CalBranch& Branch, int32_t Colour)
{
    const CalRange& Axes = Calibr.Axes();
    const auto At = [&](int i) {
        if (IsXLogical) {
            const double L = Mapped(i, 0, CurveParts, Axes.MinL, Axes.MaxL);
            return PlaceOf({L, CurveAt(Branch.Q, L)});
        }
        const double P = Mapped(i, 0, CurveParts, Axes.MinP, Axes.MaxP);
        return PlaceOf({CurveAt(Branch.QInv, P), P});
    };
    Surface.SetPen(Colour, CurveWidth);
    for (int i = 0; i < CurveParts; ++i)
        if (const auto Part = Clipped({At(i), At(i + 1)}))
            Surface.Line(Part->first.X, Part->first.Y, Part->second.X, Part->second.Y);
}

void cCalGraph::DrawLine()
{
    const CalLine& Run = Calibr.Line();
    Line.reset();
    if (Run.Q0 == 0 && Run.Q1 == 0) return;
    const CalRange& Axes = Calibr.Axes();
    const auto At = [&](double L) { return PlaceOf({L, Run.Q0 + Run.Q1 * L}); };
    Line = Clipped({At(Axes.MinL), At(Axes.MaxL)});
    if (!Line) return;
    Surface.SetPen(Blue);
    Surface.Line(Line->first.X, Line->first.Y, Line->second.X, Line->second.Y);
}

// Restores the background along the line only.
void cCalGraph::EraseLine()
{
    if (!Line) return;
    const auto& [A, B] = *Line;
    const int Parts = static_cast<int>(std::max(std::fabs(B.X - A.X), std::fabs(B.Y - A.Y)) / ErasedPart) + 1;
    for (int i = 0; i < Parts; ++i) {
        const double X1 = Mapped(i, 0, Parts, A.X, B.X), X2 = Mapped(i + 1, 0, Parts, A.X, B.X);
        const double Y1 = Mapped(i, 0, Parts, A.Y, B.Y), Y2 = Mapped(i + 1, 0, Parts, A.Y, B.Y);
        Surface.RestoreGround(std::min(X1, X2) - ErasedAside, std::min(Y1, Y2) - ErasedAside,
                              std::max(X1, X2) + ErasedAside, std::max(Y1, Y2) + ErasedAside);
    }
}

void cCalGraph::ErasePoint(const CalPoint& Point)
{
    const Spot Where = PlaceOf(Point);
    const double Reached = Radius + 2;
    if (IsWithin(Where))
        Surface.RestoreGround(Where.X - Reached, Where.Y - Reached, Where.X + Reached, Where.Y + Reached);
}

// Points that are not part of the kept background are drawn again, since erasing the line may have cut into them.
void cCalGraph::AddPoints()
{
    const CalPoints& Points = Calibr.Points();
    if (Points.empty()) return;
    const auto IsBeyond = [this](const CalPoint& Point) { return !IsWithin(PlaceOf(Point)); };
    const std::size_t Known = std::min(Drawn, Points.size());
    const bool IsOutgrown = Calibr.Flag(FlagAutoAxes) &&
                            std::any_of(Points.begin() + static_cast<std::ptrdiff_t>(Known), Points.end(), IsBeyond);
    if (IsOutgrown) Calibr.SetCalGr();
    if (IsOutgrown || Points.size() < Grounded || Points.size() > Grounded + MostUngrounded) return Draw();
    const auto Fresh = std::span(Points).subspan(Grounded);
    EraseLine();
    for (const CalPoint& Point : Fresh)
        ErasePoint(Point);
    DrawPoints(Fresh, Fore);
    Drawn = Points.size();
    DrawLine();
}

std::string cCalGraph::TextAt(double X, double Y) const
{
    double Nearest = Reach;
    std::string Text;
    std::size_t Number = 0;
    for (const CalPoint& Point : Calibr.Points()) {
        ++Number;
        const Spot Where = PlaceOf(Point);
        const double Distance = std::hypot(Where.X - X, Where.Y - Y);
        if (!IsWithin(Where) || Distance >= Nearest) continue;
        Nearest = Distance;
        Text = "Point " + FormatNum(static_cast<double>(Number), "0") + ": logical " + FormatShortest(Point.L) +
               ", physical " + FormatNum(Point.P, "0.00");
    }
    return Text;
}
