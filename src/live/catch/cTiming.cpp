// Turns, factors and stroke figures, sample by sample.
#include "live/catch/cTiming.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "processing/mOper.h"

#include <algorithm>

namespace {
// Factors at these limits or beyond them are no timing of a stroke.
constexpr double CatchLimit = 200;      // ms
constexpr double FinishLowLimit = -300; // ms
constexpr double FinishHighLimit = 200; // ms
constexpr double StyleLowLimit = 20;    // %
constexpr double StyleHighLimit = 150;  // %
constexpr double Milliseconds = 1000;   // in a second

double SampleTime()
{
    return gData[0];
}
} // namespace

void cTiming::Signal::Load(int16_t Number)
{
    *this = {};
    if (Number < 1 || Number > gFile.ChanCnt || Number > gFile.Calibr.UBound() || Number > LastDataChan) return;
    Chan = Number;
    Row = gFile.Calibr[Number];
}

double cTiming::Signal::Value() const
{
    return gData[static_cast<std::size_t>(Chan)] * Row.Q1 + Row.Q0;
}

void cTiming::Load()
{
    *this = {};
    for (const char* Key : {"gSeatChan", "gTrunkChan", "gRSFmode", "gRSFval0", "gRSFval1"})
        LoadSetting(Key);
    KeyThresh = static_cast<double>(gFile.KeyThres);
    HandleSignal.Load(gKeyChan);
    SeatSignal.Load(gSeatChan);
    TrunkSignal.Load(gTrunkChan);
    LoadRanges();
    gFirstCycle = true;
    StyleTravel = gRSFval1;
}

void cTiming::LoadRanges()
{
    for (const char* Key : {"gCFLow", "gCFHigh", "gCFmarg", "gCFslope", "gRSFLow", "gRSFHigh", "gRSFmarg", "gFFLow",
                            "gFFHigh", "gFFmarg", "gFFslope"})
        LoadSetting(Key);
    const auto Range = [](int16_t Low, int16_t High, int16_t Margin) {
        return FactorRange{static_cast<double>(Low), static_cast<double>(High), static_cast<double>(Margin)};
    };
    CF.SetRange(Range(gCFLow, gCFHigh, gCFmarg), gCFslope);
    FF.SetRange(Range(gFFLow, gFFHigh, gFFmarg), gFFslope);
    RSF.SetRange(Range(gRSFLow, gRSFHigh, gRSFmarg));
}

int32_t cTiming::Elapsed() const
{
    return RoundWithin(NewestT - StartT, 0, 1000000);
}

void cTiming::TakeSample()
{
    IsFirstCycle = IsFirstCycle || gFirstCycle;
    New = {};
    NewestT = SampleTime();
    if (!HasSamples) StartT = NewestT;
    if (TakeSignals()) CheckFactors();
    HasSamples = true;
    if (!StyleMeasured || *StyleMeasured <= StyleLowLimit || *StyleMeasured >= StyleHighLimit) return;
    RSF.Take(*StyleMeasured, Shown.StrokeN);
    StyleMeasured.reset();
    New.RSF = true;
}

// The first sample only fills the histories. An angle of the handle is metres of its lever's arc.
bool cTiming::TakeSignals()
{
    if (HandleSignal.Chan == 0 || SeatSignal.Chan == 0) return false;
    const auto Push = [this](cTurns& To, double Value) {
        if (HasSamples)
            To.Take(NewestT, Value);
        else
            To.Begin(NewestT, Value);
    };
    Push(Handle, ArcValue(HandleSignal.Row, HandleSignal.Value()));
    Push(Seat, SeatSignal.Value());
    if (TrunkSignal.Chan != 0) Push(Trunk, TrunkSignal.Value());
    return HasSamples;
}

void cTiming::CheckFactors()
{
    MaxHandleV = std::max(MaxHandleV, Handle.Velocity());
    MaxSeatV = std::max(MaxSeatV, Seat.Velocity());
    CheckCatch();
    CheckStyle();
    CheckFinish();
    CheckThreshold();
    if (New.NewStroke) CountStroke();
    MakeCatchFactor();
    MakeFinishFactor();
}

void cTiming::Start(double Time)
{
    New.NewStroke = true;
    StrokeT = Time;
}

