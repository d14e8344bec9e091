// The report's curves from samples and typical patterns, and their way into a rectangle.
#include "views/report/cData03report.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mModes.h"
#include "processing/mGlobFunc.h"
#include "processing/mNorm.h"
#include "processing/mOper.h"
#include "processing/mViewRow.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int32_t ZeroGrey = 0x7F7F7F;
} // namespace

void LoadSamplePattern(const DescRow& Sample)
{
    std::vector<const DataRow*> Rows(1);
    for (const DataRow& Row : gFile.Data)
        if (Row.SampleID == Sample.SampleID) Rows.push_back(&Row);
    NormTable Pattern;
    Pattern.Create(static_cast<int>(Rows.size()) - 1);
    for (int Column = 1; Column <= Pattern.ChannelUBound(); ++Column)
        for (int Point = 0; Point <= Sample.DataCount; ++Point)
            Pattern(Point, Column) = At(At(Rows, Column)->Values, Point);
    gNormAver2 = std::move(Pattern);
    gRate = Sample.Rate;
}

// Asked for each time: the user may have changed the colours.
int32_t cData03report::Colour() const
{
    return RowColour(View);
}

void cData03report::InitViewID(int Row, int InitKind, int32_t First, int32_t Last)
{
    View = gFile.View3[Row];
    Kind = InitKind;
    IsVisible = false;
    CurveX.clear();
    CurveY.clear();
    const auto ArgNames = SplitStr(View.Arguments);
    if (ArgNames.empty()) return;
    FirstS = IsPrimary() ? First : 0;
    PntCnt = IsPrimary() ? Last - First : NormSteps;
    Step = IsPrimary() ? gDeltaT : SafeDiv(60, gRate) / NormSteps;
    AxisX = QuantityX(View);
    AxisY = QuantityY(View);
    FillArr(ArgChannels(ArgNames));
    IsVisible = true;
}

// A value as an operation gets it.
double cData03report::Value(int Chan, int32_t Point) const
{
    return ArcValue(gFile.Calibr[Chan], IsPrimary() ? gRaw(Chan, Point) : gNormAver2(Point, Chan));
}

// Samples at the ends of the store keep the arguments of the point before.
bool cData03report::HasPair(int32_t Point) const
{
    return !IsPrimary() || (Point >= 1 && Point <= gRaw.UBound() - 1);
}

void cData03report::FillArr(const std::vector<int>& ArgChans)
{
    PointPair Pair(static_cast<int>(ArgChans.size()) - 1, Step);
    for (int32_t i = FirstS; i < FirstS + PntCnt; ++i) {
        double X = 0;
        if (View.Mode == RowOverPosition) X = i + 0.5;
        if (View.Mode == RowOverArgument && ArgChans[0] >= 1)
            X = (Value(ArgChans[0], i) + Value(ArgChans[0], i + 1)) / 2;
        for (std::size_t Arg = 1; Arg < ArgChans.size(); ++Arg) {
            if (ArgChans[Arg] < 1 || !HasPair(i)) continue;
            Pair.ValA[Arg] = Value(ArgChans[Arg], i);
            Pair.ValB[Arg] = Value(ArgChans[Arg], i + 1);
        }
        CurveX.push_back(X);
        CurveY.push_back(Pair.DoReportOper(View.Oper));
    }
}

std::vector<RowValue> cData03report::GetFuncs() const
{
    std::vector<RowValue> Values;
    for (const std::string& Word : SplitStr(View.Functions)) {
        const std::string Key(LeftPart(Word, 4));
        Values.push_back({View.ID + " " + Key + " ", Key, RowFunction(Key, CurveX, CurveY)});
    }
    return Values;
}

// Positions count from the first sample shown, wherever in the recording it is.
double cData03report::LeftValue() const
{
    const double Low = View.MinXPar;
    return View.Mode == RowOverPosition ? Low + FirstS : Low;
}

double cData03report::RightValue() const
{
    const double High = View.MaxXPar;
    return View.Mode == RowOverPosition ? LeftValue() + PntCnt : High;
}

void cData03report::SetScales(const PlotRect& Area, double Pixel)
{
    const auto Edge = [](double Start, double Length, double Percent) { return Start + Length * Percent / 100; };
    const double Low = View.MinYPar;
    const double High = View.MaxYPar;
    // The four fields are left, top, right and bottom in this order, whatever they are called.
    Frame = {Edge(Area.Left, Area.Width(), View.X1), Edge(Area.Left, Area.Width(), View.Y1),
             Edge(Area.Top, Area.Height(), View.X2), Edge(Area.Top, Area.Height(), View.Y2)};
    ScaleX = SafeDiv(Frame.Width(), RightValue() - LeftValue());
    ScaleY = SafeDiv(Frame.Height(), High - Low);
    ZeroX = Frame.Left - LeftValue() * ScaleX;
    ZeroY = Low * ScaleY + Frame.Bottom;
    Pts.clear();
    for (std::size_t k = 0; k < CurveX.size(); ++k)
        Pts.push_back(
            {RoundHalfEven(PlaceX(CurveX[k]) / Pixel) * Pixel, RoundHalfEven(PlaceY(CurveY[k]) / Pixel) * Pixel});
}

void cData03report::DrawScales(iSurface& Surface) const
{
    Surface.SetPen(ZeroGrey);
    const double X = PlaceX(0);
    const double Y = PlaceY(0);
    if (X >= Frame.Left && X <= Frame.Right) Surface.Line(X, Frame.Top, X, Frame.Bottom);
    if (Y >= Frame.Top && Y <= Frame.Bottom) Surface.Line(Frame.Left, Y, Frame.Right, Y);
}

void cData03report::DrawDot(iSurface& Surface) const
{
    SurfacePlace Former{-1, -1};
    for (const SurfacePlace& Each : Pts) {
        const bool IsInside =
            Each.X >= Frame.Left && Each.X <= Frame.Right && Each.Y >= Frame.Top && Each.Y <= Frame.Bottom;
        if (IsInside && (Each.X != Former.X || Each.Y != Former.Y)) Surface.Point(Each.X, Each.Y);
        Former = Each;
    }
}

// The last point is joined to the first. Over the sample position that one comes a stroke later, beyond the right edge,
// and the last one a stroke earlier, beyond the left edge: a line back across the plot would be no part of the stroke.
void cData03report::DrawNorm(iSurface& Surface) const
{
    if (Pts.empty()) return;
    std::vector<SurfacePlace> Cycle = Pts;
    const double Period = View.Mode == RowOverPosition ? ScaleX * PntCnt : 0;
    Cycle.push_back({Pts.front().X + Period, Pts.front().Y});
    if (Period != 0) Cycle.insert(Cycle.begin(), {Pts.back().X - Period, Pts.back().Y});
    DrawClipped(Surface, Frame, Cycle);
}
