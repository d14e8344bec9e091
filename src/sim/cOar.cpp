// Smooth curves of the drive and the recovery, joined at the catch and the finish.
#include "sim/cOar.h"

#include "sim/mCurves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr double Pi = std::numbers::pi;

constexpr double SweepForce = 640; // N at the handle at 24 strokes per minute
constexpr double ScullForce = 360;
constexpr double ForcePerRate = 0.008; // growth per stroke per minute
constexpr double OarInertia = 12;      // N, what moving the oar itself takes
constexpr double GateRatio = 1.4;      // gate force against handle force

constexpr double BladeDepth = -4.5; // degrees
constexpr double BladeLift = 5;
constexpr double SeatTravel = 0.6; // m
constexpr double TrunkForward = -25;
constexpr double TrunkSwing = 45;

double Inertia(const StrokePhase& Now)
{
    return -OarInertia * std::sin(2 * Pi * Now.Part);
}

double Stretched(const Oar& Each, double Angle)
{
    constexpr double Middle = (MeanCatch + MeanFinish) / 2;
    return Middle + (Angle - Middle) * Each.Length;
}
} // namespace

Oar MakeOar(uint64_t Seed, int Seat, int Side, bool IsScull, double Rate)
{
    const auto Place = static_cast<uint64_t>(Seat + 1) * 8;
    cRandom OfSeat(Seed, Place);
    Oar Made;
    Made.Lag = OfSeat.Between(-0.025, 0.025);
    Made.Length = OfSeat.Between(0.97, 1.03);
    Made.Strength = OfSeat.Between(0.93, 1.07);
    Made.PeakForce = (IsScull ? ScullForce : SweepForce) * (1 + ForcePerRate * (Rate - 24));
    if (IsScull && Side > 0) {
        cRandom OfHand(Seed, Place + static_cast<uint64_t>(Side));
        Made.Lag += OfHand.Between(-0.006, 0.006);
        Made.Length *= OfHand.Between(0.99, 1.01);
        Made.Strength *= OfHand.Between(0.97, 1.03);
    }
    return Made;
}

double CatchAngle(const Oar& Each, const Stroke& In)
{
    return Stretched(Each, In.Catch);
}

double FinishAngle(const Oar& Each, const Stroke& In)
{
    return Stretched(Each, In.Finish);
}

double PeakForce(const Oar& Each, const Stroke& In)
{
    return Each.PeakForce * Each.Strength * In.Effort;
}

double OarAngle(const Oar& Each, const StrokePhase& Now)
{
    const Stroke& In = *Now.In;
    if (Now.IsDrive) return Stretched(Each, In.Catch + (In.Finish - In.Catch) * Glide(Now.Part, -0.05, 0.1));
    return Stretched(Each, In.Finish + (In.NextCatch - In.Finish) * Glide(Now.Part, 0.05, 0.33));
}

double VerticalAngle(const StrokePhase& Now)
{
    const double FromMiddle = 2 * Now.Part - 1;
    const double Squared = FromMiddle * FromMiddle;
    return Now.IsDrive ? BladeDepth * (1 - Squared * Squared * Squared) : BladeLift * (1 - Squared * Squared);
}

double HandleForce(const Oar& Each, const StrokePhase& Now)
{
    return Now.IsDrive ? PeakForce(Each, *Now.In) * Pulse(Now.Part) : Inertia(Now);
}

double GateForce(const Oar& Each, const StrokePhase& Now)
{
    // In the air the gate feels the reaction of the oar that the hands move.
    return Now.IsDrive ? GateRatio * HandleForce(Each, Now) : -Inertia(Now) / 2;
}

double SeatPosition(const Oar& Each, const StrokePhase& Now)
{
    // Legs first: the seat has come back long before the handle, and waits for the hands on the way forward.
    return SeatTravel * Each.Length *
           (Now.IsDrive ? Glide(Now.Part / 0.65, 0, 0) : 1 - Glide((Now.Part - 0.2) / 0.8, 0, 0));
}

double TrunkAngle(const Oar& Each, const StrokePhase& Now)
{
    const double Swing = Now.IsDrive ? Glide((Now.Part - 0.2) / 0.8, 0, 0) : 1 - Glide(Now.Part / 0.6, 0, 0);
    return TrunkForward + TrunkSwing * Each.Length * Swing;
}
