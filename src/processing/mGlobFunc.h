// Small helpers on lists of numbers and words that several modules share.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The words of a comma list, blanks kept. Empty when Text is: it has no words.
std::vector<std::string> SplitStr(std::string_view Text);

/// The words of a comma list as numbers, unreadable ones as 0.
std::vector<double> SplitNum(std::string_view Text);

/// The first Count characters of a text.
std::string_view LeftPart(std::string_view Text, int Count);

/// The smallest element for "MIN", the largest for "MAX", 0 for another Kind. Elements beyond 2147483647 on the far
/// side are ignored, and no elements give 2147483647 for "MIN" and -2147483647 for "MAX".
double ArrMinMax(std::span<const double> Values, std::string_view Kind);

/// Moves all elements one place towards the first, which is dropped, and stores X as the last.
void ShiftAppend(std::span<double> Values, double X);
