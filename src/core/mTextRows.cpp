// Cutting a text into lines and a line into fields.
#include "core/mTextRows.h"

bool LineReader::Take(std::string_view& Line)
{
    if (Rest.empty()) return false;
    const auto End = std::min(Rest.find('\n'), Rest.size());
    Line = Rest.substr(0, End);
    Rest.remove_prefix(std::min(End + 1, Rest.size()));
    while (Line.ends_with('\r'))
        Line.remove_suffix(1);
    if (Line.find('\r') != std::string_view::npos) {
        Cleaned = Line;
        std::erase(Cleaned, '\r');
        Line = Cleaned;
    }
    return true;
}

void LineFields::Cut(std::string_view Line)
{
    Closed.clear();
    for (auto Tab = Line.find('\t'); Tab != std::string_view::npos; Tab = Line.find('\t')) {
        Closed.push_back(Line.substr(0, Tab));
        Line.remove_prefix(Tab + 1);
    }
    Open = Line;
}
