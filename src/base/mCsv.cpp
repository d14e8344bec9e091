// Quoting, and the way back character by character.
#include "base/mCsv.h"

#include "base/mNumText.h"

#include <algorithm>

namespace {
bool NeedsQuotes(const std::string& Cell)
{
    return Cell.find_first_of(",\"\r\n") != std::string::npos;
}

void AppendQuoted(std::string& Text, const std::string& Cell)
{
    Text += '"';
    for (const char C : Cell)
        Text.append(C == '"' ? 2U : 1U, C);
    Text += '"';
}

// Takes cells off the front of a text.
class cCutter
{
public:
    explicit cCutter(std::string_view Text) : Rest(Text) {}

    int Line() const { return LineNo; }
    bool IsAtEnd() const { return Rest.empty(); }

    // What is wrong with the cell, empty when nothing is.
    std::string TakeCell(std::string& Cell)
    {
        Cell.clear();
        if (Rest.starts_with('"')) return TakeQuoted(Cell);
        const auto End = std::min(Rest.find_first_of(",\r\n"), Rest.size());
        Cell = Rest.substr(0, End);
        Rest.remove_prefix(End);
        return Cell.find('"') == std::string::npos ? "" : Wrong("a quote stands within a cell without quotes");
    }

    // Takes the comma behind a cell; false at the end of its line, which is taken.
    bool TakeComma()
    {
        if (Rest.starts_with(',')) {
            Rest.remove_prefix(1);
            return true;
        }
        Rest.remove_prefix(Rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, Rest.size()));
        ++LineNo;
        return false;
    }

private:
    std::string Wrong(const std::string& Words) const { return "Line " + FormatNum(LineNo, "0") + ": " + Words; }

    std::string TakeQuoted(std::string& Cell)
    {
        const std::string Open = Wrong("a quote is not closed");
        for (Rest.remove_prefix(1);;) {
            const auto End = Rest.find('"');
            if (End == std::string_view::npos) return Open;
            Cell += Rest.substr(0, End);
            const bool IsDoubled = Rest.substr(End + 1).starts_with('"');
            Rest.remove_prefix(End + (IsDoubled ? 2 : 1));
            if (!IsDoubled) break;
            Cell += '"';
        }
        for (const char C : Cell)
            if (C == '\n') ++LineNo;
        const bool IsEnd = Rest.empty() || std::string_view(",\r\n").find(Rest.front()) != std::string_view::npos;
        return IsEnd ? "" : Wrong("something stands behind a closing quote");
    }

    std::string_view Rest;
    int LineNo = 1;
};
} // namespace

void AppendCsv(std::string& Text, const std::vector<std::string>& Cells)
{
    for (std::size_t i = 0; i < Cells.size(); ++i) {
        if (i > 0) Text += ',';
        if (NeedsQuotes(Cells[i]))
            AppendQuoted(Text, Cells[i]);
        else
            Text += Cells[i];
    }
    Text += "\r\n";
}

std::string ParseCsv(std::string_view Text, std::vector<CsvRecord>& Records)
{
    Records.clear();
    cCutter Cutter(Text);
    while (!Cutter.IsAtEnd()) {
        CsvRecord Record{Cutter.Line(), {}};
        do
            if (std::string Wrong = Cutter.TakeCell(Record.Cells.emplace_back()); !Wrong.empty()) return Wrong;
        while (Cutter.TakeComma());
        if (Record.Cells.size() > 1 || !Record.Cells[0].empty()) Records.push_back(std::move(Record));
    }
    return {};
}