void cTiming::CheckCatch()
{
    if (Seat.IsForwardTurn()) {
        SeatTurnT = Seat.TurnTime();
        SeatAtCatch = Seat.ValueAt(SeatTurnT);
        IsStyleArmed = SeatTurnNew = true;
    }
    if (!Handle.IsForwardTurn()) return;
    HandleCatchT = Handle.TurnTime();
    HandleAtCatch = Handle.ValueAt(HandleCatchT);
    HandleCatchNew = IsCatchKnown = true;
    TrunkTurnNew = HandleFinishNew = false;
    if (gKeyMode == KeyMinimum) Start(HandleCatchT);
}

// Without a catch there is no travel behind it, and a part of the last stroke's travel needs a last stroke. A drive
// that began so has no factor: it would be measured too late.
void cTiming::CheckStyle()
{
    const double HandleTravel = Handle.Newest() - HandleAtCatch;
    const double SeatTravel = Seat.Newest() - SeatAtCatch;
    MaxSeatTravel = std::max(MaxSeatTravel, SeatTravel);
    if (!IsStyleArmed || Handle.Velocity() <= 0) return;
    const bool IsPlaced = IsCatchKnown && (gRSFmode != 0 || Shown.StrokeN > 0);
    if (!IsPlaced) IsStyleArmed = false;
    if (!IsPlaced || HandleTravel < StyleTravel) return;
    StyleMeasured = SafeDiv(100 * SeatTravel, HandleTravel);
    IsStyleArmed = false;
}

void cTiming::CheckFinish()
{
    if (TrunkSignal.Chan != 0 && Trunk.IsBackwardTurn()) {
        TrunkTurnT = Trunk.TurnTime();
        TrunkTurnNew = true;
    }
    if (!Handle.IsFinishTurn()) return;
    HandleFinishT = Handle.TurnTime();
    HandleAtFinish = Handle.ValueAt(HandleFinishT);
    HandleFinishNew = true;
    if (gKeyMode != KeyMaximum) return;
    Start(HandleFinishT);
    HandleCatchNew = SeatTurnNew = false;
}

void cTiming::CheckThreshold()
{
    const double Before = Handle.Previous();
    const double Now = Handle.Newest();
    const bool HasFallen = gKeyMode == KeyDecreasing && Before > KeyThresh && Now <= KeyThresh;
    const bool HasRisen = gKeyMode == KeyIncreasing && Before < KeyThresh && Now >= KeyThresh;
    if (!HasFallen && !HasRisen) return;
    Start(Handle.TimeAt(KeyThresh));
    HandleCatchNew = SeatTurnNew = false;
}

// The cycle is measured from finish to finish, whatever starts a stroke.
void cTiming::CountStroke()
{
    const double Length = HandleAtFinish - HandleAtCatch;
    if (gRSFmode == 0) StyleTravel = Length * gRSFval0;
    const double CycleTime = HandleFinishT - FinishPrevT;
    FinishPrevT = HandleFinishT;
    if (IsFirstCycle) {
        gFirstCycle = IsFirstCycle = false;
    } else {
        const double Rate = SafeDiv(60, CycleTime);
        RateSum += Rate;
        const int32_t StrokeN = Shown.StrokeN + 1;
        Shown = {StrokeN, Rate, RateSum / StrokeN, Length, MaxSeatTravel, MaxHandleV, MaxSeatV};
        New.Stroke = true;
    }
    MaxSeatTravel = MaxHandleV = MaxSeatV = 0;
    StyleMeasured.reset();
}

void cTiming::MakeCatchFactor()
{
    if (!SeatTurnNew || !HandleCatchNew) return;
    SeatTurnNew = HandleCatchNew = false;
    const double Factor = (SeatTurnT - HandleCatchT) * Milliseconds;
    if (Factor <= -CatchLimit || Factor >= CatchLimit || Shown.StrokeN == 0) return;
    CF.Take(Factor, Shown.Rate, Shown.RateAver);
    New.CF = true;
}

void cTiming::MakeFinishFactor()
{
    if (!TrunkTurnNew || !HandleFinishNew) return;
    TrunkTurnNew = HandleFinishNew = false;
    const double Factor = (TrunkTurnT - HandleFinishT) * Milliseconds;
    if (Factor <= FinishLowLimit || Factor >= FinishHighLimit) return;
    FF.Take(Factor, Shown.Rate, Shown.RateAver);
    New.FF = true;
}
