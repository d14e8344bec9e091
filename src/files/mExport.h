// Samples as text, for spreadsheets and other programs.
#pragma once

#include <cstdint>
#include <string>

/// Writes samples From to To of the sample store: a line with the channels' names, then a line a sample with its
/// number, time and values, each followed by a tab. To below From gives the names alone. False when a sample is not in
/// the store or the file cannot be written (reported to the user): the file at Path is as it was.
bool WriteText(const std::string& Path, int32_t From, int32_t To);
