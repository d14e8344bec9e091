// The movement of a rower on an ergometer through a stroke: handle, its force, seat and trunk. Unlike in a boat none of
// them ever rests, so that each turns exactly once on either side, at a known moment.
#pragma once

#include "sim/cOar.h"

/// Boat type of a session on an ergometer.
inline constexpr const char* ErgBoatType = "Erg";

// The signals at a phase of the stroke. The channels of seat and trunk run ahead by SeatLead and TrunkLead.
double ErgHandle(const Oar& Each, const StrokePhase& Now); // m of chain
double ErgForce(const Oar& Each, const StrokePhase& Now);  // N at the handle
double ErgSeat(const Oar& Each, const StrokePhase& Now);   // m, 0 at the catch
double ErgTrunk(const Oar& Each, const StrokePhase& Now);  // degrees, below 0 leaning forward

// The figures of one stroke.
double ErgCatch(const Oar& Each, const Stroke& In);  // m of chain
double ErgFinish(const Oar& Each, const Stroke& In); // m
double ErgWork(const Oar& Each, const Stroke& In);   // J of the drive
