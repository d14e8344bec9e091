// The sample of curves that shows what the colours and the pen width look like.
#pragma once

#include "platform/iSurface.h"

/// Draws a stroke of force for each colour of gRGB on the background, with gDrawWidth, each with its number.
void DrawColourSample(iSurface& Surface);
