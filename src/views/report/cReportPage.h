// The printed report: a head, the plots, the table of functions, on as many pages of A4 as the table needs.
#pragma once

#include "views/report/cReportTable.h"

class cReportPage
{
public:
    /// Size of a page in drawing units.
    static constexpr SurfacePoint PageSize{1000, 1414};

    explicit cReportPage(cReport InitReport);

    /// Number of pages, at least one.
    int Pages() const { return static_cast<int>(Ends.size()); }

    /// Draws a page, 0 the first.
    void Draw(iSurface& Surface, int Page);

private:
    double DrawHead(iSurface& Surface) const;
    double DrawFacts(iSurface& Surface) const;
    double DrawWords(iSurface& Surface, const char* Label, const std::string& Text, double Top) const;
    void DrawNotes(iSurface& Surface) const;
    void DrawFoot(iSurface& Surface, int Page) const;
    double NoteTop() const;

    cReport Report; // scaled to the page
    cReportTable Table;
    std::vector<std::size_t> Ends; // the table's line up to which each page goes
};
