// Lines, marks and names over a still, and the plot of the joints' angles.
#include "video/mDigitDraw.h"

#include "base/mNumText.h"
#include "core/mSettings.h"
#include "video/mFigure.h"
#include "views/mAxis.h"

#include <algorithm>
#include <array>

namespace {
// On any picture a line is seen by its dark edge.
constexpr int32_t Edge = 0x000000;
constexpr int32_t SegColour = 0x00FFFF;  // yellow
constexpr int32_t DotColour = 0x00FF00;  // green
constexpr int32_t NextColour = 0x0080FF; // orange
constexpr int32_t White = 0xFFFFFF;
constexpr int FontSize = 12;

void DrawSegment(iSurface& Surface, const SurfacePlace& From, const SurfacePlace& To)
{
    const std::pair<int32_t, int> Lines[] = {{Edge, 4}, {SegColour, 2}};
    for (const auto& [Colour, Width] : Lines) {
        Surface.SetPen(Colour, Width);
        Surface.Line(From.X, From.Y, To.X, To.Y);
    }
}

void DrawDot(iSurface& Surface, const SurfacePlace& At, int32_t Colour)
{
    Surface.SetPen(Edge, 1);
    Surface.SetFill(Colour);
    Surface.Box(At.X - DotReach, At.Y - DotReach, At.X + DotReach, At.Y + DotReach);
}

void DrawLabel(iSurface& Surface, double X, double Y, const std::string& Text)
{
    Surface.SetFont(FontSize, true);
    const double Width = Surface.TextWidth(Text, FontSize, true);
    const double Left = std::min(X, Surface.Size().X - Width - 4);
    Surface.SetPen(Edge, 1);
    Surface.SetFill(Edge);
    Surface.Box(Left - 3, Y - 2, Left + Width + 3, Y + FontSize + 5);
    Surface.SetPen(White, 1);
    Surface.Text(Left, Y, Text);
}

void DrawBody(iSurface& Surface, const cDigit& Digit, const ToSurface& Seen)
{
    const FrameMarks& Marks = Digit.Marks();
    const auto IsPlaced = [&](int Dot) { return Dot > 0 && Dot <= Marks.UBound() && Marks[Dot].Place.IsPlaced(); };
    for (const SegRow& Row : gSegs)
        if (IsPlaced(Row.StartPoint) && IsPlaced(Row.EndPoint))
            DrawSegment(Surface, Seen(Marks[Row.StartPoint].Place), Seen(Marks[Row.EndPoint].Place));
    for (int Dot = 1; Dot <= Marks.UBound(); ++Dot)
        if (IsPlaced(Dot)) DrawDot(Surface, Seen(Marks[Dot].Place), Dot == Digit.HoverDot() ? NextColour : DotColour);
}

void DrawCorners(iSurface& Surface, const cDigit& Digit, const ToSurface& Seen)
{
    const auto& Corners = Digit.Corners();
    for (std::size_t i = 1; i < Corners.size(); ++i)
        DrawSegment(Surface, Seen(Corners[i - 1]), Seen(Corners[i]));
    for (const VideoPoint& Each : Corners)
        DrawDot(Surface, Seen(Each), DotColour);
    if (const auto Angle = Digit.CornerAngle()) {
        const SurfacePlace At = Seen(Corners[1]);
        DrawLabel(Surface, At.X + 10, At.Y + 10, FormatNum(*Angle, "0.0") + "\u00B0");
    }
}

// One joint's angles as places of frame and degrees; a frame without it interrupts the curve only when it lies between
// two that were digitised.
std::vector<SurfacePlace> CurveOf(const cMarks& All, int Dot)
{
    std::vector<SurfacePlace> Curve;
    for (const int Frame : All.Frames())
        if (const auto Angle = All.On(Frame)[Dot].Angle) Curve.push_back({static_cast<double>(Frame), *Angle});
    return Curve;
}

struct JointCurve
{
    int Dot = 0;
    std::vector<SurfacePlace> Places;
};

std::vector<JointCurve> Curves(const cMarks& All)
{
    std::vector<JointCurve> Found;
    for (int Dot = 1; Dot <= gDots.UBound(); ++Dot)
        if (gDots[Dot].IsAngle != 0) Found.push_back({Dot, CurveOf(All, Dot)});
    std::erase_if(Found, [](const JointCurve& Each) { return Each.Places.empty(); });
    return Found;
}

// The scales of the plot: frames along, degrees up.
struct AngleScale
{
    PlotRect Frame;
    double Last = 1; // frame at the right edge
    double Low = 0;
    double High = 180;

