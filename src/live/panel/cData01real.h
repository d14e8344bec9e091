// A row of a live panel: takes each sample, and draws its curve step by step, at a stroke's start with the numbers of
// the stroke that ended.
#pragma once

#include "core/mGlobData.h"
#include "live/panel/cStrokeNumbers.h"
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

class cData01real
{
public:
    /// Points of the trace.
    static constexpr int TraceRoom = 256;

    /// Samples that can wait to be drawn.
    static constexpr int StepRoom = 64;

    explicit cData01real(PlotSurface& OnPanel);

    /// Reads row number ViewID of View1; samples come from SrcMode. What the row leaves out or names wrongly costs it
    /// its curve or numbers only.
    void InitViewID(int ViewID, int16_t SrcMode);

    /// Works the scales out for the surface's size.
    void Scale();

    /// Works the scales out and draws them.
    void SetScales();

    /// Draws grid, zero lines and the row's name.
    void DrawScales();

    /// Takes the newest sample as place Cur of the trace; Prev is the place before it. NewStroke: a stroke starts with
    /// this sample, and what waits to be drawn is forgotten, since the picture begins anew. Never fails; allocates
    /// nothing but texts at a stroke's start. At most StepRoom samples wait.
    void TakeSample(int Prev, int Cur, bool NewStroke);

    /// Draws the step of the curve to sample number Sample of those that wait, from 0; behind a stroke's first one the
    /// numbers of the stroke before.
    void DrawData(int Sample);

    /// What waits is drawn.
    void ForgetSteps();

    /// Draws the trace anew from the place before From to place To.
    void DrawAgain(int From, int To);

    /// Draws the step of the trace from place Prev to place Cur.
    void DrawSegment(int Prev, int Cur);

    /// Draws the numbers of the last stroke.
    void DrawStroke();

    /// The numbers made by the last sample, in the order of the row's keys; none when it was no stroke's start.
    std::span<const StrokeNumber> StrokeNumbers() const;

    /// Puts the sixteen joints of the figure of operations 11 to 15 into the trace; until then it stays undrawn.
    void SetFigure(std::span<const SurfacePoint, 16> Joints);

private:
    using Trace = std::array<SurfacePoint, TraceRoom>;

    // A step of the curve that is to be drawn.
    struct Step
    {
        enum eKind
        {
            None,
            Segment,
            Dot,
            Figure
        } Kind = None;
        SurfacePlace From;
        SurfacePlace To;
    };

    std::optional<double> Calibrated(int Chan) const;
    void TakeArguments();
    Step TakeStep(int Prev, int Cur);
    Step TakeLine(int Prev, int Cur);
    void PlacePoint(std::size_t Cur);
    Step SegmentTo(int Prev, int Cur) const;
    void DrawStep(const Step& Each);
    void DrawAnimXY();
    void DrawFigure(const Trace& Points, int32_t Ink);
    void SetPen(int32_t Ink) { Panel->Surface->SetPen(Ink, Panel->DrawWidth); }

    PlotSurface* Panel;
    ViewRow View;
    int32_t Colour = 0;
    int16_t SrcMode = SourceFrames;

    std::vector<int> ArgChan;
    LiveOper Oper;
    cStrokeNumbers Numbers;
    bool HasNumbers = false; // the last sample made them
    bool IsDrawn = true;     // the last stroke's stand on the panel

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

    std::array<Step, StepRoom> Steps;
    int StepCnt = 0;
};
