// What plots on a surface share: whole steps of scales, curves cut off at the edges of their rectangle.
#pragma once

#include "platform/iSurface.h"
#include "processing/mViewRow.h"

#include <span>
#include <string>
#include <vector>

/// Edges of a rectangle on a surface, in drawing units.
struct PlotRect
{
    double Left = 0;
    double Right = 0;
    double Top = 0;
    double Bottom = 0;

    double Width() const { return Right - Left; }
    double Height() const { return Bottom - Top; }
    bool operator==(const PlotRect&) const = default;
};

/// The step of 1, 2 or 5 times a power of ten that cuts Span into Wanted parts or less.
double NiceStep(double Span, int Wanted);

/// The multiples of NiceStep from Low to High; none when a limit is not finite.
std::vector<double> Ticks(double Low, double High, int Wanted);

/// A number of a scale whose neighbour is Step away, without decimals that say nothing.
std::string TickText(double Value, double Step);

/// Draws the part of a curve that lies in the rectangle. A place that is not finite interrupts it.
void DrawClipped(iSurface& Surface, const PlotRect& Frame, std::span<const SurfacePlace> Curve);
