// Days to calendar dates and back.
#include "base/mIsoDate.h"

#include "base/mNumText.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace {
constexpr std::chrono::sys_days DayZero{std::chrono::year{1899} / 12 / 30};
constexpr std::string_view Form = "0000-00-00";
} // namespace

std::string FormatIsoDate(double Days)
{
    if (Days == 0) return {};
    const std::chrono::year_month_day Date{DayZero + std::chrono::days{static_cast<int>(std::floor(Days))}};
    return FormatNum(static_cast<int>(Date.year()), "0000") + "-" +
           FormatNum(static_cast<unsigned>(Date.month()), "00") + "-" +
           FormatNum(static_cast<unsigned>(Date.day()), "00");
}

std::optional<double> ParseIsoDate(std::string_view Text)
{
    const auto Fits = [](char C, char Pattern) { return Pattern == '-' ? C == '-' : C >= '0' && C <= '9'; };
    if (!std::equal(Text.begin(), Text.end(), Form.begin(), Form.end(), Fits)) return {};
    const auto Part = [&](std::size_t From, std::size_t Length) {
        return static_cast<int>(Val(Text.substr(From, Length)));
    };
    return DateFromCalendar(Part(0, 4), Part(5, 2), Part(8, 2));
}
