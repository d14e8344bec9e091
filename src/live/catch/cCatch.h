// The catch training panel without its window: the timing of handle, seat and trunk, and the curves.
#pragma once

#include "live/catch/cTiming.h"
#include "live/panel/cRunWatch.h"
#include "live/panel/cTraces.h"

class cCatch
{
public:
    using News = cTiming::News;

    explicit cCatch(iSurface& Surface) : Traces(Surface) {}

    /// Opens the panel: reads its settings, makes a plot for each row of View1, and begins all figures. Nothing is
    /// drawn.
    void Load();

    /// Takes the ranges of the factors from the settings, for the strokes to come.
    void LoadRanges() { Timing.LoadRanges(); }

    /// Counts the frames of the source anew.
    static void InitMode();

    /// Draws everything anew for the surface's size.
    void Resize() { Traces.Resize(); }

    /// Takes the newest sample: turns, factors, strokes and points of the curves. Nothing is drawn.
    void TakeSample();

    /// Draws what was taken since the last drawing.
    void DrawData() { Traces.Draw(); }

    /// The logger was restarted: all figures begin anew with the newest sample, which is taken next.
    void NewRun();

    /// Closes the panel.
    static void Unload();

    const News& Newest() const { return Timing.Newest(); }
    const CatchStroke& Stroke() const { return Timing.Stroke(); }
    const std::optional<FactorShown>& CatchFactor() const { return Timing.CatchFactor(); }
    const std::optional<FactorShown>& FinishFactor() const { return Timing.FinishFactor(); }
    const std::optional<FactorShown>& StyleFactor() const { return Timing.StyleFactor(); }

    /// Whole seconds since the first sample.
    int32_t Elapsed() const { return Timing.Elapsed(); }

    /// Moment in seconds at which the stroke that was recognised last began, between samples.
    double LastStrokeT() const { return Timing.LastStrokeT(); }

private:
    cTraces Traces;
    cTiming Timing;
    cRunWatch Run;
};
