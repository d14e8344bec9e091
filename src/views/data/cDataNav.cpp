// Rows of the stroke table along the strip.
#include "views/data/cDataNav.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "files/mQVN.h"
#include "views/mAxis.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {
constexpr int32_t White = 0xFFFFFF;
constexpr int32_t Ink = 0x403020;
constexpr int32_t GridColour = 0xE8E2DC;
constexpr int32_t SelColour = 0xFFEBD2;
constexpr int32_t RateColour = 0x2020C0;
constexpr int32_t StartColour = 0xA06000;
constexpr int32_t CursorColour = 0x3030D0;
constexpr int32_t SpeedColour = 0xC07000;
constexpr int Letters = 11;
constexpr double SideRoom = 40;
constexpr double TickRoom = 150;
constexpr double MaxRate = 60;
constexpr int RateStep = 20;

int32_t Unit(double X)
{
    constexpr int32_t Far = 100000; // beyond every screen
    return RoundWithin(X, -Far, Far);
}

std::string Minutes(double Seconds)
{
    const double Tenths = RoundHalfEven(Seconds * 10); // before the minutes part: no 60.0 seconds
    return FormatNum(std::trunc(Tenths / 600), "0") + "m " + FormatNum(std::fmod(Tenths, 600) / 10, "0.0") + "s";
}

double MaxSpeed()
{
    double Highest = 0;
    for (const ScanRow& Row : gScanRows)
        Highest = std::max(Highest, Row.Speed);
    return std::ceil(Highest);
}
} // namespace

double cDataNav::RowToX(int Row) const
{
    const double Width = Surface.Size().X - 2 * SideRoom;
    return SideRoom + SafeDiv(Width * (Row - 1), std::max(gScanRows.UBound() - 1, 1));
}

int cDataNav::RowAt(double X) const
{
    const int Rows = gScanRows.UBound();
    if (Rows < 1) return 0;
    const double Width = std::max(Surface.Size().X - 2 * SideRoom, 1.0);
    return RoundWithin(1 + (X - SideRoom) / Width * (Rows - 1), 1, Rows);
}

void cDataNav::Select(double X1, double X2)
{
    FirstRow = RowAt(std::min(X1, X2));
    LastRow = RowAt(std::max(X1, X2));
}

void cDataNav::SetStart()
{
    FirstRow = Cursor;
    if (LastRow <= FirstRow) LastRow = 0;
}

void cDataNav::SetStop()
{
    if (Cursor < 1) return;
    const int From = std::max(FirstRow, 1);
    FirstRow = std::min(From, Cursor);
    LastRow = std::max(From, Cursor);
    if (LastRow == FirstRow) LastRow = 0;
}

void cDataNav::SelectAll()
{
    FirstRow = std::min(1, gScanRows.UBound());
    LastRow = gScanRows.UBound();
}

void cDataNav::Clip()
{
    FirstRow = std::clamp(FirstRow, 0, gScanRows.UBound());
    LastRow = std::clamp(LastRow, 0, gScanRows.UBound());
    Cursor = std::clamp(Cursor, 0, gScanRows.UBound());
}

void cDataNav::DrawScale()
{
    const SurfacePoint Size = Surface.Size();
    Surface.SetFont(Letters);
    for (int Rate = 0; Rate <= MaxRate; Rate += RateStep) {
        const double Y = (Size.Y - 1) * (1 - Rate / MaxRate);
        Surface.SetPen(GridColour);
        Surface.Line(SideRoom, Unit(Y), Size.X - SideRoom, Unit(Y));
        Surface.SetPen(RateColour);
        Surface.Text(SideRoom - 4, std::clamp(Y - Letters / 2.0, 0.0, Size.Y - Letters - 4.0), FormatNum(Rate, "0"),
                     eAlign::Right);
    }
}

// On white, since the curves run through them on a low strip.
void cDataNav::DrawTitles()
{
    constexpr const char* Title = "Rate (1/min)";
    Surface.SetPen(White);
    Surface.SetFill(White);
    Surface.Box(SideRoom + 3, 2, SideRoom + 10 + Surface.TextWidth(Title, Letters, true), Letters + 5);
    Surface.SetFill(NoFill);
    Surface.SetFont(Letters, true);
    Surface.SetPen(RateColour);
    Surface.Text(SideRoom + 6, 2, Title);
    if (MaxSpeed() <= 0) return;
    Surface.SetPen(SpeedColour);
    Surface.Text(Surface.Size().X - 2, 2, "Speed", eAlign::Right);
    Surface.SetFont(Letters);
    Surface.Text(Surface.Size().X - SideRoom + 4, Letters + 5, FormatNum(MaxSpeed(), "0") + " m/s");
}

