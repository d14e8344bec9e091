// Turns of the oar, what is summed up between them, and the zeroing of the force.
#include "live/coach/cOarVars.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mModes.h"
#include "core/mSettings.h"

namespace {
constexpr double MetresPerDegree = 0.017453293; // of a lever of 1 m

// What an unloaded oar on the recovery is taken to read on average, whatever its offset.
constexpr double UnloadedForce = 10.0;

// From the end of the handle to the middle of the hands, and from the tip of the blade to the middle of its pressure
// beside half of the blade's length.
struct HandShift
{
    double Inboard; // m
    double Length;
};
constexpr HandShift SweepHands{0.13, 0.15};
constexpr HandShift ScullHands{0.04, 0.06};

double Wide(float X)
{
    return static_cast<double>(X);
}
} // namespace

void cOarVars::InitVars(int16_t InitSeat, int16_t InitSide)
{
    *this = {};
    Seat = InitSeat;
    Side = InitSide;
    FindRig();
    FindChannels();
}

void cOarVars::FindRig()
{
    for (const BoatRow& Row : gFile.Boat) {
        if (Row.Seat != Seat) continue;
        HasRig = true;
        Inboard = Wide(Row.OarInboard);
        OarLen = Wide(Row.OarLength);
        if (Row.Side < SideRight || Row.Side > SideLeftScull) continue;
        const HandShift& Shift = Row.Side >= SideRightScull ? ScullHands : SweepHands;
        Inboard -= Shift.Inboard;
        OarLen -= Shift.Length + Wide(Row.BladeLength) / 2;
    }
    ArcK = Inboard * MetresPerDegree;
}

void cOarVars::FindChannels()
{
    for (int Chan = 1; Chan <= gFile.Calibr.UBound() && Chan <= LastDataChan; ++Chan) {
        const CalibrRow& Row = gFile.Calibr[Chan];
        if (Row.Seat != Seat || (Side >= SideRightScull && Row.Side != Side) || Row.ParamID.empty()) continue;
        const char Kind = Row.ParamID.front();
        if (Kind == 'A') {
            ChanA = static_cast<int16_t>(Chan);
            AngleRow = Row;
        }
        if (Kind != 'H' && Kind != 'G') continue;
        ChanF = static_cast<int16_t>(Chan);
        ForceRow = Row;
        ForceQ0 = Row.Q0;
        IsGate = Kind == 'G';
        FRatio = IsGate ? SafeDiv(OarLen, OarLen - Inboard) : 1;
    }
}

// Work needs the lever's way, and a gate's force its ratio to the handle's: both come from the rig.
std::string cOarVars::Missing(int Index) const
{
    const std::string Number = FormatNum(Seat, "0");
    const std::string OfSide = Side == SideRightScull ? ", right" : Side == SideLeftScull ? ", left" : "";
    if (ChanA == 0) return "no angle channel (A) of seat " + Number + OfSide;
    if (Index < VarAverForce || Index >= OarVarCnt) return "";
    if (ChanF == 0) return "no force channel (H or G) of seat " + Number + OfSide;
    const bool NeedsRig = IsGate || Index >= VarWork;
    return NeedsRig && !HasRig ? "no rig of seat " + Number + " in the boat set-up" : "";
}

bool cOarVars::Has(int Index) const
{
    if (ChanA == 0) return false;
    if (Index < VarAverForce || Index >= OarVarCnt) return true;
    return ChanF != 0 && (HasRig || (!IsGate && Index < VarWork));
}

double cOarVars::ValueOf(const Vars& Values, int Index)
{
    return Index >= 0 && Index < OarVarCnt ? Values[static_cast<std::size_t>(Index)] : 0;
}

void cOarVars::CalcData()
{
    if (ChanA == 0) return;
    T = gData[0];
    A = gData[static_cast<std::size_t>(ChanA)] * AngleRow.Q1 + AngleRow.Q0;
    F = ChanF == 0 ? 0 : (gData[static_cast<std::size_t>(ChanF)] * ForceRow.Q1 + ForceQ0) * FRatio;
    if (HasSamples) {
        DA = A - PrevA;
        if (DA == 0) return; // a turn is seen when the oar moves again
        if (DA < 0)
            GoBack();
        else
            GoForth();
        PrevDA = DA;
    }
    HasSamples = true;
    PrevA = A;
    PrevF = F;
}

void cOarVars::GoBack()
{
    IsDriving = false;
    if (PrevDA > 0) Finish();
    RecSumF += F;
    ++RecCnt;
}

void cOarVars::Finish()
{
    const double StrokeTime = T - FinishT;
    FinishT = T;
    StrokeVars[VarFinish] = A;
    StrokeVars[VarTotal] = A - StrokeVars[VarCatch];
    StrokeVars[VarAverForce] = SafeDiv(SumF, DriveCnt);
    StrokeVars[VarMaxForce] = MaxF;
    StrokeVars[VarWork] = WorkSum;
    StrokeVars[VarPower] = SafeDiv(WorkSum, StrokeTime);
    HasFinished = true;
    ++Strokes;
    CalcAverages();
    MaxF = SumF = WorkSum = 0;
    DriveCnt = 0;
}

void cOarVars::GoForth()
{
    HasFinished = false;
    IsDriving = true;
    if (PrevDA < 0) Catch();
    SumF += F;
    if (F > MaxF) MaxF = F;
    WorkSum += ArcK * DA * (PrevF + F) / 2;
    ++DriveCnt;
}

void cOarVars::Catch()
{
    StrokeVars[VarCatch] = A;
    if (RecCnt > 0 && ChanF != 0) ZeroForce();
    RecSumF = 0;
    RecCnt = 0;
}

// This sample keeps the offset with which it was read. A row that is no longer the one that was loaded, since another
// session is open or the channel was calibrated meanwhile, is left alone.
void cOarVars::ZeroForce()
{
    ForceQ0 += UnloadedForce - RecSumF / RecCnt;
    if (gDoReZero <= 0 || ChanF > gFile.Calibr.UBound() || gFile.Calibr[ChanF] != ForceRow) return;
    gFile.Calibr[ChanF].Q0 = ForceRow.Q0 = ForceQ0;
}

void cOarVars::CalcAverages()
{
    LastVals = StrokeVars;
    for (std::size_t i = 0; i < LastVals.size(); ++i) {
        SumVals[i] += LastVals[i];
        AverVals[i] = SafeDiv(SumVals[i], Strokes);
    }
}
