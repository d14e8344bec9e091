// The play view's curves: their points, their window around the clock and their way into a rectangle.
#include "views/play/cData04play.h"

#include "base/mError.h"
#include "processing/mGlobFunc.h"
#include "processing/mViewRow.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
constexpr int32_t ZeroGrey = 0x7F7F7F;
constexpr double NoData = std::numeric_limits<double>::quiet_NaN();
} // namespace

void cData04play::InitViewID(int Row, int16_t InitMode, int Sample, double SampleStep)
{
    Args.clear();
    CurveY.clear();
    View = gFile.View4[Row];
    Mode = InitMode;
    const DescRow& Desc = gFile.Desc[Sample];
    FindArguments(Desc);
    if (Args.empty()) return;
    PntCnt = IsPrimary() ? PrimPoints : Desc.DataCount;
    Step = IsPrimary() ? SampleStep : Div(Div(60, Desc.Rate), PntCnt);
    FirstS = gPlayIdx - Centre();
    CurveY.assign(static_cast<std::size_t>(std::max(PntCnt, -1) + 1), NoData);
    // An operation that lacks arguments fails now, not when the clock first comes to data.
    PointPair(static_cast<int>(Args.size()) - 1, Step).DoPlayOper(View.Oper);
    FillArr(0, PntCnt);
}

void cData04play::FindArguments(const DescRow& Desc)
{
    const auto Names = SplitStr(View.Arguments);
    const auto Chans = ArgChannels(Names);
    for (std::size_t i = 0; i < Names.size(); ++i) {
        Argument Found;
        const int Row = IsPrimary() ? -1 : FindData(gFile.Data, Desc.SampleID, Names[i]);
        if (Chans[i] >= 1 && (IsPrimary() || Row >= 1)) Found.Chan = Chans[i];
        if (Row >= 1) Found.Data = &gFile.Data[Row];
        Args.push_back(Found);
    }
}

// Point k is made of the samples k and k + 1 of the window. Unlike the report's, the cycle of a stored sample is
// closed: the point before the first is the last one. Argument 0 is an argument like the others.
void cData04play::TakeArguments(PointPair& Pair, int k) const
{
    for (std::size_t i = 0; i < Args.size(); ++i) {
        const auto [Chan, Data] = Args[i];
        if (Chan < 1) continue;
        const auto Value = [&, Chan = Chan, Data = Data](int Point) {
            return ArcValue(gFile.Calibr[Chan], IsPrimary() ? gRaw(Chan, FirstS + Point) : At(Data->Values, Point));
        };
        Pair.ValA[i] = IsPrimary() ? Value(k) : Value(k == 0 ? PntCnt : k - 1);
        Pair.ValB[i] = IsPrimary() ? Value(k + 1) : Value(k);
    }
}

// The first sample of the store and the last one make no point.
void cData04play::FillArr(int First, int Last)
{
    PointPair Pair(static_cast<int>(Args.size()) - 1, Step);
    for (int k = First; k <= Last; ++k) {
        const int32_t Sample = FirstS + k;
        const bool HasData = !IsPrimary() || (Sample >= 1 && Sample < gRaw.UBound());
        if (HasData) TakeArguments(Pair, k);
        CurveY[static_cast<std::size_t>(k)] = HasData ? Pair.DoPlayOper(View.Oper) : NoData;
    }
}

void cData04play::CalcPrim(int32_t Shift)
{
    if (Shift == 0 || CurveY.empty()) return;
    FirstS = gPlayIdx - Centre();
    if (std::abs(Shift) >= PntCnt) return FillArr(0, PntCnt);
    if (Shift > 0) {
        std::shift_left(CurveY.begin(), CurveY.end(), Shift);
        FillArr(PntCnt - Shift + 1, PntCnt);
    } else {
        std::shift_right(CurveY.begin(), CurveY.end(), -Shift);
        FillArr(0, -Shift - 1);
    }
}

void cData04play::CalcNorm(double Frac)
{
    Fraction = Frac - std::floor(Frac);
    if (Fraction >= 1) Fraction = 0; // a tiny negative one, rounded
}

// Where in the curve the clock stands. The whole cycle is one point shorter than the count of points: its last fiftieth
// is left out.
double cData04play::CyclePoint() const
{
    return (PntCnt - 1) * Fraction;
}

std::optional<double> cData04play::Current() const
{
    if (CurveY.empty()) return {};
    if (IsPrimary()) {
        const double Value = At(CurveY, Centre());
        return std::isnan(Value) ? std::nullopt : std::optional(Value);
    }
    const double Point = CyclePoint();
    const int k = static_cast<int>(Point);
    const double Share = Point - k;
    const double After = k + 1 > PntCnt ? At(CurveY, 1) : At(CurveY, k + 1);
    return At(CurveY, k) + Share * (After - At(CurveY, k));
}

// The horizontal axis is time in both row modes: only a figure has other uses for its X limits.
void cData04play::SetScales(const PlotRect& Area)
{
    const auto Edge = [](double Start, double Length, double Percent) { return Start + Length * Percent / 100; };
    const double Low = View.MinYPar, High = View.MaxYPar;
    // The four fields are left, top, right and bottom in this order, whatever they are called.
    Frame = {Edge(Area.Left, Area.Width(), View.X1), Edge(Area.Left, Area.Width(), View.Y1),
             Edge(Area.Top, Area.Height(), View.X2), Edge(Area.Top, Area.Height(), View.Y2)};
    ScaleX = PntCnt > 0 && Frame.Width() > 0 ? Frame.Width() / PntCnt : 1;
    ScaleY = SafeDiv(Frame.Height(), High - Low);
    ZeroX = Frame.Left;
    ZeroY = Low * ScaleY + Frame.Bottom;
}

void cData04play::DrawScales(iSurface& Surface) const
{
    const double Y = PlaceY(0);
    Surface.SetPen(ZeroGrey);
    if (Y >= Frame.Top && Y <= Frame.Bottom) Surface.Line(Frame.Left, Y, Frame.Right, Y);
}

// A cycle is turned by whole points, and by the rest between two; a point more on either side reaches the edges. It is
// closed: behind its last point comes its first.
void cData04play::DrawData(iSurface& Surface) const
{
    std::vector<SurfacePlace> Curve;
    const int Whole = static_cast<int>(CyclePoint());
    const double Rest = CyclePoint() - Whole;
    const int Beyond = IsPrimary() ? 0 : 1;
    for (int k = -Beyond; k <= PntCnt + Beyond; ++k) {
        const int Point = IsPrimary() ? k : (k + Whole - Centre() + 2 * PntCnt) % PntCnt;
        Curve.push_back({PlaceX(IsPrimary() ? k : k - Rest), PlaceY(CurveY[static_cast<std::size_t>(Point)])});
    }
    DrawClipped(Surface, Frame, Curve);
}
