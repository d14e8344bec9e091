// The search for a session data file's last line.
#include "files/mBrokenOff.h"

#include "base/mNumText.h"
#include "core/mTextRows.h"

namespace {
constexpr std::string_view LastLine = "EOF";
} // namespace

std::string WhereBrokenOff(std::string_view Text, bool (*IsSection)(std::string_view Line))
{
    LineReader Lines(Text);
    int Count = 0, Rows = 0;
    std::string Open; // the section that has not ended
    for (std::string_view Line; Lines.Take(Line); ++Count) {
        if (Line == LastLine) return {};
        if (Open.empty() && IsSection(Line)) {
            Open = Line.substr(0, Line.find('\t'));
            Rows = -1;
        }
        if (Line.starts_with("End")) Open.clear();
        ++Rows;
    }
    std::string Words = "it ends in line " + FormatNum(Count, "0");
    if (!Open.empty())
        Words += ", in the section " + Open + " behind " + FormatNum(Rows, "0") + (Rows == 1 ? " row" : " rows");
    return Words + ", without the line EOF";
}
