// Cutting and wrapping of UTF-8 text.
#include "views/report/mPageText.h"

#include <algorithm>
#include <utility>

namespace {
bool IsInside(char Byte)
{
    return (Byte & 0xC0) == 0x80;
}

void DropLast(std::string& Text)
{
    while (!Text.empty() && IsInside(Text.back()))
        Text.pop_back();
    if (!Text.empty()) Text.pop_back();
}
} // namespace

std::string Fitting(const iSurface& Surface, const std::string& Text, int Size, double Width, bool Bold)
{
    if (Surface.TextWidth(Text, Size, Bold) <= Width) return Text;
    std::string Part = Text;
    while (!Part.empty() && Surface.TextWidth(Part + "…", Size, Bold) > Width)
        DropLast(Part);
    return Part + "…";
}

std::string FittingName(const iSurface& Surface, const std::string& Text, int Size, double Width)
{
    constexpr std::size_t LastLetters = 10;
    if (Surface.TextWidth(Text, Size) <= Width || Text.size() <= LastLetters)
        return Fitting(Surface, Text, Size, Width);
    std::size_t From = Text.size() - LastLetters;
    while (From < Text.size() && IsInside(Text[From]))
        ++From;
    const std::string End = Text.substr(From);
    return Fitting(Surface, Text.substr(0, From), Size, Width - Surface.TextWidth(End, Size)) + End;
}

std::vector<std::string> Wrapped(const iSurface& Surface, const std::string& Text, int Size, double Width,
                                 std::size_t MostLines)
{
    std::vector<std::string> Result;
    std::string Line;
    for (std::size_t From = 0; From < Text.size();) {
        const std::size_t End = std::min(Text.find(' ', From), Text.size());
        const std::string Word = Text.substr(From, End - From);
        const bool IsFull = !Line.empty() && Surface.TextWidth(Line + " " + Word, Size) > Width;
        if (IsFull && Result.size() + 1 >= MostLines) {
            Line += " " + Text.substr(From);
            break;
        }
        if (IsFull) Result.push_back(std::exchange(Line, {}));
        Line += (Line.empty() ? "" : " ") + Word;
        From = End + 1;
    }
    if (!Line.empty()) Result.push_back(Line);
    for (std::string& Each : Result)
        Each = Fitting(Surface, Each, Size, Width);
    return Result;
}
