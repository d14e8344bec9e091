// The table of a report's functions: a line for each row, in blocks side by side, each with the columns that it needs.
#pragma once

#include "views/report/cTableLayout.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class cReportTable
{
public:
    explicit cReportTable(std::vector<ReportLine> InitLines) : Lines(std::move(InitLines)), Layout(Lines) {}

    /// Number of lines.
    std::size_t Count() const { return Lines.size(); }

    /// Height of the lines From up to, but not including, To in a table of that width; 0 for none.
    double Height(std::size_t From, std::size_t To, double Width) const { return Layout.Height(From, To, Width); }

    /// The line up to which the lines from From on fit into Room.
    std::size_t EndFor(std::size_t From, double Width, double Room) const { return Layout.EndFor(From, Width, Room); }

    /// Draws the lines From up to, but not including, To across the width of Place, from its top on.
    void Draw(iSurface& Surface, std::size_t From, std::size_t To, const PlotRect& Place) const;

private:
    struct Column
    {
        std::string Key;  // of the function
        std::string Head; // what stands above
        bool HasUnits;    // each value has its own beside it
    };

    struct Block
    {
        TablePart Part;
        std::vector<Column> Columns;
        std::optional<Quantity> X; // what the columns of an axis have in common, nothing without such columns
        std::optional<Quantity> Y;
        double NameWidth = 0;

        std::size_t ColumnOf(const std::string& Key) const;
    };

    Block MakeBlock(const TablePart& Part) const;
    void DrawSpan(iSurface& Surface, const Block& Each, char Axis, double First, double KeyWidth, double Top) const;
    void DrawHead(iSurface& Surface, const Block& Each, double Left, double KeyWidth, double Top) const;
    void DrawLine(iSurface& Surface, const Block& Each, const ReportLine& Line, double Left, double KeyWidth,
                  double Y) const;
    void DrawBlock(iSurface& Surface, const Block& Each, double Left, double KeyWidth, double Top) const;

    std::vector<ReportLine> Lines;
    cTableLayout Layout;
};
