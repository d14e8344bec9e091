// Comma-separated tables as RFC 4180 describes them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A record of a table, with the line of the text that it begins in, from 1.
struct CsvRecord
{
    int Line = 0;
    std::vector<std::string> Cells;
};

/// Appends a record, in quotes the cells that need them, and CR LF.
void AppendCsv(std::string& Text, const std::vector<std::string>& Cells);

/// Cuts Text into records, lines without anything left out. LF alone ends a line too. Gives an empty text, or what is
/// wrong and in which line: a quote that is not closed, or one within a cell that does not begin with it.
std::string ParseCsv(std::string_view Text, std::vector<CsvRecord>& Records);
