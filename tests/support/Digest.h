// Long tables and long lists of drawing calls in a few lines, for golden files.
#pragma once

#include "support/Case.h"

#include <algorithm>
#include <charconv>
#include <map>

/// The parts of a text between separators.
inline Texts PartsOf(const std::string& Text, char Separator)
{
    Texts Parts;
    for (std::size_t From = 0; From <= Text.size();) {
        const std::size_t End = std::min(Text.find(Separator, From), Text.size());
        Parts.push_back(Text.substr(From, End - From));
        From = End + 1;
    }
    return Parts;
}

/// Lines of a text, without their ends.
inline Texts LinesOf(const std::string& Text)
{
    Texts Lines = PartsOf(Text, '\n');
    if (Lines.back().empty()) Lines.pop_back();
    for (std::string& Line : Lines)
        if (Line.ends_with('\r')) Line.pop_back();
    return Lines;
}

/// X with so many digits; what rounding leaves of 0 is 0.
inline std::string Rounded(double X, int Digits)
{
    return FormatGeneral(std::fabs(X) < 1e-9 ? 0 : X, Digits);
}

/// What is left of many cells: the sum of their numbers, plain and weighted by their places, and of their letters.
class CellSums
{
public:
    void Add(std::string_view Cell, double Place)
    {
        double X = 0;
        const auto [End, Error] = std::from_chars(Cell.data(), Cell.data() + Cell.size(), X);
        if (Error == std::errc() && End == Cell.data() + Cell.size() && std::isfinite(X)) {
            ++Count;
            Sum += X;
            Weighted += X * (1 + std::fmod(Place * 7, 10)); // neighbours that changed places are seen
            return;
        }
        for (const char Letter : Cell)
            Letters = (Letters * 31 + static_cast<unsigned char>(Letter)) % 1000003;
    }
    std::string Text() const
    {
        return FormatNum(Count, "0") + " " + Rounded(Sum, 9) + " " + Rounded(Weighted, 9) + " " +
               FormatNum(static_cast<double>(Letters), "0");
    }

private:
    int Count = 0;
    double Sum = 0;
    double Weighted = 0;
    uint64_t Letters = 0;
};

/// A line with many cells as its first ones and the sums of the others.
inline std::string Shortened(const std::string& Line, char Separator)
{
    constexpr std::size_t Plain = 8;
    constexpr std::size_t Many = 200; // letters
    const Texts Cells = PartsOf(Line, Separator);
    if (Line.size() < Many || Cells.size() <= Plain) return Line;
    std::string Text;
    CellSums Rest;
    for (std::size_t i = 0; i < Cells.size(); ++i)
        if (i < Plain)
            Text += Cells[i] + " ";
        else
            Rest.Add(Cells[i], static_cast<double>(i));
    return Text + "... " + Rest.Text();
}

/// Lines as they are when they are few, otherwise the first and the last with the sums of each column between them, of
/// the columns from Wide on together. Lines that begin with different words have their own sums when the first column
/// is a kind.
inline Texts Digest(const Texts& Lines, char Separator, std::size_t Few = 30, std::size_t Wide = 30,
                    bool IsKind = false)
{
    Texts Result;
    if (Lines.size() <= Few) {
        for (const std::string& Line : Lines)
            Result.push_back(Shortened(Line, Separator));
        return Result;
    }
    std::map<std::string, std::vector<CellSums>> Kinds;
    for (std::size_t i = 0; i < Lines.size(); ++i) {
        const Texts Cells = PartsOf(Lines[i], Separator);
        std::vector<CellSums>& Columns = Kinds[IsKind ? Cells[0] : ""];
        if (Columns.size() < Cells.size()) Columns.resize(std::min(Cells.size(), Wide + 1));
        for (std::size_t k = 0; k < Cells.size(); ++k)
            Columns[std::min(k, Wide)].Add(Cells[k], static_cast<double>(k < Wide ? i : i + k));
    }
    Result.push_back(Shortened(Lines.front(), Separator));
    for (const auto& [Kind, Columns] : Kinds)
        for (std::size_t k = 0; k < Columns.size(); ++k)
            Result.push_back("  " + Kind + " " + FormatNum(static_cast<double>(k), "0") + ": " + Columns[k].Text());
    Result.push_back(Shortened(Lines.back(), Separator));
    return Result;
}
