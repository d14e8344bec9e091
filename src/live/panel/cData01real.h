// A row of a live panel: takes each sample, draws one step of its curve, and at a stroke's start its stroke numbers and
// the marks of its stroke model.
#pragma once

#include "core/mGlobData.h"
#include "live/panel/cStrokeModel.h"
#include "live/panel/cStrokeStats.h"
#include "platform/iSurface.h"
#include "processing/mOper.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// The surface of a live panel and the pen's width, which the panel and all its rows share.
struct PlotSurface
{
    iSurface* Surface = nullptr;
    int DrawWidth = 1;
};

/// Where samples come from: the newest frame of the link, calibrated here, or the row gPlayIdx of gRaw.
enum SourceMode : int16_t
{
    SourceTimer = 1,  // the newest frame at a timer's pace
    SourceFrames = 2, // frames as they come
    SourceTable = 4,
    SourceDots = 8,   // the table, dots instead of lines
    SourceNoView = 16 // from here on no data view opens on what the panel has recorded
};

/// Whether that source is the sample store.
inline bool IsTableSource(int16_t SrcMode)
{
    return SrcMode == SourceTable || SrcMode == SourceDots;
}

/// A single number as a double.
inline double Wide(float X)
{
    return static_cast<double>(X);
}

/// X in whole drawing units; nothing when it has no place on any surface.
std::optional<int32_t> ToUnit(double X);

/// A key of the row's functions with its value for the stroke that ended.
struct StrokeNumber
{
    std::string Key;
    double Value = 0;
    bool IsMade = true; // false for a score that could not be given
};

class cData01real
{
public:
    /// Points of the trace.
    static constexpr int TraceRoom = 256;

    explicit cData01real(PlotSurface& OnPanel);

    /// Reads row number ViewID of View1; samples come from SrcMode. What the row leaves out or names wrongly costs it
    /// its curve or numbers only.
    void InitViewID(int ViewID, int16_t SrcMode);

    /// Works the scales out for the surface's size and draws them.
    void SetScales();

    /// Draws the trace anew up to its place Last, and the numbers of the last stroke.
    void DrawAgain(int Last);

    /// Draws grid, zero lines and the row's name.
    void DrawScales();

    /// Takes a sample and draws the step of the curve from place Prev of the trace to place Cur. NewStroke: a stroke
    /// starts with this sample, and the numbers of the one that ended are drawn. Never fails; allocates nothing but
    /// texts at a stroke's start.
    void DrawData(int Prev, int Cur, bool NewStroke);

    /// The numbers made by the last sample, in the order of the row's keys; none when it was no stroke's start.
    std::span<const StrokeNumber> StrokeNumbers() const;

    /// Puts the sixteen joints of the figure of operations 11 to 15 into the trace; until then it stays undrawn.
    void SetFigure(std::span<const SurfacePoint, 16> Joints);

private:
    using Trace = std::array<SurfacePoint, TraceRoom>;

    void ReadModel();
    std::optional<double> Calibrated(int Chan) const;
    void TakeArguments();
    void DrawLine(int Prev, int Cur);
    void PlacePoint(std::size_t Cur);
    void DrawStep(int Prev, int Cur);
    void DrawDots();
    void DrawAnimXY();
    void DrawFigure(const Trace& Points, int32_t Ink);
    void EndStroke();
    void SetFuncs();
    void CheckModel();
    void DrawStroke();
    void DrawMarks();
    void DrawForceMark(int Key, double Score, int32_t& Ink);
    void DrawNumbers();
    void SetPen(int32_t Ink) { Panel->Surface->SetPen(Ink, Panel->DrawWidth); }

    PlotSurface* Panel;
    ViewRow View;
    int32_t Colour = 0;
    int16_t SrcMode = SourceFrames;

    std::vector<int> ArgChan;
    LiveOper Oper;
    std::vector<StrokeNumber> Numbers;
    std::vector<ModelTarget> Targets; // of the keys behind the first
    bool IsMod = false;
    bool IsAcceleration = false; // the model, instead of force
    bool HasNumbers = false;     // the last sample made them
    bool HasStroke = false;      // the last stroke's stand on the panel
    std::string MarkText;        // of the acceleration model; empty for a stroke that it could not measure
    int MarkDiam = 0;            // the radius of marks
    int MarkFont = 0;
    int MarkX = 0;
    int MarkY = 0;

    Trace Pts; // kept from stroke to stroke: a value outside the scale shows the point of the stroke before
    Trace OldPts;
    std::array<SurfacePlace, TraceRoom> Values{}; // what Pts were placed for
    double Left = 0, Right = 0, Top = 0, Bottom = 0;
    double XSpan = 0, XScale = 0, YScale = 0, X0 = 0, Y0 = 0;
    double DotR = 0, HeadR = 0, Head = 0; // Head in metres
    double CapX = 0, CapY = 0;

    double XVal = 0;  // calibrated X argument
    double XPos = 0;  // what is plotted as x
    double Clock = 0; // s
    int SampCnt = 0;  // samples since the last stroke start
    cStrokeStats Stats;
    cStrokeModel Model;
};
