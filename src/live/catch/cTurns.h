// A signal's last five values and velocities, and the moments between samples at which it turns.
#pragma once

#include <array>

class cTurns
{
public:
    /// Fills all places with the first sample: value X at Time (s), at rest.
    void Begin(double Time, double X);

    /// Takes the next sample.
    void Take(double Time, double X);

    /// Units per second over the last sample step; 0 for a step without time.
    double Velocity() const { return Velocities[4]; }

    double Newest() const { return Values[4]; }
    double Previous() const { return Values[3]; }

    /// Whether the velocity has changed from backward to forward: two samples before, one at or below 0, one at or
    /// above it, one behind.
    bool IsForwardTurn() const;

    /// The same from forward to backward.
    bool IsBackwardTurn() const;

    /// Whether the velocity has changed from forward to backward, seen by three samples behind the change.
    bool IsFinishTurn() const;

    /// Moment of the turn in seconds: where the cubic fit of the five velocities is 0.
    double TurnTime() const;

    /// Value at a moment, by the cubic fit of the five samples.
    double ValueAt(double Time) const;

    /// Moment at which the signal had a value, by the cubic fit of the five samples.
    double TimeAt(double Value) const;

private:
    using History = std::array<double, 5>; // oldest first

    History Times{};    // s
    History MidTimes{}; // s, the middles of the sample steps, to which the velocities belong
    History Values{};
    History Velocities{};
};
