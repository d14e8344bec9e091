// The tables of what was simulated, as numbers.
#pragma once

#include "base/mNumText.h"

#include <algorithm>
#include <string>
#include <vector>

using Table = std::vector<std::vector<double>>;

// The numbers of a tab-separated text behind its header line.
inline Table Numbers(const std::string& Text)
{
    Table Rows;
    for (std::size_t From = Text.find('\n') + 1; From < Text.size();) {
        const std::size_t End = Text.find('\n', From);
        std::vector<double>& Row = Rows.emplace_back();
        while (From < End) {
            const std::size_t Tab = std::min(Text.find('\t', From), End);
            Row.push_back(Val(Text.substr(From, Tab - From)));
            From = Tab + 1;
        }
        From = End + 1;
    }
    return Rows;
}
