// Drawing of the data view: selection, curves, names and scales of the bands, times, cursor.
#include "views/data/cDataPlot.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "views/mAxis.h"
#include "views/mQuantity.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr int32_t White = 0xFFFFFF;
constexpr int32_t Ink = 0x403020;
constexpr int32_t GridColour = 0xE8E2DC;
constexpr int32_t ZeroColour = 0xC8C0B8;
constexpr int32_t SelColour = 0xFFEBD2; // a light blue under the curves
constexpr int32_t StartColour = 0xA06000;
constexpr int32_t CursorColour = 0x3030D0;
constexpr int NameSize = 11;
constexpr int ScaleSize = 9;
constexpr double LetterMiddle = 0.65; // of a text's size, below its top
constexpr double Slack = 1e-6;        // of a step: times are sums of decimal fractions
constexpr double KeyRoom = 6;         // of the colour key at the axis
constexpr double ValueRoom = 60;      // for a value beside the cursor
constexpr double StartRoom = 120;     // for the words at a start without a stop
constexpr double UnitRoom = 52;       // height from which a band shows its unit
constexpr double NameRoom = 10;       // between the names of low bands
constexpr double ScaleRoom = 34;      // height from which a band shows its scale
constexpr double TimesHeight = 36;    // below the bands
constexpr double TimeRoom = 90;       // between the times below
constexpr int32_t Far = 100000;       // beyond every screen

int32_t Unit(double X)
{
    return RoundWithin(X, -Far, Far);
}

int32_t ColourOf(std::size_t Band)
{
    return PaperInk(gRGB[Band % 8 + 1]);
}
} // namespace

void cDataPlot::SetUpPoly()
{
    const SurfacePoint Size = Surface.Size();
    Height = std::max(Size.Y - TimesHeight, 1.0);
    Range.SetWidth(Size.X);
    Bands.SetUp(Height);
}

std::string cDataPlot::PointerText(double X, double Y) const
{
    const int32_t Sample = Range.RawXtoLog(X);
    const ViewBand* Band = Bands.At(Y);
    if (!Band || X < Range.Margin() || Sample < 0 || Sample > cDataRange::LastSample()) return {};
    return cDataBands::Text(*Band, Sample) + "  at " + FormatNum(gRaw(0, Sample), "0.00") + " s";
}

void cDataPlot::Draw()
{
    Surface.Clear(White);
    Surface.SetFill(NoFill);
    if (Bands.All().empty() || cDataRange::LastSample() < 1) return DrawNothing();
    DrawSelection();
    DrawTimes();
    DrawGrid();
    DrawRawData();
    DrawLabels();
    DrawOpenStart();
    DrawCursor();
}

void cDataPlot::DrawNothing()
{
    Surface.SetPen(Ink);
    Surface.SetFont(NameSize + 2);
    Surface.Text(Surface.Size().X / 2.0, Height / 2,
                 cDataRange::LastSample() < 1
                     ? "There are fewer than two samples. Is the session's logger model that of the recording?"
                     : "No channel is visible: mark some with 1 under Visible in the calibration table.",
                 eAlign::Centre);
}

void cDataPlot::DrawGrid()
{
    const double Right = Surface.Size().X;
    for (const ViewBand& Band : Bands.All()) {
        Surface.SetPen(GridColour);
        Surface.Line(Range.Margin(), Unit(Band.Base), Right, Unit(Band.Base));
        if (Band.Min >= 0 || Band.Max <= 0) continue;
        Surface.SetPen(ZeroColour);
        Surface.Line(Range.Margin(), Unit(Band.Zero), Right, Unit(Band.Zero));
    }
    Surface.SetPen(Ink);
    Surface.Line(Unit(Range.Margin()), 0, Unit(Range.Margin()), Unit(Height));
    Surface.Line(Unit(Range.Margin()), Unit(Height), Right, Unit(Height));
}

void cDataPlot::DrawSelection()
{
    if (!Range.HasSelection()) return;
    const double Right = Surface.Size().X;
    const double From = std::clamp(Range.LogToX(Range.SelStart()), Range.Margin(), Right),
                 To = std::clamp(Range.LogToX(Range.SelStop()), Range.Margin(), Right);
    if (To <= From) return;
    Surface.SetFill(SelColour);
    Surface.SetPen(SelColour);
    Surface.Box(Unit(From), 0, Unit(To), Unit(Height));
    Surface.SetFill(NoFill);
}

