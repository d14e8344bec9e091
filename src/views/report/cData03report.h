// A row of the report: its curve from a stretch of samples or from the typical pattern, its scales and its functions.
#pragma once

#include "core/mGlobData.h"
#include "views/mAxis.h"
#include "views/mQuantity.h"

#include <span>
#include <string>
#include <vector>

/// What a report shows, as bits.
enum ReportKind : int
{
    ReportPrimary = 8,  // samples of gRaw
    ReportTypical = 16, // the typical pattern in memory
    ReportStored = 32   // the pattern of a stored sample, which becomes the one in memory
};

/// Makes a stored sample the typical pattern in memory: gRate, and gNormAver2 with its columns numbered by the place
/// of their data rows in the sample. Throws RunError for a sample of more points than a pattern has.
void LoadSamplePattern(const DescRow& Sample);

/// A value of a row, and the text that stands before it.
struct RowValue
{
    std::string Label; // the row's ID and the key, a blank behind each
    std::string Key;   // four characters
    double Value = 0;
};

class cData03report
{
public:
    /// Computes row number Row of View3 from the typical pattern at gRate, or, primary, from the samples First to Last
    /// of gRaw. A row without arguments stays invisible. Throws RunError when the row's operation asks for an argument,
    /// a column or a sample that is not there.
    void InitViewID(int Row, int Kind = ReportTypical, int32_t First = 0, int32_t Last = 0);

    /// Whether the row has arguments.
    bool Visible() const { return IsVisible; }

    const ViewRow& Row() const { return View; }
    int32_t Colour() const;
    bool IsPrimary() const { return Kind == ReportPrimary; }

    /// What is measured along the axes, known when the row was computed.
    const Quantity& X() const { return AxisX; }
    const Quantity& Y() const { return AxisY; }

    /// The curve. A point is made of two points of the source, so it has one less.
    std::span<const double> Xs() const { return CurveX; }
    std::span<const double> Ys() const { return CurveY; }

    /// The row's functions over its curve, in the row's order; an unknown key has 0.
    std::vector<RowValue> GetFuncs() const;

    /// Places the row's rectangle, a percentage of the plot area, and the pixel pairs of its curve, rounded to Pixel.
    void SetScales(const PlotRect& Area, double Pixel);

    /// The rectangle of the last SetScales.
    const PlotRect& Rect() const { return Frame; }

    /// Values at the left and right edges of the rectangle.
    double LeftValue() const;
    double RightValue() const;

    /// Places of values on the surface.
    double PlaceX(double Value) const { return ScaleX * Value + ZeroX; }
    double PlaceY(double Value) const { return ZeroY - ScaleY * Value; }

    /// Draws the lines of value 0 that lie in the rectangle.
    void DrawScales(iSurface& Surface) const;

    /// Draws a dot at each point of the curve, or the curve as a closed line.
    void DrawDot(iSurface& Surface) const;
    void DrawNorm(iSurface& Surface) const;

private:
    double Value(int Chan, int32_t Point) const;
    void FillArr(const std::vector<int>& ArgChans);
    bool HasPair(int32_t Point) const;

    ViewRow View;
    int Kind = ReportTypical;
    bool IsVisible = false;
    Quantity AxisX;
    Quantity AxisY;
    int32_t FirstS = 0; // first point of the source
    int32_t PntCnt = 0; // from the first point to the last
    double Step = 0;    // s
    std::vector<double> CurveX;
    std::vector<double> CurveY;

    PlotRect Frame;
    double ScaleX = 0;
    double ScaleY = 0;
    double ZeroX = 0;
    double ZeroY = 0;
    std::vector<SurfacePlace> Pts;
};
