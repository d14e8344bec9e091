// A picture that is drawn with smooth lines, dots and figures, without a toolkit.
#pragma once

#include "platform/iMedia.h"

#include <string>

/// A place on a picture: x to the right, y downward, 0,0 the corner of the first pixel.
struct CanvasPlace
{
    double X = 0;
    double Y = 0;
};

class cCanvas
{
public:
    cCanvas(int Width, int Height);

    /// Colours the rows from Top on, 0xRRGGBB.
    void FillBelow(double Top, uint32_t Colour);

    /// A line with round ends.
    void Line(CanvasPlace A, CanvasPlace B, double Width, uint32_t Colour);

    void Dot(CanvasPlace At, double Radius, uint32_t Colour) { Line(At, At, 2 * Radius, Colour); }

    /// Digits, points and blanks of that height, from their top left corner on.
    void Figures(CanvasPlace At, double Height, const std::string& Text, uint32_t Colour);

    const Picture& Shown() const { return Drawn; }

private:
    void Blend(int X, int Y, double Share, uint32_t Colour);

    Picture Drawn;
};