void cDataNav::Draw()
{
    const SurfacePoint Size = Surface.Size();
    Surface.Clear(White);
    if (HasSelection()) {
        Surface.SetFill(SelColour);
        Surface.SetPen(SelColour);
        Surface.Box(Unit(RowToX(FirstRow)), 0, Unit(RowToX(LastRow)), Size.Y);
        Surface.SetFill(NoFill);
    }
    DrawScale();
    const double Fastest = MaxSpeed();
    std::vector<SurfacePoint> Rates, Speeds;
    for (int Row = 1; Row <= gScanRows.UBound(); ++Row) {
        const double Rate = std::min(gScanRows[Row].Rate / MaxRate, 1.0);
        Rates.push_back({Unit(RowToX(Row)), Unit((Size.Y - 1) * (1 - Rate))});
        if (Fastest > 0)
            Speeds.push_back(
                {Unit(RowToX(Row)), Unit((Size.Y - 1) * (1 - std::max(gScanRows[Row].Speed, 0.0) / Fastest))});
    }
    Surface.SetPen(SpeedColour);
    Surface.Polyline(Speeds);
    Surface.SetPen(RateColour);
    Surface.Polyline(Rates);
    Surface.SetPen(Ink);
    Surface.Line(SideRoom, Size.Y - 1, Size.X - SideRoom, Size.Y - 1);
    DrawTitles();
    DrawRows();
    if (IsOpen()) {
        Surface.SetPen(StartColour, 2);
        Surface.Line(Unit(RowToX(FirstRow)), 0, Unit(RowToX(FirstRow)), Size.Y);
    }
    if (Cursor < 1) return;
    Surface.SetPen(CursorColour);
    Surface.Line(Unit(RowToX(Cursor)), 0, Unit(RowToX(Cursor)), Size.Y);
}

// Numbers and times of strokes along the lower edge.
void cDataNav::DrawRows()
{
    const SurfacePoint Size = Surface.Size();
    const int Rows = gScanRows.UBound();
    Surface.SetPen(Ink);
    Surface.SetFont(Letters);
    for (const double Each : Ticks(0, Rows, std::max(2, static_cast<int>(Size.X / TickRoom)))) {
        const int Row = static_cast<int>(RoundHalfEven(Each));
        if (Row != Each || Row < 1 || RowToX(Row) > Size.X - SideRoom - TickRoom / 2) continue;
        Surface.Line(Unit(RowToX(Row)), Size.Y - 5, Unit(RowToX(Row)), Size.Y - 1);
        Surface.Text(RowToX(Row), Size.Y - Letters - 9,
                     FormatNum(Row, "0") + " (" + Minutes(gScanRows[Row].Time - gScanRows[1].Time) + ")",
                     eAlign::Centre);
    }
}

std::string cDataNav::RowText(int Row)
{
    if (Row < 1 || Row > gScanRows.UBound()) return {};
    const ScanRow& Stroke = gScanRows[Row];
    return "Stroke " + FormatNum(Row, "0") + " at " + Minutes(Stroke.Time - gScanRows[1].Time) +
           "   Rate=" + FormatNum(Stroke.Rate, "0.0") + "   Speed=" + FormatNum(Stroke.Speed, "0.00") +
           "   Distance=" + FormatNum(Stroke.Dist, "0.0");
}

std::string cDataNav::Caption() const
{
    int Count = 0;
    double Rates = 0, Speeds = 0;
    if (IsOpen())
        return "The selection starts at stroke " + FormatNum(FirstRow, "0") +
               " and has no stop yet: click on the strip where it ends and press \"2 Stop\".";
    if (!HasSelection())
        return FormatNum(gScanRows.UBound(), "0") + " strokes. Drag over the strip to select some of them.";
    // A row holds the stroke that ends there, so the first one selected belongs to the time before.
    if (!SumScan(FirstRow + 1, LastRow, Count, Rates, Speeds)) {
        Count = 1;
        Rates = gScanRows[LastRow].Rate;
        Speeds = gScanRows[LastRow].Speed;
    }
    const ScanRow& First = gScanRows[FirstRow];
    const ScanRow& Last = gScanRows[LastRow];
    const double Seconds = Last.Time - First.Time;
    return "Duration=" + Minutes(Seconds) + "   Strokes=" + FormatNum(Count, "0") +
           "   Rate=" + FormatNum(SafeDiv(Rates, Count), "0.0") +
           "   Speed=" + FormatNum(SafeDiv(Speeds, Count), "0.00") +
           "   Distance=" + FormatNum(Last.Dist - First.Dist, "0.0");
}
