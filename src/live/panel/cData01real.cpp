// A live row's way from its arguments to its curve.
#include "live/panel/cData01real.h"

#include "base/mNumText.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "processing/mGlobFunc.h"
#include "processing/mPhysVal.h"
#include "processing/mViewRow.h"

#include <algorithm>
#include <limits>

namespace {
constexpr int32_t Black = 0x000000;
constexpr int32_t Grey = 0x7F7F7F;

constexpr double CaptionShift = 50;
constexpr int CaptionLine = 12; // height of a caption, and from one to the next
constexpr int GridLines = 11;

// Where nothing has been plotted yet.
constexpr SurfacePoint Nowhere{std::numeric_limits<int32_t>::min(), 0};

bool IsPlaced(const SurfacePoint& Place)
{
    return Place.X != Nowhere.X;
}

SurfacePlace PlaceOf(const SurfacePoint& Point)
{
    return {static_cast<double>(Point.X), static_cast<double>(Point.Y)};
}

// Divides where it can; otherwise the scale stays as it was.
void SetScale(double& Scale, double Length, double Range)
{
    if (Range != 0) Scale = Length / Range;
}
} // namespace

std::optional<int32_t> ToUnit(double X)
{
    using Limits = std::numeric_limits<int32_t>;
    const double Whole = RoundHalfEven(X);
    if (!(Whole >= Limits::min() && Whole <= Limits::max())) return {};
    return static_cast<int32_t>(Whole);
}

cData01real::cData01real(PlotSurface& OnPanel) : Panel(&OnPanel)
{
    Pts.fill(Nowhere);
    OldPts.fill(Nowhere);
}

void cData01real::InitViewID(int ViewID, int16_t Source)
{
    SrcMode = Source;
    View = gFile.View1[ViewID];
    Colour = RowColour(View);
    ArgChan = ArgChannels(SplitStr(View.Arguments));
    Oper.ArgCnt = std::clamp(static_cast<int>(ArgChan.size()) - 1, 0, LiveOper::LastArg);
    Oper.HasSecond = ArgChan.size() > 2 && ArgChan[2] >= 1;
    Numbers.Init(View);
    if (View.Oper >= OperFigureXY && View.Oper <= OperFigureLast && gFile.Crew.UBound() >= 1)
        Head = Wide(gFile.Crew[1].Head);
}

// The row's placement is left, top, right and bottom, whatever its columns are called.
void cData01real::Scale()
{
    const SurfacePoint Size = Panel->Surface->Size();
    Left = Wide(View.X1) * Size.X / 100;
    Top = Wide(View.X2) * Size.Y / 100;
    Right = Wide(View.Y1) * Size.X / 100;
    Bottom = Wide(View.Y2) * Size.Y / 100;
    CapX = Left + CaptionShift;
    CapY = Top + CaptionLine * View.Offset;
    XSpan = Right - Left;
    if (View.Mode == RowOverPosition) XScale = XSpan / (TraceRoom - 1);
    if (View.Mode == RowOverArgument) SetScale(XScale, XSpan, Wide(View.MaxXPar) - Wide(View.MinXPar));
    SetScale(YScale, Bottom - Top, Wide(View.MaxYPar) - Wide(View.MinYPar));
    X0 = Left - Wide(View.MinXPar) * XScale;
    Y0 = Bottom + Wide(View.MinYPar) * YScale;
    DotR = Size.Y / 200.0;
    HeadR = Head / 4 * XScale;
    for (std::size_t i = 0; View.Oper < OperFigureXY && i < Pts.size(); ++i)
        if (IsPlaced(Pts[i])) PlacePoint(i);
}

void cData01real::SetScales()
{
    Colour = RowColour(View); // which the user may have changed
    Scale();
    DrawScales();
}

void cData01real::DrawScales()
{
    if (!gIsCurves) return;
    iSurface& Surface = *Panel->Surface;
    if (View.Oper >= 0 && View.Oper < OperFigureXY) {
        // Thin whatever the curves' width: the grid is there to read the curve by.
        Surface.SetPen(Grey);
        for (int i = 0; gIsGrid && i < GridLines; ++i) {
            const double Y = Top + i * (Bottom - Top) / (GridLines - 1);
            Surface.Line(Left, Y, Right, Y);
        }
        Surface.Line(X0, Top, X0, Bottom);
        Surface.SetPen(Black);
        Surface.Line(Left, Y0, Right, Y0);
    }
    SetPen(Colour);
    Surface.SetFont(CaptionLine);
    Surface.Text(CapX, CapY, View.ID);
}

void cData01real::TakeSample(int Prev, int Cur, bool NewStroke)
{
    HasNumbers = false;
    if (NewStroke) ForgetSteps();
    if (ArgChan.empty()) return;
    ++SampCnt;
    if (NewStroke && View.Mode == RowOverPosition) {
        XScale = SafeDiv(XSpan, SampCnt);
        SampCnt = 0;
    }
    TakeArguments();
    const auto& V = Oper.ArgVals;
    Oper.DoOper(View.Oper, Clock);
    Numbers.Take(XVal, V[0], V[1], Clock);
    if (StepCnt < StepRoom) Steps[static_cast<std::size_t>(StepCnt++)] = TakeStep(Prev, Cur);
    if (!NewStroke || SrcMode == SourceDots) return;
    Numbers.EndStroke(XVal);
    HasNumbers = true;
    IsDrawn = false;
}

void cData01real::DrawData(int Sample)
{
    if (Sample < StepCnt) DrawStep(Steps[static_cast<std::size_t>(Sample)]);
    if (Sample == 0 && !IsDrawn) DrawStroke();
}

void cData01real::ForgetSteps()
{
    StepCnt = 0;
    IsDrawn = true;
}

