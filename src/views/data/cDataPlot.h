// The plot of the data view: a stretch of the sample store as stacked curves, with the selection and a cursor on it.
#pragma once

#include "platform/iSurface.h"
#include "views/data/cDataBands.h"
#include "views/data/cDataRange.h"

#include <string>
#include <vector>

class cDataPlot
{
public:
    explicit cDataPlot(iSurface& InitSurface) : Surface(InitSurface) {}

    cDataRange Range;
    cDataBands Bands;

    /// Fits range and bands to the surface's size and the channels that are visible, ahead of Draw.
    void SetUpPoly();

    /// Draws everything.
    void Draw();

    /// Name and value of the band and time of the sample at a place, empty outside the plot.
    std::string PointerText(double X, double Y) const;

private:
    void DrawNothing(); // but why there is nothing
    void DrawGrid();
    void DrawSelection();
    void DrawOpenStart();
    void DrawRawData();
    void DrawRateBand(const ViewBand& Band);
    std::vector<std::size_t> LabelledBands() const;
    double NameTop(std::size_t Band) const;
    void DrawScale(const ViewBand& Band, double Top);
    void DrawLabels();
    void DrawTimes();
    void DrawCursor();

    iSurface& Surface;
    double Height = 0; // of the bands
    std::vector<SurfacePoint> PolyPts;
};
