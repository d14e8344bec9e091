// The printed report: a head, the plots, the table of functions, on as many pages of A4 as the table needs.
#pragma once

#include "views/cReport.h"

class cReportPage
{
public:
    /// Size of a page in drawing units.
    static constexpr SurfacePoint PageSize{1000, 1414};

    explicit cReportPage(cReport InitReport);

    /// Number of pages, at least one.
    int Pages() const;

    /// Draws a page, 0 the first.
    void Draw(iSurface& Surface, int Page);

private:
    double DrawHead(iSurface& Surface) const;
    void DrawNotes(iSurface& Surface) const;
    void DrawFoot(iSurface& Surface, int Page) const;
    void DrawTable(iSurface& Surface, std::size_t From, std::size_t To, double Top) const;
    void DrawBlock(iSurface& Surface, std::size_t From, std::size_t To, double Left, double Top) const;
    double NoteTop() const;
    std::size_t Down(std::size_t Count) const { return (Count + Blocks - 1) / Blocks; } // lines of a block
    double TableHeight(std::size_t Count) const;
    std::size_t FirstPart() const;

    cReport Report; // scaled to the page
    std::vector<ReportLine> Lines;
    std::vector<std::string> Keys; // the table's columns
    double NameWidth = 0;
    double KeyWidth = 0;
    double BlockWidth = 0;
    std::size_t Blocks = 1; // side by side
};
