// Lines of the session data file: the reader of lines, the cut of one into fields, and whole row sections.
#pragma once

#include "core/mFields.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

/// The lines of a text one after another. LF ends a line; CR is dropped.
class LineReader
{
public:
    explicit LineReader(std::string_view Words) : Rest(Words) {}

    /// The next line into Line, good until the next call; false at the end of the text.
    bool Take(std::string_view& Line);

    /// The next line of a row section; false at its "End" and at the end of the text.
    bool TakeRow(std::string_view& Line) { return Take(Line) && !Line.starts_with("End"); }

private:
    std::string_view Rest;
    std::string Cleaned; // a line that had CR within
};

/// A line cut at its tabs. Closed holds the fields that a tab ends, Open what follows the last tab.
struct LineFields
{
    std::vector<std::string_view> Closed;
    std::string_view Open;

    void Cut(std::string_view Line);
};

/// Fills the columns of a row from Values, one after another, as far as there are values.
template <class Row>
void SetFields(Row& Target, std::span<const Field<Row>> Columns, std::span<const std::string_view> Values)
{
    const std::size_t Count = std::min(Columns.size(), Values.size());
    for (std::size_t i = 0; i < Count; ++i)
        SetField(Target, Columns[i], Values[i]);
}

/// Appends the columns of a row, a tab after each.
template <class Row>
void AppendFields(std::string& Line, const Row& Source, std::span<const Field<Row>> Columns)
{
    for (const Field<Row>& Column : Columns) {
        AppendField(Line, Source, Column);
        Line += '\t';
    }
}

/// Reads a section in place of Rows: Fill gets a new row and the fields of its line. Lines that exceed the 16-bit
/// row numbers are skipped.
template <class Row, class Filler>
void ReadRows(LineReader& Lines, RowArray<Row>& Rows, Filler Fill)
{
    LineFields Cells;
    Rows.Clear();
    for (std::string_view Line; Lines.TakeRow(Line);) {
        if (Rows.UBound() == std::numeric_limits<int16_t>::max()) continue;
        Cells.Cut(Line);
        Fill(Rows.Grow(), Cells);
    }
}

/// Reads a section whose fields count only when a tab ends them.
template <class Row>
void ReadClosedRows(LineReader& Lines, std::span<const Field<Row>> Columns, RowArray<Row>& Rows)
{
    ReadRows(Lines, Rows, [&](Row& Target, const LineFields& Cells) { SetFields(Target, Columns, Cells.Closed); });
}

/// Reads a section whose last field needs no tab after it.
template <class Row>
void ReadSplitRows(LineReader& Lines, std::span<const Field<Row>> Columns, RowArray<Row>& Rows)
{
    ReadRows(Lines, Rows, [&](Row& Target, LineFields& Cells) {
        Cells.Closed.push_back(Cells.Open);
        SetFields(Target, Columns, Cells.Closed);
    });
}

/// Appends a section: its keyword, a line a row, "End".
template <class Row>
void AppendRows(std::string& Text, std::string_view Keyword, std::span<const Field<Row>> Columns,
                const RowArray<Row>& Rows)
{
    Text.append(Keyword).append("\r\n");
    for (const Row& Each : Rows) {
        AppendFields(Text, Each, Columns);
        Text += "\r\n";
    }
    Text += "End\r\n";
}
