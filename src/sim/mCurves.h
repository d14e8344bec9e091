// The shapes of a stroke's movements and forces.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

/// A way from 0 to 1 with its speed made of three sine waves: Skew above 0 hurries its beginning, Flat evens the speed
/// and sharpens both turns. The turns are never flat, so every stroke has one minimum and one maximum.
inline double Glide(double Part, double Skew, double Flat)
{
    const double C = std::cos(std::numbers::pi * std::clamp(Part, 0.0, 1.0));
    const double Twice = 2 * C * C - 1; // cosines of the double and the triple angle
    const double Thrice = (4 * C * C - 3) * C;
    const double Way = (1 - C) + Skew * (1 - Twice) / 2 + Flat * (1 - Thrice) / 3;
    return Way / (2 + 2 * Flat / 3);
}

/// A push that rises quicker than it falls: 1 at two fifths of the drive.
inline double Pulse(double Part)
{
    const double Root = std::sqrt(Part);
    return std::sin(std::numbers::pi * Root * std::sqrt(Root));
}
