// A row of the play view: its curve around the play clock, from the sample store or from a stored sample.
#pragma once

#include "processing/mOper.h"
#include "views/mAxis.h"

#include <optional>
#include <span>
#include <vector>

/// Data that are played: PlayMode.
enum ePlayMode : int16_t
{
    PlayPrimary = 4,  // the sample store
    PlayTypical = 16, // a stored sample as one cycle
    PlayComplex = 32  // the same on the clock of pictures, with the movement of the boat
};

class cData04play
{
public:
    static constexpr int PrimPoints = 100; // of the window on the sample store, from the first point to the last

    /// Computes row number Row of View4 in that mode: from the sample of row Sample of Desc as one closed cycle, or
    /// from gRaw around gPlayIdx with samples Step s apart. A row without arguments has no curve. Throws RunError when
    /// the sample has no rate or no points, or when the row's operation asks for an argument or a value that is not
    /// there.
    void InitViewID(int Row, int16_t Mode, int Sample, double SampleStep = 0);

    const ViewRow& Row() const { return View; }

    /// Whether the row has arguments, and so a curve.
    bool Visible() const { return !CurveY.empty(); }

    /// Whether the row draws a figure in place of its curve.
    bool IsFigure() const { return View.Oper >= FirstFigure; }

    /// The curve, points 0 to PointCount. A point of the sample store without data is no number.
    std::span<const double> Ys() const { return CurveY; }
    int PointCount() const { return PntCnt; }

    /// s between two points.
    double PointStep() const { return Step; }

    /// Number in gRaw of the sample that point 0 stands for; it and its neighbours may lie outside.
    int32_t FirstSample() const { return FirstS; }

    /// Moves the window on the sample store by Shift samples; gPlayIdx is the sample in its middle already.
    void CalcPrim(int32_t Shift);

    /// Turns the cycle so that this fraction of it stands in the middle; 1 counts as 0.
    void CalcNorm(double Frac);

    /// The value in the middle; nothing where there are no data.
    std::optional<double> Current() const;

    /// Places the row's rectangle, a percentage of the plot area.
    void SetScales(const PlotRect& Area);

    /// The rectangle of the last SetScales.
    const PlotRect& Rect() const { return Frame; }

    /// Places of points and values on the surface, and of the middle.
    double PlaceX(double Point) const { return (Point + 0.5) * ScaleX + ZeroX; }
    double PlaceY(double Value) const { return ZeroY - ScaleY * Value; }
    double Middle() const { return PlaceX(Centre()); }

    /// Time at the left and right edges of the rectangle, s from the middle.
    double LeftTime() const { return (Frame.Left - Middle()) / ScaleX * Step; }
    double RightTime() const { return (Frame.Right - Middle()) / ScaleX * Step; }

    /// Draws the line of value 0, where it lies in the rectangle.
    void DrawScales(iSurface& Surface) const;

    /// Draws the curve around the middle.
    void DrawData(iSurface& Surface) const;

private:
    static constexpr int FirstFigure = 10;

    // An argument of a row: its channel, and the values of a stored sample. Without a channel it counts as 0.
    struct Argument
    {
        int Chan = -1;
        const DataRow* Data = nullptr;
    };

    bool IsPrimary() const { return Mode == PlayPrimary; }
    int Centre() const { return PntCnt / 2; }
    void FindArguments(const DescRow& Desc);
    void FillArr(int First, int Last);
    void TakeArguments(PointPair& Pair, int k) const;
    double CyclePoint() const;

    ViewRow View;
    int16_t Mode = PlayTypical;
    std::vector<Argument> Args;
    double Step = 0;
    int PntCnt = 0;
    int32_t FirstS = 0;
    double Fraction = 0; // of the cycle, 0 to below 1
    std::vector<double> CurveY;

    PlotRect Frame;
    double ScaleX = 1;
    double ScaleY = 0;
    double ZeroX = 0;
    double ZeroY = 0;
};
