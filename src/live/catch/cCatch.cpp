// The catch training panel, sample by sample.
#include "live/catch/cCatch.h"

#include "core/mGlobData.h"

void cCatch::Load()
{
    gDeltaT = gTimeStep = gFile.TimeStep;
    Traces.Load(SourceFrames);
    Timing.Load();
}

void cCatch::InitMode()
{
    gFrameCnt = 0;
}

void cCatch::Unload()
{
    gDeltaT = gTimeStep;
}

void cCatch::NewRun()
{
    const double Step = gDeltaT;
    Load();
    if (gFrameCnt > 1) gDeltaT = Step; // measured already
}

void cCatch::TakeSample()
{
    if (Run.IsNewRun()) NewRun();
    Timing.TakeSample();
    Traces.TakeSample(Newest().NewStroke);
}
