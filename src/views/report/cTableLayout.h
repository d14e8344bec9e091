// Where the blocks of a report's table begin and end: the lowest table whose blocks find room side by side.
#pragma once

#include "views/report/cReport.h"

#include <cstddef>
#include <span>
#include <vector>

inline constexpr double TableLeastKey = 58;   // width of a column
inline constexpr double TableLeastGap = 24;   // between blocks
inline constexpr double TableLineHeight = 18; // of a line
inline constexpr double TableHeadHeight = 34; // above the lines: the quantities and the names of the functions

/// Lines below each other, From up to, but not including, To.
struct TablePart
{
    std::size_t From = 0;
    std::size_t To = 0;

    std::size_t Count() const { return To - From; }
};

class cTableLayout
{
public:
    explicit cTableLayout(std::span<const ReportLine> Lines);

    /// The blocks of the lines From up to, but not including, To in a table of that width. Alike lines are parted where
    /// that makes the table lower by more than two lines.
    std::vector<TablePart> Parts(std::size_t From, std::size_t To, double Width) const;

    /// Height of these lines; 0 for none.
    double Height(std::size_t From, std::size_t To, double Width) const;

    /// The line up to which the lines from From on fit into Room.
    std::size_t EndFor(std::size_t From, double Width, double Room) const;

    /// Width of the names of a block.
    double NameWidth(const TablePart& Part) const;

private:
    // What a line needs.
    struct Need
    {
        double NameWidth = 0;
        std::vector<std::size_t> Columns; // numbers of its functions' keys, each once
        std::size_t RunStart = 0;         // the first of the alike lines that it belongs to
    };

    bool IsAlikeBefore(std::size_t Line) const { return Needs[Line].RunStart < Line; }
    std::size_t CountColumns(const TablePart& Part) const;
    bool HaveRoom(std::span<const TablePart> Parts, double Width) const;
    std::vector<TablePart> Split(std::size_t From, std::size_t To, std::size_t Blocks, std::size_t Most) const;
    std::size_t Cost(std::span<const TablePart> Parts) const;
    std::size_t MostBlocksIn(double Width) const;

    std::vector<Need> Needs;
    std::size_t Keys = 0;         // number of different keys
    std::size_t LeastColumns = 0; // of any line
};
