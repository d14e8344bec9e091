// Scales, curves and legend of the small picture of a sample.
#include "views/samples/cSamplePicture.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "views/mAxis.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int32_t White = 0xFFFFFF;
constexpr int32_t Ink = 0x403020;
constexpr int32_t GridColour = 0xE4DED8;
constexpr int Letters = 12;
constexpr int LeftRoom = 44, RightRoom = 10, TopRoom = 26, BottomRoom = 34;

// One axis: its values from Low to High in steps, on places from From to To.
struct Axis
{
    double Low = 0, High = 1, Step = 1, From = 0, To = 1;

    double Place(double Value) const { return From + (Value - Low) * SafeDiv(To - From, High - Low); }
};

// Limits widened to whole steps of 1, 2 or 5, about Wanted of them.
Axis MakeAxis(double Low, double High, int Wanted, double From, double To)
{
    const double Step = NiceStep(High - Low, Wanted);
    return {std::floor(Low / Step) * Step, std::ceil(High / Step) * Step, Step, From, To};
}

template <class Work>
void ForTicks(const Axis& Scale, const Work& Draw)
{
    constexpr int MostTicks = 100;
    const int Count = RoundWithin((Scale.High - Scale.Low) / Scale.Step, 0, MostTicks);
    for (int i = 0; i <= Count; ++i)
        Draw(Scale.Low + i * Scale.Step);
}

void DrawAxes(iSurface& Surface, const Axis& X, const Axis& Y)
{
    Surface.SetFont(Letters);
    ForTicks(X, [&](double Value) {
        Surface.SetPen(GridColour);
        Surface.Line(X.Place(Value), Y.To, X.Place(Value), Y.From);
        Surface.SetPen(Ink);
        Surface.Text(X.Place(Value), Y.From + 3, FormatNum(Value, "0"), eAlign::Centre);
    });
    ForTicks(Y, [&](double Value) {
        Surface.SetPen(GridColour);
        Surface.Line(X.From, Y.Place(Value), X.To, Y.Place(Value));
        Surface.SetPen(Ink);
        Surface.Text(X.From - 4, Y.Place(Value) - Letters / 2.0 - 1, FormatNum(Value, "0"), eAlign::Right);
    });
    Surface.Text(4, 4, "Handle force (N)");
    Surface.Text(X.To, Y.From + 4 + Letters, "Oar angle (degrees)", eAlign::Right);
}

int32_t CurveColour(int Index)
{
    return PaperInk(At(gRGB, Index % 8 + 1));
}

// The last point is joined to the first: a stroke is a closed curve.
void DrawCurve(iSurface& Surface, const OarCurve& Curve, const Axis& X, const Axis& Y)
{
    std::vector<SurfacePlace> Places;
    for (std::size_t i = 0; i <= Curve.Angles.size(); ++i) {
        const std::size_t k = i % Curve.Angles.size();
        Places.push_back({X.Place(Curve.Angles[k]), Y.Place(Curve.Forces[k])});
    }
    Surface.Curve(Places);
}

const DataRow* FindRow(const std::string& SampleID, const std::string& ParamID)
{
    const int Row = FindData(gFile.Data, SampleID, ParamID);
    return Row < 1 ? nullptr : &gFile.Data[Row];
}
} // namespace

std::vector<OarCurve> OarCurves(const std::string& SampleID)
{
    std::vector<OarCurve> Curves;
    for (const DataRow& Force : gFile.Data) {
        const std::string& Name = Force.ParamID;
        if (Force.SampleID != SampleID || Name.size() < 2 || Name[0] != 'H' || Name[1] < '0' || Name[1] > '9') continue;
        const DataRow* Angle = FindRow(SampleID, "A" + Name.substr(1));
        if (!Angle || Angle->Values.empty() || Angle->Values.size() != Force.Values.size()) continue;
        Curves.push_back({Name.substr(1), Angle->Values, Force.Values});
    }
    return Curves;
}

void DrawSamplePicture(iSurface& Surface, const std::vector<OarCurve>& Curves)
{
    const SurfacePoint Size = Surface.Size();
    Surface.Clear(White);
    Surface.SetFill(NoFill);
    Surface.SetPen(Ink);
    Surface.SetFont(Letters);
    if (Curves.empty())
        return Surface.Text(Size.X / 2.0, Size.Y / 2.0, "No force curves in this sample", eAlign::Centre);
    double Left = 0, Right = 0, Low = 0, High = 0;
    for (const OarCurve& Curve : Curves) {
        const auto [MinX, MaxX] = std::minmax_element(Curve.Angles.begin(), Curve.Angles.end());
        const auto [MinY, MaxY] = std::minmax_element(Curve.Forces.begin(), Curve.Forces.end());
        Left = std::min(Left, *MinX), Right = std::max(Right, *MaxX);
        Low = std::min(Low, *MinY), High = std::max(High, *MaxY);
    }
    const Axis X = MakeAxis(Left, Right, 6, LeftRoom, Size.X - RightRoom);
    const Axis Y = MakeAxis(Low, High, 5, Size.Y - BottomRoom, TopRoom);
    DrawAxes(Surface, X, Y);
    double Legend = X.To;
    for (int i = static_cast<int>(Curves.size()) - 1; i >= 0; --i) {
        const OarCurve& Curve = Curves[static_cast<std::size_t>(i)];
        Surface.SetPen(CurveColour(i), 2);
        DrawCurve(Surface, Curve, X, Y);
        Surface.SetFont(Letters, true);
        Surface.Text(Legend, 4, Curve.Oar, eAlign::Right);
        Legend -= Surface.TextWidth(Curve.Oar, Letters, true) + 8;
    }
}