// Where a selection starts that has no stop yet.
void cDataPlot::DrawOpenStart()
{
    const double X = Range.LogToX(Range.SelStart());
    if (!Range.IsOpen() || X < Range.Margin() || X > Surface.Size().X) return;
    const bool IsLeft = X > Surface.Size().X - StartRoom;
    Surface.SetPen(StartColour, 2);
    Surface.Line(Unit(X), 0, Unit(X), Unit(Height));
    Surface.SetFont(NameSize, true);
    Surface.Text(Unit(IsLeft ? X - KeyRoom : X + KeyRoom), Height + TimesHeight / 2 + 1, "Start, no stop yet",
                 IsLeft ? eAlign::Right : eAlign::Left);
}

void cDataPlot::DrawRawData()
{
    for (std::size_t k = 0; k < Bands.All().size(); ++k) {
        const ViewBand& Band = Bands.All()[k];
        Surface.SetPen(ColourOf(k));
        if (Band.Kind == ViewBand::eKind::Rate) {
            DrawRateBand(Band);
            continue;
        }
        PolyPts.clear();
        const bool IsDist = Band.Kind == ViewBand::eKind::Dist;
        const std::span<const double> Values =
            IsDist ? std::span<const double>(gDist) : std::as_const(gRaw).Channel(Band.Chan);
        for (int i = 0; i <= cDataRange::Steps; ++i) {
            const int64_t Sample = int64_t{Range.FirstSample} + int64_t{i} * gXScale;
            if (Sample < 1 ||
                Sample >= std::min<int64_t>(cDataRange::LastSample(), static_cast<int64_t>(Values.size())))
                continue;
            const double Value = Values[static_cast<std::size_t>(Sample)];
            PolyPts.push_back({Unit(Range.PointX(i)), Unit(Band.Base - (Value - Band.Min) * Band.Scale)});
        }
        Surface.Polyline(PolyPts);
    }
}

void cDataPlot::DrawRateBand(const ViewBand& Band)
{
    std::vector<SurfacePlace> Places;
    for (const RatePoint& Each : Bands.Rates())
        Places.push_back({Range.LogToX(Each.Sample), Band.Base - Each.Rate * Band.Scale});
    DrawClipped(Surface, {Range.Margin(), static_cast<double>(Surface.Size().X), 0, Height}, Places);
}

// Of low bands, those whose names find room below each other.
std::vector<std::size_t> cDataPlot::LabelledBands() const
{
    std::vector<std::size_t> Chosen;
    double Next = 0;
    for (std::size_t k = 0; k < Bands.All().size(); ++k) {
        if (NameTop(k) < Next) continue;
        Next = NameTop(k) + NameRoom;
        Chosen.push_back(k);
    }
    return Chosen;
}

double cDataPlot::NameTop(std::size_t Band) const
{
    return std::max((Bands.TopOf(Band) + Bands.All()[Band].Base) / 2 - LetterMiddle * NameSize, 0.0);
}

// Names stand in the margin, or at the beginning of the curve where they are too long for it.
void cDataPlot::DrawLabels()
{
    for (std::size_t k = 0; k < Bands.All().size(); ++k) {
        Surface.SetPen(ColourOf(k), 3);
        Surface.Line(Unit(Range.Margin()) - 2, Unit(Bands.TopOf(k)) + 2, Unit(Range.Margin()) - 2,
                     Unit(Bands.All()[k].Base) - 2);
    }
    for (const std::size_t k : LabelledBands()) {
        const ViewBand& Band = Bands.All()[k];
        const std::string Name = cDataBands::Text(Band, -1);
        const double Y = NameTop(k);
        const bool IsShort = Surface.TextWidth(Name, NameSize) <= Range.Margin() - KeyRoom;
        if (!IsShort) {
            Surface.SetPen(White);
            Surface.SetFill(White);
            Surface.Box(Range.Margin() + 2, Unit(Y) + 1,
                        Unit(Range.Margin() + 2 * KeyRoom + Surface.TextWidth(Name, NameSize)), Unit(Y) + NameSize + 2);
            Surface.SetFill(NoFill);
        }
        Surface.SetPen(ColourOf(k));
        Surface.SetFont(NameSize);
        Surface.Text(IsShort ? Range.Margin() - KeyRoom : Range.Margin() + KeyRoom, Y, Name,
                     IsShort ? eAlign::Right : eAlign::Left);
        DrawScale(Band, Bands.TopOf(k));
    }
}

