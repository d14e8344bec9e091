// How live panels judge a value: the three colours of factors and of values that have a target.
#pragma once

#include <cstddef>
#include <string_view>

enum class eVerdict
{
    Green,
    Blue,
    Red
};

/// "green", "blue" or "red".
constexpr std::string_view VerdictName(eVerdict Verdict)
{
    constexpr std::string_view Names[] = {"green", "blue", "red"};
    return Names[static_cast<std::size_t>(Verdict)];
}
