// Numbers and dates as text and back, by literal patterns, correctly rounded and the same in every locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// X rounded to a whole number, halves to the even one.
double RoundHalfEven(double X);

/// X rounded half to even and kept between Low and High; Low for what is no number.
int32_t RoundWithin(double X, int32_t Low, int32_t High);

/// X by a literal pattern: zeros before the point are the least number of whole digits, zeros after it the
/// decimals ("00", "0.000"); "0." keeps its point; a "%" at the end shows X times 100. A tie goes to the even digit.
std::string FormatNum(double X, std::string_view Pattern);

/// Appends X with Decimals digits after the point and at least Whole before it: FormatNum without parsing a
/// pattern, for long tables.
void AppendFixed(std::string& Line, double X, int Decimals, int Whole = 1);

/// Appends FormatSig and FormatSig6.
void AppendSig(std::string& Line, double X, int Places);
void AppendSig6(std::string& Line, double X);

/// X with Places significant digits, less the whole digits above one; at least its decimal point remains.
std::string FormatSig(double X, int Places);

/// X in six to two decimals by magnitude, none from 10000 on.
std::string FormatSig6(double X);

/// A boolean as files write it: "-1" or "0".
std::string FormatBool(bool X);

/// The shortest text that reads back as X.
std::string FormatShortest(double X);
std::string FormatShortest(float X);

/// X with at most Digits significant digits and no trailing zeros, as C's "%.{Digits}g".
std::string FormatGeneral(double X, int Digits);

/// The leading number of Text after blanks; nothing when there is none or it is too large.
std::optional<double> LeadingNumber(std::string_view Text);

/// The number that Text is from its first character to its last; nothing for any other text.
std::optional<double> NumberAlone(std::string_view Text);

/// The leading number of Text, 0 when there is none.
double Val(std::string_view Text);

/// Days from 30 December 1899 to a date of the Gregorian calendar; nothing when there is no such date.
std::optional<double> DateFromCalendar(int Year, int Month, int Day);

/// "dd/mm/yy" of a date in days from 30 December 1899; empty for 0, the unset date.
std::string FormatDate(double Days);

/// The date written as day, month and year with blanks allowed around it. Two-digit years 00 to 29 are 2000 to 2029,
/// 30 to 99 are 1930 to 1999. Empty text gives 0, the unset date; nothing when it is no date.
std::optional<double> ParseDate(std::string_view Text);
