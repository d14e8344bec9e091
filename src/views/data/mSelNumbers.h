// The numbers of a selection: times, strokes, rate, distance, and what the stroke filter leaves.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

/// Texts of the boxes 1 to 12; element 0 stays empty.
using SelTexts = std::array<std::string, 13>;

/// Labels of the boxes, empty where a box has none of its own.
extern const std::array<const char*, 13> SelLabels;

/// The numbers of samples Start to Stop. Nothing without a key channel or a whole stroke: then the texts shown stay.
std::optional<SelTexts> SelectionNumbers(int32_t Start, int32_t Stop);

/// What to say about the longest stretch of time without samples, where one was cut out or lost; empty when there is
/// none.
std::string GapNote(int32_t Start, int32_t Stop);

/// The stretch from the first to the last stroke boundary of the store. False without one: Start and Stop stay.
bool FindAllStrokes(int32_t& Start, int32_t& Stop);

/// The texts 7 and 8, distance and speed of a selection; empty where no distance band runs.
std::array<std::string, 2> DistTexts(int32_t Start, int32_t Stop);

/// Metres between two samples by gDist, Stop 0 being the last one; nothing where it does not run.
std::optional<double> SelectionDist(int32_t Start, int32_t Stop);
