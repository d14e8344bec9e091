// Curves without a rest, from catch to finish and back.
#include "sim/cErgRower.h"

#include "sim/mCurves.h"

namespace {
constexpr double Reach = 0.12;         // m of chain at an average catch
constexpr double Travel = 1.42;        // m from there to an average finish
constexpr double ChainForce = 9;       // N, of the cord that takes the chain back
constexpr double SeatTravel = 0.58;    // m
constexpr double SeatDrive = 0.65;     // of the drive: then the seat begins to come forward, slowly
constexpr double SlowBeginning = -0.4; // of a way
constexpr double SlowEnd = 0.4;
constexpr double TrunkForward = -28; // degrees
constexpr double TrunkSwing = 50;
constexpr int WorkSteps = 2000;

double Chain(double Angle)
{
    return Reach + Travel * (Angle - MeanCatch) / (MeanFinish - MeanCatch);
}

// Seconds since the stroke's catch.
double Since(const StrokePhase& Now)
{
    const Stroke& In = *Now.In;
    return Now.IsDrive ? Now.Part * In.DriveT : In.DriveT + Now.Part * (In.Period - In.DriveT);
}
} // namespace

double ErgHandle(const Oar& Each, const StrokePhase& Now)
{
    return Chain(OarAngle(Each, Now));
}

double ErgForce(const Oar& Each, const StrokePhase& Now)
{
    return ChainForce + (Now.IsDrive ? PeakForce(Each, *Now.In) * Pulse(Now.Part) : 0);
}

double ErgSeat(const Oar& Each, const StrokePhase& Now)
{
    const Stroke& In = *Now.In;
    const double Turn = SeatDrive * In.DriveT;
    const double T = Since(Now);
    const double Way = T < Turn ? Glide(T / Turn, 0, 0) : 1 - Glide((T - Turn) / (In.Period - Turn), SlowBeginning, 0);
    return SeatTravel * Each.Length * Way;
}

double ErgTrunk(const Oar& Each, const StrokePhase& Now)
{
    const double Swing = Now.IsDrive ? Glide(Now.Part, SlowBeginning, 0) : 1 - Glide(Now.Part, SlowEnd, 0);
    return TrunkForward + TrunkSwing * Each.Length * Swing;
}

double ErgCatch(const Oar& Each, const Stroke& In)
{
    return Chain(CatchAngle(Each, In));
}

double ErgFinish(const Oar& Each, const Stroke& In)
{
    return Chain(FinishAngle(Each, In));
}

double ErgWork(const Oar& Each, const Stroke& In)
{
    double Sum = 0;
    double Before = ErgCatch(Each, In);
    for (int i = 1; i <= WorkSteps; ++i) {
        const double Here = ErgHandle(Each, {&In, true, static_cast<double>(i) / WorkSteps});
        Sum += ErgForce(Each, {&In, true, (i - 0.5) / WorkSteps}) * (Here - Before);
        Before = Here;
    }
    return Sum;
}
