// The extremes of a running stroke, and the stroke numbers made of them.
#pragma once

#include <optional>
#include <string_view>

class cStrokeStats
{
public:
    /// Takes a sample: the row's x, its result y, its first argument a, and the time in seconds.
    void CheckFunc(double X, double Y, double A, double Time);

    /// A new stroke begins. Until the first one the extremes start from 0.
    void ResetFuncs();

    /// The stroke number of a key; X is the newest x. Nothing for another key.
    std::optional<double> Value(std::string_view Key, double X) const;

private:
    double MinX = 0, MaxX = 0, MinY = 0, MaxY = 0, MinA = 0, MaxA = 0;
    double TimeMinX = 0, TimeMinA = 0; // s
};
