// A live row's way from its arguments to its curve and numbers.
#include "live/panel/cData01real.h"

#include "base/mNumText.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "processing/mGlobFunc.h"
#include "processing/mPhysVal.h"
#include "processing/mViewRow.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
constexpr int32_t Black = 0x000000;
constexpr int32_t Grey = 0x7F7F7F;
constexpr int32_t Blue = 0xFF0000;
constexpr int32_t Green = 0x00FF00;
constexpr int32_t Orange = 0x007FFF;
constexpr int32_t Red = 0x0000FF;

constexpr double CaptionShift = 50;
constexpr int CaptionLine = 12; // height of a caption, and from one to the next
constexpr int NumberLine = 60;  // from one stroke number to the next
constexpr int NumberFont = 48;
constexpr int GridLines = 11;

// Where nothing has been plotted yet.
constexpr SurfacePoint Nowhere{std::numeric_limits<int32_t>::min(), 0};

bool IsPlaced(const SurfacePoint& Place)
{
    return Place.X != Nowhere.X;
}

// A late catch within this many seconds is told in blue.
constexpr double CatchLimit = -0.08;

// Entry i of a list of marks, 0 where there is none or it is out of range.
int MarkNumber(const std::vector<double>& Marks, std::size_t i, double Factor = 1)
{
    using Limits = std::numeric_limits<int16_t>;
    const double Whole = i < Marks.size() ? RoundHalfEven(Marks[i] * Factor) : 0;
    return Whole >= Limits::min() && Whole <= Limits::max() ? static_cast<int>(Whole) : 0;
}

int32_t MarkColour(double Score)
{
    return Score > 7.5 ? Green : Score > 4.0 ? Orange : Red;
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
    for (std::string& Key : SplitStr(View.Functions))
        Numbers.push_back({Key});
    if (!Numbers.empty()) ReadModel();
    if (View.Oper >= OperFigureXY && View.Oper <= OperFigureLast && gFile.Crew.UBound() >= 1)
        Head = Wide(gFile.Crew[1].Head);
}

void cData01real::ReadModel()
{
    IsMod = Numbers[0].Key == "Mod";
    IsAcceleration = Numbers.size() > 1 && Numbers[1].Key == "As";
    const auto CritVals = SplitNum(View.Criteria);
    const auto CritStd = SplitNum(View.CritSTD);
    Targets.resize(Numbers.size());
    for (std::size_t i = 0; i < Targets.size(); ++i) {
        if (i < CritVals.size()) Targets[i].Value = CritVals[i];
        if (i < CritStd.size()) Targets[i].Deviation = CritStd[i];
    }
    const auto Marks = SplitNum(View.DiamFontXY);
    MarkDiam = MarkNumber(Marks, 0, 0.5);
    MarkFont = MarkNumber(Marks, 1);
    MarkX = MarkNumber(Marks, 2);
    MarkY = MarkNumber(Marks, 3);
}

// The row's placement is left, top, right and bottom, whatever its columns are called.
void cData01real::SetScales()
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
    DrawScales();
}

