// Curves of a stroke, one behind the other.
#include "records/mColourSample.h"

#include "base/mNumText.h"
#include "core/mSettings.h"

#include <numbers>

namespace {
constexpr int NumberFont = 14;
constexpr int Steps = 60;
constexpr double Lowest = 0.5; // height of the last curve, as a share of the first
constexpr int CurveCnt = static_cast<int>(std::tuple_size_v<decltype(gRGB)>) - 1;

struct Frame
{
    double Left;
    double Bottom;
    double Width; // of a curve
    double Height;
    double Shift; // from one curve to the next
};

// A drive: the force rises fast and falls slowly.
double Force(double Part)
{
    constexpr double Skew = 0.8;
    return std::sin(std::numbers::pi * std::pow(Part, Skew));
}

void DrawCurve(iSurface& Surface, const Frame& Room, int Number)
{
    const double Share = static_cast<double>(Number - 1) / (CurveCnt - 1);
    const double Left = Room.Left + Room.Shift * (Number - 1);
    const double Height = Room.Height * (1 - (1 - Lowest) * Share);
    std::vector<SurfacePlace> Places;
    for (int i = 0; i <= Steps; ++i) {
        const double Part = static_cast<double>(i) / Steps;
        Places.push_back({Left + Room.Width * Part, Room.Bottom - Height * Force(Part)});
    }
    Surface.SetPen(gRGB[static_cast<std::size_t>(Number)], gDrawWidth);
    Surface.Curve(Places);
    Surface.SetPen(gRGB[static_cast<std::size_t>(Number)]);
    Surface.Text(Left + Room.Width, Room.Bottom + 4, FormatNum(Number, "0"), eAlign::Centre);
}
} // namespace

void DrawColourSample(iSurface& Surface)
{
    constexpr double Margin = 16;
    const SurfacePoint Size = Surface.Size();
    const double Free = std::max(Size.X - 2 * Margin, 1.0);
    const Frame Room{Margin, Size.Y - Margin - NumberFont, Free / 2, std::max(Size.Y - 3 * Margin - NumberFont, 1.0),
                     Free / 2 / (CurveCnt - 1)};
    Surface.Clear(gRGB[0]);
    Surface.SetFont(NumberFont);
    for (int Number = 1; Number <= CurveCnt; ++Number)
        DrawCurve(Surface, Room, Number);
}
