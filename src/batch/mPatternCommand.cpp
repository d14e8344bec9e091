// The command patterns.
#include "batch/mCommands.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"

#include <algorithm>

namespace {
constexpr int Digits = 9;

// A cell of a comma-separated line, in quotes when it holds what would end it.
std::string Cell(const std::string& Text)
{
    if (Text.find_first_of(",\"\r\n") == std::string::npos) return Text;
    std::string Quoted = "\"";
    for (const char C : Text)
        Quoted.append(C == '"' ? 2U : 1U, C);
    return Quoted + "\"";
}

std::vector<const DataRow*> RowsOf(const std::string& SampleID)
{
    std::vector<const DataRow*> Rows;
    for (const DataRow& Row : gFile.Data)
        if (Row.SampleID == SampleID) Rows.push_back(&Row);
    return Rows;
}

template <class ToText>
void AddLine(std::string& Text, const std::vector<const DataRow*>& Rows, const ToText& Convert)
{
    for (std::size_t c = 0; c < Rows.size(); ++c)
        Text.append(c == 0 ? "" : ",").append(Convert(*Rows[c]));
    Text += '\n';
}
} // namespace

bool DoPatterns(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    const std::string& Sample = Line.Files[1];
    const auto Rows = RowsOf(Sample);
    if (Rows.empty()) {
        MsgBox("There are no patterns of a sample " + Sample + " in file: " + Line.Files[0], TitleError);
        return false;
    }
    std::string Text;
    AddLine(Text, Rows, [](const DataRow& Row) { return Cell(Row.ParamID); });
    std::size_t Points = 0;
    for (const DataRow* Row : Rows)
        Points = std::max(Points, Row->Values.size());
    for (std::size_t j = 0; j < Points; ++j)
        AddLine(Text, Rows, [j](const DataRow& Row) {
            return j < Row.Values.size() ? FormatGeneral(Row.Values[j], Digits) : std::string();
        });
    return SaveText(Line.Files[2], Text);
}