void cData01real::DrawAgain(int Last)
{
    for (int Cur = 1; gIsCurves && View.Oper < OperFigureXY && Cur <= Last; ++Cur)
        DrawStep(Cur - 1, Cur);
    if (HasStroke) DrawStroke();
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

void cData01real::DrawData(int Prev, int Cur, bool NewStroke)
{
    HasNumbers = false;
    if (ArgChan.empty()) return;
    ++SampCnt;
    if (NewStroke && View.Mode == RowOverPosition) {
        XScale = SafeDiv(XSpan, SampCnt);
        SampCnt = 0;
    }
    TakeArguments();
    const auto& V = Oper.ArgVals;
    Oper.DoOper(View.Oper, Clock);
    Stats.CheckFunc(XVal, V[0], V[1], Clock);
    if (IsMod) Model.Take(XVal, V[0]);
    if (SrcMode == SourceDots) return DrawDots();
    if (gIsCurves && View.Oper < OperFigureXY) DrawLine(Prev, Cur);
    if (gIsCurves && View.Oper >= OperFigureXY) DrawAnimXY();
    if (NewStroke && !Numbers.empty()) EndStroke();
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

void cData01real::DrawLine(int Prev, int Cur)
{
    const double Y = Oper.ArgVals[0];
    // The limits are single numbers, and so is the value when it is compared with them.
    const float Compared = static_cast<float>(Y);
    if (Compared >= View.MinYPar && Compared <= View.MaxYPar) {
        Values[static_cast<std::size_t>(Cur)] = {XPos, Y};
        PlacePoint(static_cast<std::size_t>(Cur));
    }
    DrawStep(Prev, Cur);
}

void cData01real::PlacePoint(std::size_t Cur)
{
    SurfacePoint& To = Pts[Cur];
    To.X = ToUnit(Values[Cur].X * XScale + Left).value_or(To.X);
    To.Y = ToUnit(Bottom - (Values[Cur].Y - Wide(View.MinYPar)) * YScale).value_or(To.Y);
}

void cData01real::DrawStep(int Prev, int Cur)
{
    const SurfacePoint& To = Pts[static_cast<std::size_t>(Cur)];
    if (!IsPlaced(To)) return;
    const SurfacePoint& Last = Pts[static_cast<std::size_t>(Prev)];
    const SurfacePoint& From = IsPlaced(Last) ? Last : To;
    if (View.Mode == RowOverPosition && To.X < From.X) return;
    iSurface& Surface = *Panel->Surface;
    SetPen(Colour);
    Surface.Line(From.X, From.Y, To.X, To.Y);
    if (!gIsInd) return;
    Surface.SetFill(NoFill);
    Surface.Circle(To.X, To.Y, DotR);
}

void cData01real::DrawDots()
{
    SetPen(Colour);
    Panel->Surface->Point(XPos * XScale + Left, Bottom - (Oper.ArgVals[0] - Wide(View.MinYPar)) * YScale);
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

// With the values switched off the extremes run on.
void cData01real::EndStroke()
{
    HasNumbers = HasStroke = gIsValue;
    if (gIsValue) {
        SetFuncs();
        if (IsMod) CheckModel();
        DrawStroke();
        Stats.ResetFuncs();
    }
    Model.Reset();
}

void cData01real::DrawStroke()
{
    if (IsMod) DrawMarks();
    DrawNumbers();
}

void cData01real::SetFuncs()
{
    for (StrokeNumber& Number : Numbers)
        if (const auto Value = Stats.Value(Number.Key, XVal)) Number.Value = *Value;
}

void cData01real::CheckModel()
{
    const auto Stroke = IsAcceleration ? Model.MeasureAcceleration(gRate, gTimeStep) : Model.MeasureForce();
    for (std::size_t i = 1; i < Numbers.size(); ++i) {
        StrokeNumber& Number = Numbers[i];
        const auto Score = Stroke ? ModelScore(Number.Key, *Stroke, Targets[i - 1], gRate) : std::nullopt;
        Number.IsMade = Score.has_value();
        if (!Score) continue;
        const bool IsClamped = *Score != NoScore && Number.Key != "As";
        Number.Value = IsClamped ? std::clamp(*Score, 1.0, 10.0) : *Score;
    }
    MarkText.clear();
    if (IsAcceleration && Stroke)
        MarkText = "F=" + FormatNum(Numbers[1].Value, "0.0") + ", Min=" + FormatNum(Stroke->LowestY, "0.0") +
                   ", Max=" + FormatNum(Stroke->Peak, "0.0") + ", DA=" + FormatNum(Stroke->Rise, "0.0");
}

void cData01real::DrawMarks()
{
    int32_t Ink = Black;
    for (std::size_t i = 1; !IsAcceleration && i < Numbers.size(); ++i)
        if (Numbers[i].IsMade) DrawForceMark(static_cast<int>(i), Numbers[i].Value, Ink);
    if (MarkText.empty()) return;
    SetPen(Black);
    Panel->Surface->SetFont(MarkFont);
    Panel->Surface->Text(MarkX, MarkY, MarkText);
}

// Only the circles form a column: the two texts of every key stand at the same place. An unknown key takes the colour
// of the one before it.
void cData01real::DrawForceMark(int Key, double Score, int32_t& Ink)
{
    if (Score != NoScore) {
        Score = std::clamp(Score, 1.0, 10.0);
        Ink = MarkColour(Score);
    }
    iSurface& Surface = *Panel->Surface;
    SetPen(Ink);
    Surface.SetFill(Ink);
    Surface.SetFont(MarkFont);
    Surface.Text(MarkX / 2.0, MarkY, FormatNum(Score, "0"));
    if (gIsInd) Surface.Circle(MarkX, static_cast<double>(MarkY) * Key, MarkDiam);
    if (gIsScore) Surface.Text(MarkX, MarkY, FormatNum(Score, "0.0"));
}

void cData01real::DrawNumbers()
{
    iSurface& Surface = *Panel->Surface;
    SetPen(Colour);
    Surface.SetFont(NumberFont);
    for (std::size_t i = 0; i < Numbers.size(); ++i) {
        const StrokeNumber& Number = Numbers[i];
        if (!Number.IsMade) continue;
        if (Number.Key == "Catch" && Number.Value > CatchLimit && Number.Value < 0) SetPen(Blue);
        Surface.Text(CapX, CapY + NumberLine * static_cast<double>(i), Number.Key + "=" + FormatSig(Number.Value, 4));
    }
}

std::span<const StrokeNumber> cData01real::StrokeNumbers() const
{
    return HasNumbers ? std::span(Numbers) : std::span<const StrokeNumber>();
}
