// The movement of one rower and one oar through a stroke: angles, forces, seat and trunk.
#pragma once

#include "sim/cStrokes.h"

/// What sets one oar apart from the others in the boat.
struct Oar
{
    double Lag = 0;    // s behind the crew's stroke
    double Length = 1; // against the crew's mean length
    double Strength = 1;
    double PeakForce = 0; // N at the handle, of a stroke of usual effort and strength
};

/// The oar of a seat and a side (3 right scull, 4 left scull, others sweep), drawn from the seed.
Oar MakeOar(uint64_t Seed, int Seat, int Side, bool IsScull, double Rate);

// The signals of an oar at a phase of its stroke.
double OarAngle(const Oar& Each, const StrokePhase& Now);     // degrees
double VerticalAngle(const StrokePhase& Now);                 // degrees, below 0 with the blade in the water
double HandleForce(const Oar& Each, const StrokePhase& Now);  // N
double GateForce(const Oar& Each, const StrokePhase& Now);    // N
double SeatPosition(const Oar& Each, const StrokePhase& Now); // m, 0 at the catch
double TrunkAngle(const Oar& Each, const StrokePhase& Now);   // degrees, below 0 leaning to the stern

// How much earlier than the handle the seat turns at the catch and the trunk at the finish, seconds.
inline constexpr double SeatLead = 0.012;
inline constexpr double TrunkLead = 0.03;

// The figures of one stroke of an oar.
double CatchAngle(const Oar& Each, const Stroke& In);  // degrees
double FinishAngle(const Oar& Each, const Stroke& In); // degrees
double PeakForce(const Oar& Each, const Stroke& In);   // N at the handle
