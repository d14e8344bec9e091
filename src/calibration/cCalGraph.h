// The graph of the calibration workbench: points, running line and curves on axes of counts and physical values.
#pragma once

#include "calibration/cCalibr.h"
#include "platform/iSurface.h"

#include <optional>
#include <string>
#include <utility>

class cCalGraph
{
public:
    cCalGraph(iSurface& InitSurface, cCalibr& InitCalibr) : Surface(InitSurface), Calibr(InitCalibr) {}

    /// Draws everything on an empty surface: while points are taken all of them with the running line, otherwise what
    /// the chosen use of the points shows.
    void Draw();

    /// Draws the points taken since the last time and the running line in place of the former one. Automatic axes grow
    /// when a point lies beyond them.
    void AddPoints();

    /// Number and values of the point at that place or near it; empty when there is none.
    std::string TextAt(double X, double Y) const;

private:
    struct Spot
    {
        double X = 0; // drawing units
        double Y = 0;
    };
    using Segment = std::pair<Spot, Spot>;

    void TakeScales();
    void DrawGrid();
    void DrawAxisNumbers();
    void DrawCaptions();
    void DrawCaption(double X, double Y, const std::string& Text, eAlign Align);
    void DrawPoints(std::span<const CalPoint> Points, int32_t Colour);
    void DrawBranch(const CalBranch& Branch, int32_t Colour);
    void DrawCurve(const CalBranch& Branch, int32_t Colour);
    void DrawLine();
    void EraseLine();
    void ErasePoint(const CalPoint& Point);
    Spot PlaceOf(const CalPoint& Point) const;
    bool IsWithin(Spot Where) const;
    std::optional<Segment> Clipped(Segment Whole) const;

    iSurface& Surface;
    cCalibr& Calibr;
    double Left = 0; // of the plot
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
    double Radius = 0;
    bool IsXLogical = true;
    std::optional<Segment> Line; // the running line on the surface
    std::size_t Grounded = 0;    // points in the kept background
    std::size_t Drawn = 0;       // points on the surface
};
