// The one place where numbers and dates become text or are read from it.
#include "base/mNumText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

namespace {
// Room for the longest double in fixed form: 309 whole digits, sign, point and the decimals.
constexpr std::size_t FixedRoom = 400;
constexpr int MostWhole = 300; // whole digits that a pattern can ask for

constexpr std::array<double, 5> Magnitudes = {1, 10, 100, 1000, 10000};

// Number of magnitude steps at or below |X|: 0 below 1, 5 from 10000 on.
int MagnitudeStep(double X)
{
    return static_cast<int>(std::upper_bound(Magnitudes.begin(), Magnitudes.end(), std::fabs(X)) - Magnitudes.begin());
}

std::string ToText(double X, std::chars_format Form, int Precision)
{
    std::array<char, FixedRoom> Room;
    const auto End = std::to_chars(Room.data(), Room.data() + Room.size(), X, Form, Precision).ptr;
    return {Room.data(), End};
}

// |X| times 10 to the Decimals, rounded to a whole number, a tie to the even one: the digits of X in fixed form, found
// several times faster than by the library. Nothing where a double no longer holds every half.
std::optional<uint64_t> ScaledDigits(double X, int Decimals)
{
    constexpr std::array<double, 10> Powers = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    constexpr double HalvesEnd = 4503599627370496.0; // 2 to the 52
    if (Decimals < 0 || static_cast<std::size_t>(Decimals) >= Powers.size()) return {};
    const double Power = Powers[static_cast<std::size_t>(Decimals)];
    const double Product = std::fabs(X) * Power;
    if (!(Product < HalvesEnd)) return {};
    auto Digits = static_cast<int64_t>(Product);
    const double Rest = Product - static_cast<double>(Digits);
    if (Rest == 0.5) {
        // The product was rounded itself: what that took away or added decides which side of the half X lies on.
        const double Lost = std::fma(std::fabs(X), Power, -Product);
        if (Lost > 0 || (Lost == 0 && Digits % 2 != 0)) ++Digits;
    } else if (Rest > 0.5)
        ++Digits;
    return static_cast<uint64_t>(Digits);
}

// Takes the last Count digits off Digits and writes them before End; gives the first one written.
char* WriteDigits(char* End, uint64_t& Digits, int Count)
{
    for (; Count > 0; --Count) {
        *--End = static_cast<char>('0' + Digits % 10);
        Digits /= 10;
    }
    return End;
}

template <class Number>
std::string Shortest(Number X)
{
    std::array<char, FixedRoom> Room;
    const auto End = std::to_chars(Room.data(), Room.data() + Room.size(), X).ptr;
    return {Room.data(), End};
}

bool IsDigit(char C)
{
    return C >= '0' && C <= '9';
}

std::string_view TrimBlanks(std::string_view Text)
{
    const auto First = Text.find_first_not_of(" \t\r\n");
    if (First == std::string_view::npos) return {};
    return Text.substr(First, Text.find_last_not_of(" \t\r\n") - First + 1);
}

std::optional<int> WholeNumber(std::string_view Text)
{
    int X = 0;
    const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), X);
    if (Error != std::errc{} || End != Text.data() + Text.size() || Text.empty() || X < 0) return {};
    return X;
}

constexpr std::chrono::sys_days DayZero{std::chrono::year{1899} / 12 / 30};
} // namespace

double RoundHalfEven(double X)
{
    return std::nearbyint(X);
}

int32_t RoundWithin(double X, int32_t Low, int32_t High)
{
    return static_cast<int32_t>(RoundHalfEven(X > Low ? std::min<double>(X, High) : Low));
}

void AppendFixed(std::string& Line, double X, int Decimals, int Whole)
{
    std::array<char, FixedRoom> Room;
    if (auto Digits = ScaledDigits(X, Decimals)) {
        char* const End = Room.data() + Room.size();
        char* First = WriteDigits(End, *Digits, Decimals);
        if (Decimals > 0) *--First = '.';
        First = WriteDigits(First, *Digits, std::clamp(Whole, 1, MostWhole));
        while (*Digits > 0)
            First = WriteDigits(First, *Digits, 1);
        if (std::signbit(X)) *--First = '-';
        Line.append(First, End);
        return;
    }
    const char* First = Room.data();
    const char* End = std::to_chars(Room.data(), Room.data() + Room.size(), X, std::chars_format::fixed, Decimals).ptr;
    if (*First == '-') Line += *First++;
    const auto Digits = std::find(First, End, '.') - First;
    if (Digits < Whole) Line.append(static_cast<std::size_t>(Whole - Digits), '0');
    Line.append(First, End);
}