    SurfacePlace Seen(const SurfacePlace& At) const
    {
        return {Frame.Left + At.X / Last * Frame.Width(), Frame.Bottom - (At.Y - Low) / (High - Low) * Frame.Height()};
    }
};

AngleScale ScaleFor(const iSurface& Surface, const std::vector<JointCurve>& All, int Pictures)
{
    constexpr double Margin = 34;
    AngleScale Scale;
    Scale.Frame = {Margin, Surface.Size().X - 18.0, FontSize + 10.0, Surface.Size().Y - FontSize - 10.0};
    Scale.Last = std::max(Pictures - 1, 1);
    double Low = 180;
    double High = 0;
    for (const JointCurve& Each : All)
        for (const SurfacePlace& Place : Each.Places) {
            Low = std::min(Low, Place.Y);
            High = std::max(High, Place.Y);
        }
    constexpr double Round = 10;
    if (Low <= High) {
        Scale.Low = std::floor((Low - 2) / Round) * Round;
        Scale.High = std::ceil((High + 2) / Round) * Round;
    }
    return Scale;
}

void DrawGrid(iSurface& Surface, const AngleScale& Scale)
{
    constexpr int32_t Grey = 0xD8D8D8;
    Surface.SetFont(FontSize - 2);
    const auto Rows = Ticks(Scale.Low, Scale.High, 5);
    const auto Columns = Ticks(0, Scale.Last, 8);
    // Without a "-0".
    const auto Text = [](double X) { return FormatNum(X + 0.0, "0"); };
    for (const double Y : Rows) {
        const SurfacePlace Left = Scale.Seen({0, Y});
        Surface.SetPen(Grey);
        Surface.Line(Left.X, Left.Y, Scale.Frame.Right, Left.Y);
        Surface.SetPen(Edge);
        Surface.Text(Left.X - 4, Left.Y - FontSize / 2.0, Text(Y), eAlign::Right);
    }
    for (const double X : Columns) {
        const SurfacePlace Foot = Scale.Seen({X, Scale.Low});
        Surface.SetPen(Grey);
        Surface.Line(Foot.X, Foot.Y, Foot.X, Scale.Frame.Top);
        Surface.SetPen(Edge);
        if (X == std::floor(X)) Surface.Text(Foot.X, Foot.Y + 2, Text(X), eAlign::Centre);
    }
}
} // namespace

void DrawFigure(iSurface& Surface, const cDigit& Digit, const ToSurface& Seen,
                const std::optional<SurfacePlace>& Pointer)
{
    if (Digit.Mode() == DigitBody) DrawBody(Surface, Digit, Seen);
    if (Digit.Mode() == DigitAngle) DrawCorners(Surface, Digit, Seen);
    if (!Pointer) return;
    const int Hover = Digit.Mode() == DigitBody ? Digit.HoverDot() : 0;
    const std::string Name = Hover > 0 ? gDots[Hover].PointName : Digit.NextName();
    if (!Name.empty()) DrawLabel(Surface, Pointer->X + 14, Pointer->Y + 10, Name);
}

void DrawMeasures(iSurface& Surface, const cAnthro& Body, const ToSurface& Seen,
                  const std::optional<SurfacePlace>& Pointer)
{
    for (int Line = 0; Line <= static_cast<int>(BodyLengths().size()); ++Line) {
        const auto& [From, To] = Body.Ends(Line);
        if (From.IsPlaced() && To.IsPlaced()) DrawSegment(Surface, Seen(From), Seen(To));
        for (const VideoPoint& End : {From, To})
            if (End.IsPlaced()) DrawDot(Surface, Seen(End), Line == 0 ? NextColour : DotColour);
        const auto Length = Body.Length(Line);
        if (!Length) continue;
        const SurfacePlace A = Seen(From);
        const SurfacePlace B = Seen(To);
        DrawLabel(Surface, (A.X + B.X) / 2 + 6, (A.Y + B.Y) / 2, FormatNum(*Length, "0") + " mm");
    }
    if (Pointer) DrawLabel(Surface, Pointer->X + 14, Pointer->Y + 10, Body.NextName());
}

void DrawAngles(iSurface& Surface, const cDigit& Digit)
{
    constexpr std::array<int32_t, 6> Colours = {0x2020D0, 0xC06000, 0x208020, 0xA020A0, 0x0080E0, 0x606060};
    Surface.Clear(White);
    const auto All = Curves(Digit.All());
    const AngleScale Scale = ScaleFor(Surface, All, Digit.Of().Pictures);
    if (Scale.Frame.Width() < 1 || Scale.Frame.Height() < 1) return;
    DrawGrid(Surface, Scale);
    double X = Scale.Frame.Left;
    for (std::size_t i = 0; i < All.size(); ++i) {
        std::vector<SurfacePlace> Places;
        for (const SurfacePlace& Each : All[i].Places)
            Places.push_back(Scale.Seen(Each));
        Surface.SetPen(Colours[i % Colours.size()], 2);
        Surface.SetFill(Colours[i % Colours.size()]);
        if (Places.size() > 1) Surface.Curve(Places);
        for (const SurfacePlace& Each : Places)
            Surface.Circle(Each.X, Each.Y, 2);
        Surface.SetFont(FontSize, true);
        Surface.Text(X, 2, gDots[All[i].Dot].PointName);
        X += Surface.TextWidth(gDots[All[i].Dot].PointName, FontSize, true) + 12;
    }
    const double Cursor = Scale.Seen({static_cast<double>(Digit.Frame()), 0}).X;
    Surface.SetPen(0x0000FF, 1);
    Surface.Line(Cursor, Scale.Frame.Top, Cursor, Scale.Frame.Bottom);
}