void cData01real::DrawStroke()
{
    Numbers.Draw(*Panel->Surface, {Colour, Panel->DrawWidth, {CapX, CapY}});
}

// Value of a channel in the source; nothing when the source does not have it.
std::optional<double> cData01real::Calibrated(int Chan) const
{
    if (Chan < 1 || Chan > gFile.Calibr.UBound()) return {};
    if (IsTableSource(SrcMode)) {
        if (Chan > gRaw.ChannelUBound() || gPlayIdx < 0 || gPlayIdx > gRaw.UBound()) return {};
        return gRaw(Chan, gPlayIdx);
    }
    if (Chan > LastDataChan) return {};
    double Prev = 0;
    return CalcPhysVal(Chan, gData[static_cast<std::size_t>(Chan)], Prev);
}

// What the source does not have keeps its former value.
void cData01real::TakeArguments()
{
    if (!IsTableSource(SrcMode))
        Clock = gData[0];
    else if (gPlayIdx >= 0 && gPlayIdx <= gRaw.UBound())
        Clock = gRaw(0, gPlayIdx);
    const auto X = Calibrated(ArgChan[0]);
    if (X) XVal = *X;
    if (View.Mode == RowOverPosition) XPos = SampCnt;
    if (View.Mode == RowOverArgument) XPos = (X ? ArcValue(gFile.Calibr[ArgChan[0]], XVal) : XVal) - Wide(View.MinXPar);
    for (std::size_t i = 1; i <= static_cast<std::size_t>(Oper.ArgCnt); ++i)
        if (const auto Value = Calibrated(ArgChan[i])) Oper.ArgVals[i] = ArcValue(gFile.Calibr[ArgChan[i]], *Value);
}

// Dots are drawn whatever the switches say.
cData01real::Step cData01real::TakeStep(int Prev, int Cur)
{
    if (SrcMode == SourceDots)
        return {Step::Dot, {}, {XPos * XScale + Left, Bottom - (Oper.ArgVals[0] - Wide(View.MinYPar)) * YScale}};
    if (!gIsCurves) return {};
    if (View.Oper >= OperFigureXY) return {Step::Figure, {}, {}};
    return TakeLine(Prev, Cur);
}

cData01real::Step cData01real::TakeLine(int Prev, int Cur)
{
    const double Y = Oper.ArgVals[0];
    // The limits are single numbers, and so is the value when it is compared with them.
    const float Compared = static_cast<float>(Y);
    if (Compared >= View.MinYPar && Compared <= View.MaxYPar) {
        Values[static_cast<std::size_t>(Cur)] = {XPos, Y};
        PlacePoint(static_cast<std::size_t>(Cur));
    }
    return SegmentTo(Prev, Cur);
}

void cData01real::PlacePoint(std::size_t Cur)
{
    SurfacePoint& To = Pts[Cur];
    To.X = ToUnit(Values[Cur].X * XScale + Left).value_or(To.X);
    To.Y = ToUnit(Bottom - (Values[Cur].Y - Wide(View.MinYPar)) * YScale).value_or(To.Y);
}

cData01real::Step cData01real::SegmentTo(int Prev, int Cur) const
{
    const SurfacePoint& To = Pts[static_cast<std::size_t>(Cur)];
    if (!IsPlaced(To)) return {};
    const SurfacePoint& Last = Pts[static_cast<std::size_t>(Prev)];
    const SurfacePoint& From = IsPlaced(Last) ? Last : To;
    if (View.Mode == RowOverPosition && To.X < From.X) return {};
    return {Step::Segment, PlaceOf(From), PlaceOf(To)};
}

void cData01real::DrawAgain(int From, int To)
{
    for (int Cur = From; Cur <= To; ++Cur)
        DrawSegment(Cur - 1, Cur);
}

void cData01real::DrawSegment(int Prev, int Cur)
{
    if (gIsCurves && View.Oper < OperFigureXY) DrawStep(SegmentTo(Prev, Cur));
}

void cData01real::DrawStep(const Step& Each)
{
    if (Each.Kind == Step::None) return;
    if (Each.Kind == Step::Figure) return DrawAnimXY();
    iSurface& Surface = *Panel->Surface;
    SetPen(Colour);
    if (Each.Kind == Step::Dot) return Surface.Point(Each.To.X, Each.To.Y);
    Surface.Line(Each.From.X, Each.From.Y, Each.To.X, Each.To.Y);
    if (!gIsInd) return;
    Surface.SetFill(NoFill);
    Surface.Circle(Each.To.X, Each.To.Y, DotR);
}

void cData01real::SetFigure(std::span<const SurfacePoint, 16> Joints)
{
    std::copy(Joints.begin(), Joints.end(), Pts.begin());
}

void cData01real::DrawAnimXY()
{
    DrawFigure(OldPts, gRGB[0]);
    DrawFigure(Pts, Colour);
    std::copy_n(Pts.begin(), 16, OldPts.begin());
}

void cData01real::DrawFigure(const Trace& Points, int32_t Ink)
{
    const auto Joints = std::span(Points).first<16>();
    if (!IsPlaced(Joints[0])) return;
    iSurface& Surface = *Panel->Surface;
    SetPen(Ink);
    Surface.SetFill(NoFill);
    Surface.Polyline(Joints.first<8>());
    Surface.Circle(Joints[9].X, Joints[9].Y, HeadR);
    Surface.Circle(Joints[6].X, Joints[6].Y, DotR);
    Surface.Circle(Joints[7].X, Joints[7].Y, 2 * DotR);
    Surface.Circle(Joints[8].X, Joints[8].Y, DotR);
}

std::span<const StrokeNumber> cData01real::StrokeNumbers() const
{
    return HasNumbers ? Numbers.Made() : std::span<const StrokeNumber>();
}