void cDataPlot::DrawScale(const ViewBand& Band, double Top)
{
    if (Band.Base - Top < ScaleRoom) return;
    Surface.SetPen(Ink);
    Surface.SetFont(ScaleSize);
    Surface.Text(Range.Margin() - KeyRoom, Top + 1, FormatGeneral(Band.Max, 5), eAlign::Right);
    Surface.Text(Range.Margin() - KeyRoom, Band.Base - ScaleSize - 3, FormatGeneral(Band.Min, 5), eAlign::Right);
    const std::string Unit = Band.Kind == ViewBand::eKind::Channel ? ChannelUnit(gFile.Calibr[Band.Chan].ParamID) : "";
    if (Band.Base - Top >= UnitRoom)
        Surface.Text(Range.Margin() - KeyRoom, (Top + Band.Base) / 2 + NameSize / 2.0, Unit, eAlign::Right);
}

// Ticks stand where the time passes a whole step, behind a piece that was cut out as well.
void cDataPlot::DrawTimes()
{
    const double Right = Surface.Size().X;
    const int32_t First = std::max(Range.FirstSample, 0);
    const int32_t Last = std::min<int32_t>(cDataRange::LastSample(), First + cDataRange::Steps * gXScale);
    if (Last <= First) return;
    const double Step = NiceStep(gRaw(0, Last) - gRaw(0, First), std::max(2, static_cast<int>(Right / TimeRoom)));
    double Passed = std::ceil(gRaw(0, First) / Step - Slack) - 1;
    double Free = 0;
    Surface.SetFont(NameSize);
    for (int32_t Sample = First; Sample <= Last; Sample += gXScale) {
        const double Whole = std::floor(gRaw(0, Sample) / Step + Slack);
        const double X = Range.LogToX(Sample);
        if (Whole > Passed && X >= Free) {
            Surface.SetPen(GridColour);
            Surface.Line(Unit(X), 0, Unit(X), Unit(Height));
            Surface.SetPen(Ink);
            Surface.Line(Unit(X), Unit(Height), Unit(X), Unit(Height + 4));
            const eAlign Align = X > Right - TimeRoom / 2 ? eAlign::Right : eAlign::Centre;
            Surface.Text(X, Height + 6, TickText(Whole * Step, Step) + (Free == 0 ? " s" : ""), Align);
            Free = X + TimeRoom / 2;
        }
        Passed = std::max(Passed, Whole);
    }
}

// With the values at it, beside the bands that have their names shown.
void cDataPlot::DrawCursor()
{
    const double X = Range.LogToX(Range.Cursor);
    if (Range.Cursor < 0 || Range.Cursor > cDataRange::LastSample() || X < Range.Margin() || X > Surface.Size().X)
        return;
    Surface.SetPen(CursorColour);
    Surface.Line(Unit(X), 0, Unit(X), Unit(Height));
    const bool IsLeft = X > Surface.Size().X - ValueRoom;
    Surface.SetFont(NameSize);
    Surface.SetFill(White);
    for (const std::size_t k : LabelledBands()) {
        if (Bands.All()[k].Kind != ViewBand::eKind::Channel) continue;
        const std::string Value = FormatGeneral(gRaw(Bands.All()[k].Chan, Range.Cursor), 5);
        const double Width = Surface.TextWidth(Value, NameSize);
        const double Left = Unit(IsLeft ? X - KeyRoom - Width : X + KeyRoom);
        Surface.SetPen(White);
        Surface.Box(Left - 2, Unit(NameTop(k)) + 1, Unit(Left + Width) + 2, Unit(NameTop(k)) + NameSize);
        Surface.SetPen(CursorColour);
        Surface.Text(Left, NameTop(k), Value);
    }
    Surface.SetFill(NoFill);
}
