// The ergometer panel, sample by sample.
#include "live/ergo/cErg.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "files/mStream.h"

#include <cmath>

namespace {
constexpr double CatchLimit = 200;    // ms: beyond it the turns are not those of one catch
constexpr double Milliseconds = 1000; // in a second
} // namespace

void cForwardTurn::Begin(double Time, double X)
{
    *this = {};
    PrevTime = Time;
    PrevX = X;
}

std::optional<double> cForwardTurn::Take(double Time, double X)
{
    const double Step = Time - PrevTime;
    const double V = SafeDiv(X - PrevX, Step);
    const double PrevMiddle = PrevTime - PrevStep / 2;
    std::optional<double> Turn;
    if (V > 0 && PrevV < 0) Turn = PrevMiddle + (Step + PrevStep) / 2 * -PrevV / (V - PrevV);
    PrevTime = Time;
    PrevX = X;
    PrevStep = Step;
    PrevV = V;
    return Turn;
}

void cErg::Signal::Load(int16_t Number)
{
    *this = {};
    if (Number < 1 || Number > gFile.ChanCnt || Number > gFile.Calibr.UBound() || Number > LastDataChan) return;
    Chan = Number;
    Q0 = gFile.Calibr[Number].Q0;
    Q1 = gFile.Calibr[Number].Q1;
}

double cErg::Signal::Value() const
{
    return Chan > 0 ? gData[static_cast<std::size_t>(Chan)] * Q1 + Q0 : 0;
}

void cErg::Signal::Take(double Time, bool IsFirst)
{
    if (IsFirst) return Turn.Begin(Time, Value());
    if (const auto Found = Turn.Take(Time, Value())) TurnT = Found;
}

// A recording has the session's sampling period, an open link that of the settings.
void cErg::Load()
{
    gDeltaT = gLinkStream.IsOpen ? gTimeStep : gFile.TimeStep;
    Traces.Load(SourceFrames);
    Timing.Load(); // reads gSeatChan
    Strokes.Begin();
    Whole.reset();
    Handle.Load(gKeyChan);
    Force.Load(gH1Chan);
    Seat.Load(gSeatChan);
    HasSamples = false;
    Clock = Factor = 0;
    ShownFactor.reset();
    New = {};
}

void cErg::InitMode()
{
    gFrameCnt = 0;
}

void cErg::Unload()
{
    gDeltaT = gTimeStep;
}

void cErg::NewRun()
{
    const double Step = gDeltaT;
    Load();
    if (gFrameCnt > 1) gDeltaT = Step; // measured already
}

void cErg::TakeSample()
{
    if (Run.IsNewRun()) NewRun();
    New = {};
    Clock = gSampleTime;
    New.Stroke = CheckCycle();
    Traces.TakeSample(New.Stroke);
    CheckCatch();
    Timing.TakeSample();
    HasSamples = true;
}

bool cErg::CheckCycle()
{
    if (Handle.Chan == 0 || !Strokes.Take(gData[0], Handle.Value(), Force.Value())) return false;
    Publish();
    if (Stroke().IsWhole) Whole = Stroke();
    return true;
}

void cErg::CheckCatch()
{
    if (Handle.Chan == 0 || Seat.Chan == 0) return;
    Handle.Take(gData[0], !HasSamples);
    Seat.Take(gData[0], !HasSamples);
    if (!Handle.TurnT || !Seat.TurnT) return;
    Factor = (*Seat.TurnT - *Handle.TurnT) * Milliseconds;
    Handle.TurnT.reset();
    Seat.TurnT.reset();
    New.CF = true;
    if (std::abs(Factor) <= CatchLimit) ShownFactor = Factor;
}

void cErg::Publish() const
{
    gStrokeCnt = Stroke().StrokeCnt;
    gCycleTime = Stroke().CycleTime;
    gCycleSum = Strokes.CycleSum();
    gRate = Stroke().Rate;
    gRateAver = Stroke().RateAver;
}

std::string cErg::TimeText() const
{
    return FormatNum(Clock, "00.0");
}
