// The trace ring, and what is drawn when.
#include "live/panel/cTraces.h"

#include "core/mSettings.h"

namespace {
constexpr int RingSize = 255; // the trace's last place is never reached
constexpr int HintFont = 16;
constexpr int32_t Black = 0;
} // namespace

void cTraces::Load(int16_t Source)
{
    Panel.DrawWidth = gDrawWidth;
    Plots.clear();
    for (int Row = 1; Row <= gFile.View1.UBound(); ++Row) {
        cData01real& Plot = Plots.emplace_back(Panel);
        Plot.InitViewID(Row, Source);
        Plot.Scale();
    }
    Targets.InitTargCurves(Panel.Surface->Size());
    PrevIdx = CurIdx = 0;
    NextIdx = 1;
    HasWrapped = false;
    Waiting = 0;
    IsRenewed = true;
}

void cTraces::Resize()
{
    if (gIsTargCurves == 0) Panel.DrawWidth = gDrawWidth; // which the user may have changed
    Clear();
    for (cData01real& Plot : Plots)
        Plot.SetScales();
    Targets.InitTargCurves(Panel.Surface->Size());
    DrawTargets();
    DrawAgain();
    ForgetSamples();
}

// A ring that has wrapped still holds the older part of the stroke behind the newest place.
void cTraces::DrawAgain()
{
    for (cData01real& Plot : Plots) {
        if (HasWrapped && CurIdx > 0) {
            Plot.DrawAgain(CurIdx + 1, RingSize - 1);
            Plot.DrawSegment(RingSize - 1, 0);
        }
        Plot.DrawAgain(1, PrevIdx);
        Plot.DrawStroke();
    }
}

void cTraces::Clear()
{
    Panel.Surface->Clear(gRGB[0]);
    if (!Plots.empty()) return;
    const SurfacePoint Size = Panel.Surface->Size();
    Panel.Surface->SetPen(Black);
    Panel.Surface->SetFont(HintFont);
    Panel.Surface->Text(Size.X / 2.0, Size.Y / 2.0, "The session has no rows of View1 to draw.", eAlign::Centre);
}

// The pen stays as wide as the targets for the curves that are drawn over them.
void cTraces::DrawTargets()
{
    if (Targets.DrawTargets(*Panel.Surface)) Panel.DrawWidth = cTargetCurve::Width;
}

// A stroke's first sample is taken with the ring already begun anew, from the last point of the trace before.
void cTraces::TakeSample(bool NewStroke)
{
    if (NewStroke) {
        ForgetSamples();
        IsRenewed = true;
        HasWrapped = false;
        CurIdx = 0;
        NextIdx = 1;
    } else if (Waiting == cData01real::StepRoom) {
        Draw();
    }
    for (cData01real& Plot : Plots)
        Plot.TakeSample(PrevIdx, CurIdx, NewStroke);
    ++Waiting;
    PrevIdx = CurIdx;
    CurIdx = NextIdx;
    NextIdx = (NextIdx + 1) % RingSize;
    HasWrapped = HasWrapped || CurIdx == 0;
}

// Sample by sample through all rows, so that curves cover each other as if each sample had been drawn when it came.
void cTraces::Draw()
{
    if (IsRenewed) {
        Clear();
        for (cData01real& Plot : Plots)
            Plot.DrawScales();
        DrawTargets();
    }
    for (int Sample = 0; Sample < Waiting; ++Sample)
        for (cData01real& Plot : Plots)
            Plot.DrawData(Sample);
    ForgetSamples();
}

void cTraces::ForgetSamples()
{
    for (cData01real& Plot : Plots)
        Plot.ForgetSteps();
    Waiting = 0;
    IsRenewed = false;
}
