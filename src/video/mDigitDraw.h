// What digitising draws: the figure over the picture, and the angles of the clip over its frames.
#pragma once

#include "platform/iSurface.h"
#include "video/cAnthro.h"
#include "video/cDigit.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Where a place of the picture is seen.
using ToSurface = std::function<SurfacePlace(const VideoPoint&)>;

/// Half the width of a point's mark, in drawing units.
inline constexpr double DotReach = 3;

/// Draws the points and segments of the frame, or the corners of the angle. The next point's name stands at Pointer.
void DrawFigure(iSurface& Surface, const cDigit& Digit, const ToSurface& Seen,
                const std::optional<SurfacePlace>& Pointer);

/// Draws the lines that were measured on a picture, with their lengths.
void DrawMeasures(iSurface& Surface, const cAnthro& Body, const ToSurface& Seen,
                  const std::optional<SurfacePlace>& Pointer);

/// Draws the angles of all joints (degrees) over frames 0 to Pictures - 1 of the clip, with a line at the current one.
void DrawAngles(iSurface& Surface, const cDigit& Digit);
