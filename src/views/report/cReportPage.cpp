// Places of head, plots and table on the page.
#include "views/report/cReportPage.h"

#include "base/mNumText.h"
#include "views/report/cReportPlots.h"
#include "views/report/mPageText.h"

#include <algorithm>
#include <utility>

namespace {
constexpr double Left = 44, Right = 956, Top = 40, Bottom = 1374;
constexpr int TitleLetters = 26;
constexpr int FactLetters = 19;
constexpr int SessionLetters = 13;
constexpr int Letters = 12;
constexpr int SmallLetters = 10;
constexpr int LineHeight = 18;
constexpr double LabelRoom = 66;  // left of the words of the head
constexpr double MostTable = 500; // of the first page: the plots come first
constexpr double TableGap = 16;   // above and below the table
} // namespace

cReportPage::cReportPage(cReport InitReport) : Report(std::move(InitReport)), Table(Report.PrintReport())
{
    Ends.push_back(Table.EndFor(0, Right - Left, MostTable));
    while (Ends.back() < Table.Count())
        Ends.push_back(Table.EndFor(Ends.back(), Right - Left, Bottom - Top - 60));
}

// Gives their left edge.
double cReportPage::DrawFacts(iSurface& Surface) const
{
    double Edge = Right;
    for (auto Fact = Report.Facts.rbegin(); Fact != Report.Facts.rend(); ++Fact) {
        const auto& [Label, Value] = *Fact;
        Surface.SetPen(InkSoft);
        Surface.SetFont(11);
        Surface.Text(Edge, Top, Label, eAlign::Right);
        Surface.SetPen(InkText);
        Surface.SetFont(FactLetters, true);
        Surface.Text(Edge, Top + 18, Value, eAlign::Right);
        Edge -= std::max(Surface.TextWidth(Label, 11), Surface.TextWidth(Value, FactLetters, true)) + 26;
    }
    return Edge;
}

// Gives the place below them.
double cReportPage::DrawWords(iSurface& Surface, const char* Label, const std::string& Text, double Y) const
{
    constexpr std::size_t MostLines = 3;
    if (Text.empty()) return Y;
    Surface.SetFont(Letters);
    Surface.SetPen(InkSoft);
    Surface.Text(Left, Y, Label);
    Surface.SetPen(InkText);
    for (const std::string& Line : Wrapped(Surface, Text, Letters, Right - Left - LabelRoom, MostLines)) {
        Surface.Text(Left + LabelRoom, Y, Line);
        Y += LineHeight;
    }
    return Y;
}

// Gives the place below it.
double cReportPage::DrawHead(iSurface& Surface) const
{
    const double Room = DrawFacts(Surface) - Left - 30;
    Surface.SetFont(TitleLetters, true);
    Surface.SetPen(InkText);
    Surface.Text(Left + 18, Top - 3, Fitting(Surface, Report.Title, TitleLetters, Room, true));
    Surface.SetPen(InkSoft);
    Surface.SetFont(SessionLetters);
    double Y = Top + 34;
    for (const std::string& Line : Wrapped(Surface, Report.Session, SessionLetters, Room, 2)) {
        Surface.Text(Left + 18, Y, Line);
        Y += LineHeight;
    }
    Y = std::max(Y, Top + 52);
    Surface.SetPen(InkAccent);
    Surface.SetFill(InkAccent);
    Surface.Box(Left, Top, Left + 5, Y - 2);
    Y = DrawWords(Surface, "Crew", Report.Crew, Y + 10);
    Y = DrawWords(Surface, "Comment", Report.Comment, Y);
    Surface.SetPen(InkLine);
    Surface.Line(Left, Y + 5, Right, Y + 5);
    return Y + 12;
}

double cReportPage::NoteTop() const
{
    constexpr std::size_t MostNotes = 4;
    return Bottom - 22 - LineHeight * static_cast<double>(std::min(Report.Notes.size(), MostNotes));
}

void cReportPage::DrawNotes(iSurface& Surface) const
{
    Surface.SetPen(InkAlarm);
    Surface.SetFont(Letters);
    double Y = NoteTop();
    for (std::size_t i = 0; Y < Bottom - 30; ++i, Y += LineHeight) {
        const bool IsCut = Y + 2 * LineHeight > Bottom - 22 && i + 1 < Report.Notes.size();
        const std::string More =
            "There are " + FormatNum(static_cast<double>(Report.Notes.size() - i), "0") + " more notes like these";
        Surface.Text(Left, Y, IsCut ? More : Fitting(Surface, Report.Notes[i], Letters, Right - Left));
    }
}

void cReportPage::DrawFoot(iSurface& Surface, int Page) const
{
    Surface.SetPen(InkLine);
    Surface.Line(Left, Bottom - 12, Right, Bottom - 12);
    Surface.SetPen(InkSoft);
    Surface.SetFont(SmallLetters);
    Surface.Text(Left, Bottom - 6, "Skarvelin");
    if (Pages() == 1) return;
    const std::string Number = "Page " + FormatNum(Page + 1, "0") + " of " + FormatNum(Pages(), "0");
    Surface.Text(Right, Bottom - 6, Number, eAlign::Right);
    if (Page == 0) return;
    Surface.Text((Left + Right) / 2, Bottom - 6,
                 Fitting(Surface, Report.Title + "  ·  " + Report.Session, SmallLetters, 0.75 * (Right - Left)),
                 eAlign::Centre);
}

void cReportPage::Draw(iSurface& Surface, int Page)
{
    Surface.Clear(InkWhite);
    DrawFoot(Surface, Page);
    const std::size_t To = Ends[static_cast<std::size_t>(Page)];
    if (Page > 0) return Table.Draw(Surface, Ends[static_cast<std::size_t>(Page) - 1], To, {Left, Right, Top, Bottom});
    const double Head = DrawHead(Surface);
    const double Below = NoteTop() - TableGap;
    const double TableTop = Below - Table.Height(0, To, Right - Left);
    DrawNotes(Surface);
    DrawReportPlots(Surface, Report, {Left, Right, Head, To == 0 ? Below : TableTop - TableGap});
    Table.Draw(Surface, 0, To, {Left, Right, TableTop, Below});
}
