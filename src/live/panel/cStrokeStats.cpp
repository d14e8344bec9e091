// Stroke numbers by their keys.
#include "live/panel/cStrokeStats.h"

namespace {
constexpr double FarLimit = 2147483647;
} // namespace

void cStrokeStats::CheckFunc(double X, double Y, double A, double Time)
{
    if (Y < MinY) MinY = Y;
    if (Y > MaxY) MaxY = Y;
    if (X < MinX) {
        MinX = X;
        TimeMinX = Time;
    }
    if (X > MaxX) MaxX = X;
    if (A < MinA) {
        MinA = A;
        TimeMinA = Time;
    }
    if (A > MaxA) MaxA = A;
}

void cStrokeStats::ResetFuncs()
{
    MinX = MinY = MinA = FarLimit;
    MaxX = MaxY = MaxA = -FarLimit;
}

std::optional<double> cStrokeStats::Value(std::string_view Key, double X) const
{
    if (Key == "MinX") return MinX;
    if (Key == "MaxX") return MaxX;
    if (Key == "DelX") return MaxX - MinX;
    if (Key == "MinY") return MinY;
    if (Key == "MaxY") return MaxY;
    if (Key == "DelY") return MaxY - MinY;
    if (Key == "MinA") return MinA;
    if (Key == "MaxA") return MaxA;
    if (Key == "DelA") return MaxA - MinA;
    if (Key == "As") return X;
    if (Key == "Catch") return TimeMinA - TimeMinX;
    return {};
}
