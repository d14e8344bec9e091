// Dates as year, month and day, the form that tables exchange with other programs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// "yyyy-mm-dd" of a date in days from 30 December 1899; empty for 0, the unset date.
std::string FormatIsoDate(double Days);

/// The date written as yyyy-mm-dd; nothing when Text is anything else.
std::optional<double> ParseIsoDate(std::string_view Text);
