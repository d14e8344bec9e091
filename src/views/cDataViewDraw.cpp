// Drawing of the data view: selection, curves, names and scales of the bands, times, cursor.
#include "core/mError.h"
#include "core/mGlobData.h"
#include "core/mNumText.h"
#include "core/mSettings.h"
#include "views/cDataView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr int32_t White = 0xFFFFFF;
constexpr int32_t Ink = 0x403020;
constexpr int32_t GridColour = 0xE8E2DC;
constexpr int32_t ZeroColour = 0xC8C0B8;
constexpr int32_t SelColour = 0xFFEBD2; // a light blue under the curves
constexpr int32_t CursorColour = 0x3030D0;
constexpr int NameSize = 11;
constexpr int ScaleSize = 9;
constexpr double NameRoom = 12;  // between the names of low bands
constexpr double ScaleRoom = 34; // height from which a band shows its scale
constexpr double TimeRoom = 90;  // between the times below
constexpr double Far = 100000;   // beyond every screen

int32_t Unit(double X)
{
    return static_cast<int32_t>(RoundHalfEven(std::clamp(X, -Far, Far)));
}

int32_t ColourOf(std::size_t Band)
{
    return gRGB[Band % 8 + 1];
}
} // namespace

void cDataView::Draw()
{
    Surface.Clear(White);
    Surface.SetFill(NoFill);
    DrawSelection();
    DrawGrid();
    DrawTimes();
    DrawRawData();
    DrawLabels();
    DrawCursor();
}

void cDataView::DrawGrid()
{
    const double Right = Surface.Size().X;
    for (const ViewBand& Band : BandArr) {
        Surface.SetPen(GridColour);
        Surface.Line(MarginX, Unit(Band.Base), Right, Unit(Band.Base));
        if (Band.Min >= 0 || Band.Max <= 0) continue;
        Surface.SetPen(ZeroColour);
        Surface.Line(MarginX, Unit(Band.Zero), Right, Unit(Band.Zero));
    }
    Surface.SetPen(Ink);
    Surface.Line(Unit(MarginX), 0, Unit(MarginX), Unit(Height));
    Surface.Line(Unit(MarginX), Unit(Height), Right, Unit(Height));
}

void cDataView::DrawSelection()
{
    if (!HasSelection()) return;
    const double Right = Surface.Size().X;
    const double From = std::clamp(LogToX(SelStart), MarginX, Right), To = std::clamp(LogToX(SelStop), MarginX, Right);
    if (To <= From) return;
    Surface.SetFill(SelColour);
    Surface.SetPen(SelColour);
    Surface.Box(Unit(From), 0, Unit(To), Unit(Height));
    Surface.SetFill(NoFill);
}

void cDataView::DrawRawData()
{
    for (std::size_t k = 0; k < BandArr.size(); ++k) {
        const ViewBand& Band = BandArr[k];
        Surface.SetPen(ColourOf(k));
        if (Band.Kind == ViewBand::eKind::Rate) {
            DrawRateBand(Band);
            continue;
        }
        PolyPts.clear();
        const bool IsDist = Band.Kind == ViewBand::eKind::Dist;
        const std::span<const double> Values =
            IsDist ? std::span<const double>(gDist) : std::as_const(gRaw).Channel(Band.Chan);
        for (int i = 0; i <= Steps; ++i) {
            const int64_t Sample = int64_t{FirstSample} + int64_t{i} * gXScale;
            if (Sample < 1 || Sample >= std::min<int64_t>(LastSample(), static_cast<int64_t>(Values.size()))) continue;
            const double Value = Values[static_cast<std::size_t>(Sample)];
            PolyPts.push_back(
                {Unit(MarginX + std::trunc(i * StepX)), Unit(Band.Base - (Value - Band.Min) * Band.Scale)});
        }
        Surface.Polyline(PolyPts);
    }
}

void cDataView::DrawRateBand(const ViewBand& Band)
{
    PolyPts.clear();
    for (const RatePoint& Each : RateArr)
        PolyPts.push_back({Unit(LogToX(Each.Sample)), Unit(Band.Base - Each.Rate * Band.Scale)});
    Surface.Polyline(PolyPts);
}

// Names stand in their bands, limits at their left ends where there is room for them.
void cDataView::DrawLabels()
{
    double Next = 0;
    for (std::size_t k = 0; k < BandArr.size(); ++k) {
        const ViewBand& Band = BandArr[k];
        const double Top = k == 0 ? 0 : BandArr[k - 1].Base;
        if (Top < Next) continue;
        Next = Top + NameRoom;
        Surface.SetPen(ColourOf(k));
        Surface.SetFont(NameSize, true);
        Surface.Text(MarginX + 4, Top, BandText(Band, -1));
        if (Band.Base - Top < ScaleRoom) continue;
        Surface.SetPen(Ink);
        Surface.SetFont(ScaleSize);
        Surface.Text(MarginX - 3, Top + 1, FormatGeneral(Band.Max, 4), eAlign::Right);
        Surface.Text(MarginX - 3, Band.Base - ScaleSize - 3, FormatGeneral(Band.Min, 4), eAlign::Right);
    }
}

void cDataView::DrawTimes()
{
    const double Width = Surface.Size().X - MarginX;
    const int Count = std::max(2, static_cast<int>(Width / TimeRoom));
    Surface.SetFont(NameSize);
    Surface.SetPen(Ink);
    for (int i = 0; i <= Count; ++i) {
        const double X = MarginX + std::trunc(static_cast<double>(i) * Steps / Count) * StepX;
        const int32_t Sample = RawXtoLog(X + StepX / 2);
        if (Sample < 0 || Sample > LastSample()) break;
        Surface.Line(Unit(X), Unit(Height), Unit(X), Unit(Height + 4));
        const eAlign Align = i == 0 ? eAlign::Left : i == Count ? eAlign::Right : eAlign::Centre;
        Surface.Text(X, Height + 6, FormatNum(gRaw(0, Sample), "0.0") + (i == 0 ? " s" : ""), Align);
    }
}

void cDataView::DrawCursor()
{
    const double X = LogToX(Cursor);
    if (Cursor < 0 || X < MarginX || X > Surface.Size().X) return;
    Surface.SetPen(CursorColour);
    Surface.Line(Unit(X), 0, Unit(X), Unit(Height));
}
