// Numbers and faults of typed texts.
#include "records/mFormText.h"

#include "base/mNumText.h"

#include <algorithm>

void AddFault(std::vector<FormFault>& Faults, const std::string& Control, const std::string& Why)
{
    if (!Why.empty()) Faults.push_back({Control, Why});
}

std::string TrimTyped(const std::string& Typed)
{
    constexpr const char* Blanks = " \t";
    const auto First = Typed.find_first_not_of(Blanks);
    return First == std::string::npos ? "" : Typed.substr(First, Typed.find_last_not_of(Blanks) - First + 1);
}

std::optional<double> TypedNumber(const std::string& Typed)
{
    std::string Text = TrimTyped(Typed);
    if (Text.empty()) return 0.0;
    std::replace(Text.begin(), Text.end(), ',', '.');
    const std::size_t Sign = Text[0] == '-' ? 1 : 0;
    const bool IsPlain = Text.find_first_not_of("0123456789.", Sign) == std::string::npos &&
                         std::count(Text.begin(), Text.end(), '.') <= 1 && Text.size() <= 12;
    return IsPlain ? LeadingNumber(Text) : std::nullopt;
}

std::string WhyNoNumber(const std::string& Typed)
{
    return TypedNumber(Typed) ? "" : "\"" + Typed + "\" is no number";
}
