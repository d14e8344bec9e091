// The plots of a report on a surface: frames, grids, scales and legends around the curves of its rows.
#pragma once

#include "views/report/cReport.h"

/// Draws all plots. Rows with the same rectangle share one plot, whose scale is that of the first of them. Scale
/// numbers and titles stand beside a plot where its neighbours leave room, and inside of it where they do not.
void DrawReportPlots(iSurface& Surface, cReport& Report, const PlotRect& Area);
