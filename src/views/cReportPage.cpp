// Places of head, plots and table on the page.
#include "views/cReportPage.h"

#include "core/mNumText.h"
#include "views/cReportPlots.h"

#include <algorithm>
#include <set>
#include <utility>

namespace {
constexpr int32_t Ink = 0x302820;
constexpr int32_t SoftInk = 0x75706B;
constexpr int32_t LineInk = 0xC8C0B8;
constexpr int32_t BandInk = 0xF7F4F1;
constexpr int32_t Accent = 0xAD5C0B;
constexpr int32_t Alarm = 0x0000B0;
constexpr int32_t White = 0xFFFFFF;
constexpr double Left = 44, Right = 956, Top = 40, Bottom = 1374;
constexpr int Letters = 12;
constexpr int LineHeight = 18;
constexpr double LeastKey = 61, MostKey = 90; // width of a column
constexpr double BlockGap = 20;
constexpr double MostTable = 500; // of the first page: the plots come first

// The text, cut at its end where it is too wide.
std::string Fitting(const iSurface& Surface, const std::string& Text, int Size, double Width, bool Bold = false)
{
    if (Surface.TextWidth(Text, Size, Bold) <= Width) return Text;
    std::string Part = Text;
    while (!Part.empty() && Surface.TextWidth(Part + "…", Size, Bold) > Width) {
        while (!Part.empty() && (Part.back() & 0xC0) == 0x80)
            Part.pop_back();
        if (!Part.empty()) Part.pop_back();
    }
    return Part + "…";
}

// The words in lines of that width.
std::vector<std::string> Wrapped(const iSurface& Surface, const std::string& Text, int Size, double Width)
{
    std::vector<std::string> Result;
    std::string Line;
    for (std::size_t From = 0; From < Text.size();) {
        const std::size_t End = std::min(Text.find(' ', From), Text.size());
        const std::string Word = Text.substr(From, End - From);
        if (!Line.empty() && Surface.TextWidth(Line + " " + Word, Size) > Width) {
            Result.push_back(Line);
            Line.clear();
        }
        Line += (Line.empty() ? "" : " ") + Word;
        From = End + 1;
    }
    if (!Line.empty()) Result.push_back(Line);
    return Result;
}
} // namespace

cReportPage::cReportPage(cReport InitReport) : Report(std::move(InitReport)), Lines(Report.PrintReport())
{
    std::set<std::string> Others;
    for (const ReportLine& Line : Lines) {
        for (const RowValue& Value : Line.Values)
            Others.insert(Value.Key);
        NameWidth = std::max(NameWidth, 24 + 7.5 * static_cast<double>(Line.ID.size()));
    }
    for (const char* Key : {"MinX", "MaxX", "DelX", "MinY", "MaxY", "DelY"})
        if (Others.erase(Key)) Keys.emplace_back(Key);
    Keys.insert(Keys.end(), Others.begin(), Others.end());
    NameWidth = std::min(NameWidth, 260.0);
    const auto Columns = static_cast<double>(std::max<std::size_t>(Keys.size(), 1));
    Blocks = static_cast<std::size_t>(
        std::max(1.0, (Right - Left + BlockGap) / (NameWidth + LeastKey * Columns + BlockGap)));
    const double Room = (Right - Left + BlockGap) / static_cast<double>(Blocks) - BlockGap - NameWidth;
    KeyWidth = std::min(Room / Columns, MostKey);
    BlockWidth = NameWidth + KeyWidth * Columns;
}

double cReportPage::TableHeight(std::size_t Count) const
{
    return Count == 0 ? 0 : LineHeight * static_cast<double>(Down(Count) + 1) + 14;
}

// Lines of the table on the first page.
std::size_t cReportPage::FirstPart() const
{
    std::size_t Count = Lines.size();
    while (TableHeight(Count) > MostTable)
        --Count;
    return Count;
}

int cReportPage::Pages() const
{
    int Count = 1;
    for (std::size_t Done = FirstPart(); Done < Lines.size(); ++Count) {
        std::size_t Part = Lines.size() - Done;
        while (TableHeight(Part) > Bottom - Top - 60)
            --Part;
        Done += Part;
    }
    return Count;
}

