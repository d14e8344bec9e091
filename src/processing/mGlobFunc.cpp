// Comma lists and extremes.
#include "processing/mGlobFunc.h"

#include "base/mNumText.h"

#include <algorithm>

namespace {
constexpr double FarLimit = 2147483647;
} // namespace

std::vector<std::string> SplitStr(std::string_view Text)
{
    std::vector<std::string> Words;
    if (Text.empty()) return Words;
    for (;;) {
        const auto Comma = Text.find(',');
        Words.emplace_back(Text.substr(0, Comma));
        if (Comma == std::string_view::npos) return Words;
        Text.remove_prefix(Comma + 1);
    }
}

std::vector<double> SplitNum(std::string_view Text)
{
    const auto Words = SplitStr(Text);
    std::vector<double> Numbers(Words.size());
    std::transform(Words.begin(), Words.end(), Numbers.begin(), Val);
    return Numbers;
}

std::string_view LeftPart(std::string_view Text, int Count)
{
    std::size_t End = 0;
    const auto Continues = [&] { return End < Text.size() && (static_cast<unsigned char>(Text[End]) & 0xC0) == 0x80; };
    for (; Count > 0 && End < Text.size(); --Count) {
        ++End;
        while (Continues())
            ++End;
    }
    return Text.substr(0, End);
}

double ArrMinMax(std::span<const double> Values, std::string_view Kind)
{
    if (Kind == "MIN") {
        double Least = FarLimit;
        for (const double Each : Values)
            if (Each < Least) Least = Each;
        return Least;
    }
    if (Kind != "MAX") return 0;
    double Most = -FarLimit;
    for (const double Each : Values)
        if (Each > Most) Most = Each;
    return Most;
}

void ShiftAppend(std::span<double> Values, double X)
{
    if (Values.empty()) return;
    std::shift_left(Values.begin(), Values.end(), 1);
    Values.back() = X;
}
