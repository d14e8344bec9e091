// A swing of three sine waves about the mean speed: a steep fall at the catch, a slow rise to the recovery's peak.
#include "sim/cHull.h"

#include <array>
#include <cmath>
#include <numbers>

namespace {
constexpr double Pi = std::numbers::pi;

// The waves of the swing and the part of a stroke at which it falls steepest.
constexpr std::array<double, 3> Waves = {1, 0.45, 0.15};
constexpr double SteepestFall = -0.03;
constexpr double SurgeShare = 0.13; // of the mean speed

// A straight course over still water.
constexpr double StartLatitude = 46.2;
constexpr double StartLongitude = 8.7;
constexpr double Course = 35 * Pi / 180; // from north over east
constexpr double MetresPerDegree = 111194.9;

struct BoatSpeed
{
    const char* BoatType;
    double AtThirty; // m/s at 30 strokes per minute
};
constexpr std::array<BoatSpeed, 8> Speeds = {
    {{"1x", 4.4}, {"2x", 4.9}, {"2-", 4.7}, {"2+", 4.4}, {"4x", 5.4}, {"4-", 5.2}, {"4+", 5.0}, {"8+", 5.6}}};

double SpeedOf(const std::string& BoatType)
{
    for (const BoatSpeed& Each : Speeds)
        if (BoatType == Each.BoatType) return Each.AtThirty;
    return Speeds[0].AtThirty;
}

double Angle(std::size_t i, double Part)
{
    return 2 * Pi * static_cast<double>(i + 1) * (Part - SteepestFall);
}
} // namespace

cHull::cHull(const std::string& BoatType, double Rate, cStrokes& Strokes_)
    : Strokes(Strokes_), Mean(SpeedOf(BoatType) * std::cbrt(Rate / 30)), Surge(SurgeShare * Mean), SwungBefore(Swung(0))
{
}

double cHull::PartAt(double T, double& Period)
{
    const Stroke& In = Strokes.At(Strokes.NumberAt(T));
    Period = In.Period;
    return (T - In.Start) / In.Period;
}

double cHull::Speed(double T)
{
    double Period = 0;
    const double Part = PartAt(T, Period);
    double Swing = 0;
    for (std::size_t i = 0; i < Waves.size(); ++i)
        Swing -= Waves[i] * std::sin(Angle(i, Part));
    return Mean + Surge * Swing;
}

double cHull::Acceleration(double T)
{
    double Period = 0;
    const double Part = PartAt(T, Period);
    double Slope = 0;
    for (std::size_t i = 0; i < Waves.size(); ++i)
        Slope -= Waves[i] * static_cast<double>(i + 1) * std::cos(Angle(i, Part));
    return Surge * 2 * Pi * Slope / Period;
}

double cHull::Swung(double T)
{
    double Period = 0;
    const double Part = PartAt(T, Period);
    double Way = 0;
    for (std::size_t i = 0; i < Waves.size(); ++i)
        Way += Waves[i] / static_cast<double>(i + 1) * (std::cos(Angle(i, Part)) - std::cos(Angle(i, 0)));
    return Surge * Way * Period / (2 * Pi);
}

double cHull::Distance(double T)
{
    return Mean * T + Swung(T) - SwungBefore;
}

double cHull::Wave(double T, double Times, double Shift)
{
    double Period = 0;
    const double Part = PartAt(T, Period);
    return std::sin(2 * Pi * (Times * Part + Shift));
}

double cHull::Sway(double T)
{
    return 0.15 * Wave(T, 1, 0.2);
}

double cHull::Heave(double T)
{
    return 0.4 * Wave(T, 2, 0.1);
}

double cHull::Roll(double T)
{
    return 2.5 * Wave(T, 1, 0.35) + 0.8 * Wave(T, 3, 0);
}

double cHull::Pitch(double T)
{
    return 1.2 * Wave(T, 1, 0.6);
}

double cHull::Yaw(double T)
{
    return 0.6 * Wave(T, 1, 0.85);
}

double cHull::Latitude(double T)
{
    return StartLatitude + Distance(T) * std::cos(Course) / MetresPerDegree;
}

double cHull::Longitude(double T)
{
    return StartLongitude + Distance(T) * std::sin(Course) / (MetresPerDegree * std::cos(StartLatitude * Pi / 180));
}
