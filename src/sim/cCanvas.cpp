// Lines by their distance from each pixel, and figures of seven strokes.
#include "sim/cCanvas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr uint32_t Opaque = 0xFF000000;

double DistanceTo(CanvasPlace A, CanvasPlace B, double X, double Y)
{
    const double Dx = B.X - A.X;
    const double Dy = B.Y - A.Y;
    const double Length = Dx * Dx + Dy * Dy;
    const double Part = Length > 0 ? std::clamp(((X - A.X) * Dx + (Y - A.Y) * Dy) / Length, 0.0, 1.0) : 0;
    return std::hypot(X - A.X - Part * Dx, Y - A.Y - Part * Dy);
}

// The strokes of a figure as shares of its width and height: top, two at the right, bottom, two at the left, middle.
struct Bar
{
    CanvasPlace A;
    CanvasPlace B;
};
constexpr std::array<Bar, 7> Bars = {{{{0, 0}, {1, 0}},
                                      {{1, 0}, {1, 0.5}},
                                      {{1, 0.5}, {1, 1}},
                                      {{0, 1}, {1, 1}},
                                      {{0, 0.5}, {0, 1}},
                                      {{0, 0}, {0, 0.5}},
                                      {{0, 0.5}, {1, 0.5}}}};
constexpr std::array<unsigned, 10> BarsOf = {0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x6F};
} // namespace

cCanvas::cCanvas(int Width, int Height)
{
    Drawn.Width = Width;
    Drawn.Height = Height;
    Drawn.Pixels.assign(static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height), Opaque);
}

void cCanvas::FillBelow(double Top, uint32_t Colour)
{
    const int First = std::clamp(static_cast<int>(std::lround(Top)), 0, Drawn.Height);
    std::fill(Drawn.Pixels.begin() + static_cast<std::ptrdiff_t>(First) * Drawn.Width, Drawn.Pixels.end(),
              Opaque | Colour);
}

void cCanvas::Blend(int X, int Y, double Share, uint32_t Colour)
{
    uint32_t& Pixel =
        Drawn.Pixels[static_cast<std::size_t>(Y) * static_cast<std::size_t>(Drawn.Width) + static_cast<std::size_t>(X)];
    uint32_t Mixed = Opaque;
    for (const unsigned Shift : {0U, 8U, 16U}) {
        const double Old = (Pixel >> Shift) & 0xFF;
        const double New = (Colour >> Shift) & 0xFF;
        Mixed |= static_cast<uint32_t>(std::lround(Old + (New - Old) * Share)) << Shift;
    }
    Pixel = Mixed;
}

void cCanvas::Line(CanvasPlace A, CanvasPlace B, double Width, uint32_t Colour)
{
    const double Half = Width / 2;
    const auto From = [Half](double P, double Q) { return std::max(0, static_cast<int>(std::min(P, Q) - Half) - 1); };
    const auto To = [Half](double P, double Q, int Size) {
        return std::min(Size - 1, static_cast<int>(std::max(P, Q) + Half) + 1);
    };
    constexpr double Middle = 0.5; // of a pixel
    for (int Y = From(A.Y, B.Y); Y <= To(A.Y, B.Y, Drawn.Height); ++Y)
        for (int X = From(A.X, B.X); X <= To(A.X, B.X, Drawn.Width); ++X) {
            const double Share = std::clamp(Half + Middle - DistanceTo(A, B, X + Middle, Y + Middle), 0.0, 1.0);
            if (Share > 0) Blend(X, Y, Share, Colour);
        }
}

void cCanvas::Figures(CanvasPlace At, double Height, const std::string& Text, uint32_t Colour)
{
    const double Wide = Height / 2;
    const double Thick = Height / 8;
    for (const char Each : Text) {
        if (Each == '.') {
            Dot({At.X, At.Y + Height}, Thick, Colour);
            At.X += Wide;
            continue;
        }
        const unsigned Lit = Each >= '0' && Each <= '9' ? BarsOf[static_cast<std::size_t>(Each - '0')] : 0;
        for (std::size_t i = 0; i < Bars.size(); ++i)
            if ((Lit >> i) & 1U)
                Line({At.X + Bars[i].A.X * Wide, At.Y + Bars[i].A.Y * Height},
                     {At.X + Bars[i].B.X * Wide, At.Y + Bars[i].B.Y * Height}, Thick, Colour);
        At.X += Wide + 3 * Thick;
    }
}