std::string FormatNum(double X, std::string_view Pattern)
{
    const bool Percent = Pattern.ends_with('%');
    if (Percent) Pattern.remove_suffix(1);
    const auto Whole = std::min(Pattern.find('.'), Pattern.size());
    const auto Decimals = Pattern.size() - Whole - (Whole < Pattern.size() ? 1 : 0);
    std::string Text;
    AppendFixed(Text, Percent ? X * 100 : X, static_cast<int>(Decimals), static_cast<int>(Whole));
    if (Pattern.ends_with('.')) Text += '.';
    if (Percent) Text += '%';
    return Text;
}

void AppendSig(std::string& Line, double X, int Places)
{
    const int Decimals = std::max(Places - MagnitudeStep(X), 0);
    AppendFixed(Line, X, Decimals);
    if (Decimals == 0) Line += '.';
}

void AppendSig6(std::string& Line, double X)
{
    constexpr std::array<int, 6> Decimals = {6, 5, 4, 3, 2, 0};
    AppendFixed(Line, X, Decimals[static_cast<std::size_t>(MagnitudeStep(X))]);
}

std::string FormatSig(double X, int Places)
{
    std::string Text;
    AppendSig(Text, X, Places);
    return Text;
}

std::string FormatSig6(double X)
{
    std::string Text;
    AppendSig6(Text, X);
    return Text;
}

std::string FormatBool(bool X)
{
    return X ? "-1" : "0";
}

std::string FormatShortest(double X)
{
    return Shortest(X);
}

std::string FormatShortest(float X)
{
    return Shortest(X);
}

std::string FormatGeneral(double X, int Digits)
{
    return ToText(X, std::chars_format::general, Digits);
}

std::optional<double> LeadingNumber(std::string_view Text)
{
    Text.remove_prefix(std::min(Text.find_first_not_of(" \t"), Text.size()));
    if (Text.starts_with('+')) Text.remove_prefix(1);
    // Words such as "inf" are no numbers in a file.
    const std::size_t First = Text.starts_with('-') ? 1 : 0;
    if (Text.size() <= First || (!IsDigit(Text[First]) && Text[First] != '.')) return {};
    double X = 0;
    const auto Error = std::from_chars(Text.data(), Text.data() + Text.size(), X).ec;
    if (Error != std::errc{}) return {};
    return X;
}

std::optional<double> NumberAlone(std::string_view Text)
{
    if (Text.starts_with('+') && !Text.substr(1).starts_with('-')) Text.remove_prefix(1);
    double X = 0;
    const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), X);
    if (Error != std::errc{} || End != Text.data() + Text.size() || !std::isfinite(X)) return {};
    return X;
}

double Val(std::string_view Text)
{
    return LeadingNumber(Text).value_or(0.0);
}

std::optional<double> DateFromCalendar(int Year, int Month, int Day)
{
    const std::chrono::year_month_day Date{std::chrono::year{Year}, std::chrono::month{static_cast<unsigned>(Month)},
                                           std::chrono::day{static_cast<unsigned>(Day)}};
    if (Year < 100 || Year > 9999 || !Date.ok()) return {};
    return static_cast<double>((std::chrono::sys_days{Date} - DayZero).count());
}

std::string FormatDate(double Days)
{
    if (Days == 0) return {};
    const std::chrono::year_month_day Date{DayZero + std::chrono::days{static_cast<int>(std::floor(Days))}};
    return FormatNum(static_cast<unsigned>(Date.day()), "00") + "/" +
           FormatNum(static_cast<unsigned>(Date.month()), "00") + "/" +
           FormatNum((static_cast<int>(Date.year()) % 100 + 100) % 100, "00");
}

std::optional<double> ParseDate(std::string_view Text)
{
    Text = TrimBlanks(Text);
    if (Text.empty()) return 0.0;
    constexpr std::string_view Separators = "/.-";
    const auto First = Text.find_first_of(Separators);
    if (First == std::string_view::npos) return {};
    const auto Second = Text.find_first_of(Separators, First + 1);
    if (Second == std::string_view::npos) return {};
    const auto Day = WholeNumber(Text.substr(0, First));
    const auto Month = WholeNumber(Text.substr(First + 1, Second - First - 1));
    const auto YearText = Text.substr(Second + 1);
    const auto Year = WholeNumber(YearText);
    if (!Day || !Month || !Year || *Day > 31 || *Month > 12) return {};
    if (YearText.size() > 2) return DateFromCalendar(*Year, *Month, *Day);
    return DateFromCalendar(*Year + (*Year < 30 ? 2000 : 1900), *Month, *Day);
}
