// Grounds, inks and marks.
#include "live/coach/fCoachCell.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr double MarkShare = 0.56; // of the letters' height, the mark's diameter
constexpr double GapShare = 0.26;  // beside the mark, and at the right edge
constexpr double RimShare = 0.13;  // of the mark's diameter
constexpr int FullCircle = 5760;   // as the toolkit counts angles

const QColor PlainGround(255, 255, 255);
const QColor MissingGround(214, 219, 224);
const QColor StaleGround(208, 213, 218);
const QColor StaleInk(104, 112, 120);

struct Colours
{
    QColor Ground;
    QColor Ink;
};
const std::array<Colours, 3> VerdictColours = {{{QColor(0, 255, 0), QColor(0, 0, 0)},
                                                {QColor(0, 0, 255), QColor(255, 255, 255)},
                                                {QColor(255, 0, 0), QColor(255, 255, 255)}}};

const Colours& ColoursOf(eVerdict Verdict)
{
    return VerdictColours[static_cast<std::size_t>(Verdict)];
}

// A quarter turn begins at the right; the half disc is filled on its left side.
void DrawMark(QPainter& Painter, const QRectF& Place, eVerdict Verdict, const QColor& Ink)
{
    const double Rim = RimShare * Place.width();
    const QRectF Ring = Place.adjusted(Rim / 2, Rim / 2, -Rim / 2, -Rim / 2);
    Painter.setPen(QPen(Ink, Rim));
    Painter.setBrush(Verdict == eVerdict::Green ? QBrush(Ink) : QBrush(Qt::NoBrush));
    Painter.drawEllipse(Ring);
    if (Verdict != eVerdict::Blue) return;
    Painter.setBrush(Ink);
    Painter.drawPie(Ring, FullCircle / 4, FullCircle / 2);
}
} // namespace

fCoachCell::fCoachCell(QWidget* Parent) : QLabel(Parent)
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setTextFormat(Qt::PlainText);
    setIndent(0);
}

void fCoachCell::Put(const CoachCell& NewCell, const QString& Text)
{
    Held = NewCell;
    setText(Text);
    update();
}

// The margins hold the mark, so that the label knows the room that it needs.
void fCoachCell::SetPixels(int Pixels, eMark NewMark)
{
    Mark = NewMark;
    QFont Letters = font();
    Letters.setBold(true);
    Letters.setPixelSize(Pixels);
    setFont(Letters);
    const int Gap = static_cast<int>(GapShare * Pixels);
    const int Room = static_cast<int>((MarkShare + 1.5 * GapShare) * Pixels);
    setContentsMargins(Mark == eMark::Beside ? Room : Gap, Mark == eMark::Above ? Room : 0, Gap,
                       Mark == eMark::Above ? Gap : 0);
}

QSizeF fCoachCell::NeedOf(const QFont& Letters, const QString& Text, eMark Mark)
{
    constexpr int Pixels = 100;
    QFont Large = Letters;
    Large.setBold(true);
    Large.setPixelSize(Pixels);
    const QFontMetricsF Metrics(Large);
    constexpr double Room = MarkShare + 2.5 * GapShare;
    const QSizeF Need(Metrics.horizontalAdvance(Text) / Pixels, Metrics.height() / Pixels);
    return Need + (Mark == eMark::Beside ? QSizeF(Room, 0) : QSizeF(2 * GapShare, Room));
}

QColor fCoachCell::Ground() const
{
    if (Held.IsMissing) return MissingGround;
    if (!Held.HasValue) return PlainGround;
    if (IsGrey()) return StaleGround;
    return Held.Verdict ? ColoursOf(*Held.Verdict).Ground : PlainGround;
}

QColor fCoachCell::Ink() const
{
    if (IsGrey()) return StaleInk;
    return Held.Verdict ? ColoursOf(*Held.Verdict).Ink : palette().color(QPalette::WindowText);
}

void fCoachCell::paintEvent(QPaintEvent*)
{
    QPainter Painter(this);
    Painter.setRenderHint(QPainter::Antialiasing);
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(Ground());
    Painter.drawRoundedRect(rect(), 3, 3);
    if (!Held.HasValue) return;
    const int Pixels = font().pixelSize();
    const double Size = MarkShare * Pixels;
    QRectF Place = contentsRect();
    QPointF Corner(GapShare * Pixels, (height() - Size) / 2);
    if (Mark == eMark::Above) { // close to its value, however high the cell is
        const double Spare = std::max(0.0, (Place.height() - QFontMetricsF(font()).height()) / 2);
        Place.adjust(0, Spare, 0, -Spare);
        Corner = QPointF((width() - Size) / 2, GapShare * Pixels + Spare);
    }
    if (Held.Verdict) DrawMark(Painter, {Corner, QSizeF(Size, Size)}, *Held.Verdict, Ink());
    Painter.setPen(Ink());
    Painter.setFont(font());
    Painter.drawText(Place, static_cast<int>(alignment()), text());
}
