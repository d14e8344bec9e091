// Median and extremes of the single times of a benchmark.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

/// The time that the share Part of Times, 0 to 1, does not exceed; 0 without times.
inline double Share(std::vector<double> Times, double Part)
{
    if (Times.empty()) return 0;
    const auto Place = Times.begin() + static_cast<std::ptrdiff_t>(Part * static_cast<double>(Times.size() - 1));
    std::nth_element(Times.begin(), Place, Times.end());
    return *Place;
}

/// Adds median, 99th percentile and maximum to a benchmark's counters, named with Unit.
template <class Counters>
void TellShares(Counters& Told, const std::vector<double>& Times, const std::string& Unit)
{
    Told["median_" + Unit] = Share(Times, 0.5);
    Told["p99_" + Unit] = Share(Times, 0.99);
    Told["max_" + Unit] = Share(Times, 1);
}
