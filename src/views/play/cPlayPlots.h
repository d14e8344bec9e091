// The play view on a surface: frames and scales that stay, and the curves, figures and values that move.
#pragma once

#include "views/play/cPlay.h"

/// Fits the view to the surface, draws what stays and keeps it as the surface's ground.
void DrawPlayGround(iSurface& Surface, cPlay& Play);

/// Draws what moves over the ground: curves, figures, the line in the middle, and with ShowValues the name and the
/// current value of each curve beside it.
void DrawPlayData(iSurface& Surface, const cPlay& Play, bool ShowValues);
