// Scale steps, and cutting segment by segment.
#include "views/mAxis.h"

#include "base/mNumText.h"

#include <algorithm>
#include <cmath>

namespace {
// The part of the way from A to B at which the line comes in and goes out.
struct Crossing
{
    double In = 0;
    double Out = 1;

    // Takes away what lies beyond one edge: Distance is how far A lies inside of it, Step how much further B does.
    void CutAt(double Distance, double Step)
    {
        if (Step == 0) {
            if (Distance < 0) Out = -1;
        } else if (Step > 0) {
            In = std::max(In, -Distance / Step);
        } else {
            Out = std::min(Out, -Distance / Step);
        }
    }
};

Crossing Cut(const PlotRect& Frame, SurfacePlace A, SurfacePlace B)
{
    Crossing Part;
    Part.CutAt(A.X - Frame.Left, B.X - A.X);
    Part.CutAt(Frame.Right - A.X, A.X - B.X);
    Part.CutAt(A.Y - Frame.Top, B.Y - A.Y);
    Part.CutAt(Frame.Bottom - A.Y, A.Y - B.Y);
    return Part;
}

bool IsFinite(SurfacePlace Place)
{
    return std::isfinite(Place.X) && std::isfinite(Place.Y);
}
} // namespace

double NiceStep(double Span, int Wanted)
{
    const double Raw = std::max(Span, 1e-6) / Wanted;
    const double Ten = std::pow(10.0, std::floor(std::log10(Raw)));
    for (const double Factor : {1.0, 2.0, 5.0})
        if (Factor * Ten >= Raw) return Factor * Ten;
    return 10 * Ten;
}

std::vector<double> Ticks(double Low, double High, int Wanted)
{
    if (High < Low) std::swap(Low, High);
    if (!std::isfinite(High - Low) || High == Low) return {};
    const double Step = NiceStep(High - Low, Wanted);
    const double Slack = 1e-6; // of a step: limits are 32-bit numbers
    std::vector<double> Values;
    for (double k = std::ceil(Low / Step - Slack); k <= High / Step + Slack; ++k)
        Values.push_back(k * Step);
    return Values;
}

std::string TickText(double Value, double Step)
{
    const int Decimals = std::clamp(static_cast<int>(-std::floor(std::log10(std::max(Step, 1e-6)) + 1e-9)), 0, 6);
    const std::string Pattern = Decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(Decimals), '0');
    return FormatNum(std::abs(Value) < Step / 2 ? 0 : Value, Pattern);
}

void DrawClipped(iSurface& Surface, const PlotRect& Frame, std::span<const SurfacePlace> Curve)
{
    std::vector<SurfacePlace> Piece;
    const auto Finish = [&] {
        if (Piece.size() > 1) Surface.Curve(Piece);
        Piece.clear();
    };
    for (std::size_t i = 0; i + 1 < Curve.size(); ++i) {
        const SurfacePlace A = Curve[i];
        const SurfacePlace B = Curve[i + 1];
        const Crossing Part = IsFinite(A) && IsFinite(B) ? Cut(Frame, A, B) : Crossing{1, 0};
        if (Part.In > Part.Out) {
            Finish();
            continue;
        }
        const auto At = [&](double Share) {
            return SurfacePlace{A.X + Share * (B.X - A.X), A.Y + Share * (B.Y - A.Y)};
        };
        if (Piece.empty()) Piece.push_back(At(Part.In));
        Piece.push_back(At(Part.Out));
        if (Part.Out < 1) Finish();
    }
    Finish();
}
