// The curves of a live panel, one for each row of View1, on one surface: they take every sample, and are drawn when
// pictures are. What they show does not depend on how many samples come between two drawings.
#pragma once

#include "live/panel/cData01real.h"
#include "live/panel/cTargetCurve.h"

#include <span>
#include <vector>

class cTraces
{
public:
    explicit cTraces(iSurface& Surface) : Panel{&Surface} {}

    /// Makes a curve for each row of View1, on samples of that source, with the trace at its beginning. Nothing is
    /// drawn until Draw or Resize.
    void Load(int16_t Source);

    /// Draws everything anew for the surface's size.
    void Resize();

    /// Takes the newest sample. NewStroke: a stroke starts with it, so that the picture begins anew.
    void TakeSample(bool NewStroke);

    /// Draws what was taken since the last drawing.
    void Draw();

    /// The curves in the order of View1.
    std::span<const cData01real> Views() const { return Plots; }

private:
    void Clear();
    void DrawTargets();
    void DrawAgain();
    void ForgetSamples();

    PlotSurface Panel;
    std::vector<cData01real> Plots;
    cTargetCurve Targets;
    int PrevIdx = 0; // places in the trace ring
    int CurIdx = 0;
    int NextIdx = 1;
    bool HasWrapped = false; // the stroke went once round the ring
    bool IsRenewed = false;  // the picture begins anew with the first of the samples that wait
    int Waiting = 0;         // samples not yet drawn
};