// Gives the place below it.
double cReportPage::DrawHead(iSurface& Surface) const
{
    Surface.SetPen(Accent);
    Surface.SetFill(Accent);
    Surface.Box(Left, Top, Left + 5, Top + 50);
    double Edge = Right;
    for (auto Fact = Report.Facts.rbegin(); Fact != Report.Facts.rend(); ++Fact) {
        const auto& [Label, Value] = *Fact;
        Surface.SetPen(SoftInk);
        Surface.SetFont(11);
        Surface.Text(Edge, Top, Label, eAlign::Right);
        Surface.SetPen(Ink);
        Surface.SetFont(19, true);
        Surface.Text(Edge, Top + 18, Value, eAlign::Right);
        Edge -= std::max(Surface.TextWidth(Label, 11), Surface.TextWidth(Value, 19, true)) + 26;
    }
    Surface.SetFont(26, true);
    Surface.Text(Left + 18, Top - 3, Fitting(Surface, Report.Title, 26, Edge - Left - 30, true));
    Surface.SetPen(SoftInk);
    Surface.SetFont(13);
    Surface.Text(Left + 18, Top + 34, Fitting(Surface, Report.Session, 13, Edge - Left - 30));
    double Y = Top + 62;
    Surface.SetPen(Ink);
    Surface.SetFont(Letters);
    for (const std::string& Text : {Report.Crew, Report.Comment})
        for (const std::string& Line : Wrapped(Surface, Text, Letters, Right - Left)) {
            if (Y > Top + 130) break;
            Surface.Text(Left, Y, Line);
            Y += LineHeight;
        }
    Surface.SetPen(LineInk);
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
    Surface.SetPen(Alarm);
    Surface.SetFont(Letters);
    double Y = NoteTop();
    for (std::size_t i = 0; Y < Bottom - 30; ++i, Y += LineHeight) {
        const bool IsCut = Y + 2 * LineHeight > Bottom - 22 && i + 1 < Report.Notes.size();
        const std::string More =
            FormatNum(static_cast<double>(Report.Notes.size() - i), "0") + " more rows cannot be shown";
        Surface.Text(Left, Y, IsCut ? More : Fitting(Surface, Report.Notes[i], Letters, Right - Left));
    }
}

void cReportPage::DrawFoot(iSurface& Surface, int Page) const
{
    Surface.SetPen(LineInk);
    Surface.Line(Left, Bottom - 12, Right, Bottom - 12);
    Surface.SetPen(SoftInk);
    Surface.SetFont(10);
    Surface.Text(Left, Bottom - 6, "Skarvelin");
    if (Pages() > 1)
        Surface.Text(Right, Bottom - 6, "Page " + FormatNum(Page + 1, "0") + " of " + FormatNum(Pages(), "0"),
                     eAlign::Right);
}

void cReportPage::DrawBlock(iSurface& Surface, std::size_t From, std::size_t To, double X, double Y) const
{
    const auto Column = [&](std::size_t k) { return X + NameWidth + KeyWidth * static_cast<double>(k + 1) - 6; };
    Surface.SetFont(Letters, true);
    Surface.SetPen(SoftInk);
    for (std::size_t k = 0; k < Keys.size(); ++k)
        Surface.Text(Column(k) - 16, Y, Keys[k], eAlign::Right);
    Surface.SetPen(LineInk);
    Surface.Line(X, Y + LineHeight - 2, X + BlockWidth, Y + LineHeight - 2);
    for (std::size_t i = From; i < To; ++i) {
        Y += LineHeight;
        Surface.SetPen(BandInk);
        Surface.SetFill(BandInk);
        if ((i - From) % 2 == 1) Surface.Box(X, Y - 1, X + BlockWidth, Y + LineHeight - 2);
        Surface.SetPen(Ink);
        Surface.SetFont(Letters);
        Surface.Text(X + 6, Y + 1, Fitting(Surface, Lines[i].ID, Letters, NameWidth - 8));
        for (const RowValue& Value : Lines[i].Values) {
            const auto k = static_cast<std::size_t>(std::find(Keys.begin(), Keys.end(), Value.Key) - Keys.begin());
            Surface.SetFont(Letters);
            Surface.SetPen(Ink);
            Surface.Text(Column(k) - 25, Y + 1, ValueText(Value), eAlign::Right);
            Surface.SetFont(10);
            Surface.SetPen(SoftInk);
            Surface.Text(Column(k) - 22, Y + 3, ValueUnit(Lines[i], Value));
        }
    }
}

// Read down each block, then on to the next.
void cReportPage::DrawTable(iSurface& Surface, std::size_t From, std::size_t To, double Y) const
{
    const std::size_t Count = Down(To - From);
    for (std::size_t b = 0; b < Blocks && From + b * Count < To; ++b)
        DrawBlock(Surface, From + b * Count, std::min(To, From + (b + 1) * Count),
                  Left + static_cast<double>(b) * (BlockWidth + BlockGap), Y);
}

void cReportPage::Draw(iSurface& Surface, int Page)
{
    Surface.Clear(White);
    DrawFoot(Surface, Page);
    std::size_t Done = FirstPart();
    if (Page == 0) {
        const double Head = DrawHead(Surface);
        const double Table = NoteTop() - TableHeight(Done);
        DrawNotes(Surface);
        DrawReportPlots(Surface, Report, {Left, Right, Head, Table - 10});
        return DrawTable(Surface, 0, Done, Table);
    }
    for (int Other = 1; Done < Lines.size(); ++Other) {
        std::size_t Part = Lines.size() - Done;
        while (TableHeight(Part) > Bottom - Top - 60)
            --Part;
        if (Other == Page) return DrawTable(Surface, Done, Done + Part, Top);
        Done += Part;
    }
}
