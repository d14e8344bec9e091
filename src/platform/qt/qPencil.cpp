// Lines, shapes and texts on a painter.
#include "platform/qt/qPencil.h"

#include "platform/qt/qColour.h"
#include "platform/qt/qText.h"

#include <QFontMetricsF>

#include <algorithm>
#include <array>

namespace {
QRectF Around(QPointF A, QPointF B)
{
    return QRectF(A, B).normalized();
}

QFont Sized(QFont Letters, int Size, bool Bold)
{
    Letters.setPixelSize(std::max(Size, 1));
    Letters.setBold(Bold);
    return Letters;
}
} // namespace

qPencil::qPencil(const QFont& Family) : Pen(Qt::black, 1), Fill(Qt::NoBrush), Letters(Family)
{
    Pen.setCapStyle(Qt::RoundCap);
    Pen.setJoinStyle(Qt::MiterJoin);
}

void qPencil::Take(QPainter& On) const
{
    On.setPen(Pen);
    On.setBrush(Fill);
    On.setFont(Letters);
}

void qPencil::SetPen(QPainter& On, int32_t Colour, int Width)
{
    Pen.setColor(ToQColor(Colour));
    Pen.setWidth(std::max(Width, 1));
    if (On.isActive()) On.setPen(Pen);
}

void qPencil::SetFill(QPainter& On, int32_t Colour)
{
    Fill = Colour == NoFill ? QBrush(Qt::NoBrush) : QBrush(ToQColor(Colour));
    if (On.isActive()) On.setBrush(Fill);
}

void qPencil::SetFont(QPainter& On, int Size, bool Bold)
{
    Letters = Sized(Letters, Size, Bold);
    if (On.isActive()) On.setFont(Letters);
}

QRectF qPencil::Line(QPainter& On, double X1, double Y1, double X2, double Y2) const
{
    // Upright and level lines are sharp as they are; smoothing would blur them.
    On.setRenderHint(QPainter::Antialiasing, X1 != X2 && Y1 != Y2);
    On.drawLine(QPointF(X1, Y1), QPointF(X2, Y2));
    return Around({X1, Y1}, {X2, Y2});
}

QRectF qPencil::Polyline(QPainter& On, std::span<const SurfacePoint> Points) const
{
    static_assert(sizeof(QPoint) == sizeof(SurfacePoint));
    if (Points.empty()) return {};
    On.setRenderHint(QPainter::Antialiasing, false);
    QRect Place(Points[0].X, Points[0].Y, 1, 1);
    std::array<QPoint, 256> Part;
    for (std::size_t From = 0; From + 1 < Points.size(); From += Part.size() - 1) {
        const std::size_t Count = std::min(Part.size(), Points.size() - From);
        for (std::size_t i = 0; i < Count; ++i) {
            Part[i] = {Points[From + i].X, Points[From + i].Y};
            Place |= QRect(Part[i], QSize(1, 1));
        }
        On.drawPolyline(Part.data(), static_cast<int>(Count));
    }
    return Place;
}

QRectF qPencil::Curve(QPainter& On, std::span<const SurfacePlace> Places) const
{
    QPolygonF Corners;
    for (const SurfacePlace& Each : Places)
        Corners << QPointF(Each.X, Each.Y);
    QPen Round = Pen;
    Round.setJoinStyle(Qt::RoundJoin);
    On.setRenderHint(QPainter::Antialiasing);
    On.setPen(Round);
    On.drawPolyline(Corners);
    On.setPen(Pen);
    On.setRenderHint(QPainter::Antialiasing, false);
    return Corners.boundingRect();
}

QRectF qPencil::Point(QPainter& On, double X, double Y) const
{
    // A square: round dots are drawn ten times slower, and a report has a million of them.
    const double Width = Pen.widthF();
    const QRectF Place(X - Width / 2, Y - Width / 2, Width, Width);
    On.fillRect(Place, Pen.color());
    return Place;
}

QRectF qPencil::Circle(QPainter& On, double X, double Y, double Radius) const
{
    On.setRenderHint(QPainter::Antialiasing);
    On.drawEllipse(QPointF(X, Y), Radius, Radius);
    On.setRenderHint(QPainter::Antialiasing, false);
    return {X - Radius, Y - Radius, 2 * Radius, 2 * Radius};
}

QRectF qPencil::Box(QPainter& On, double X1, double Y1, double X2, double Y2) const
{
    On.drawRect(Around({X1, Y1}, {X2, Y2}));
    return Around({X1, Y1}, {X2, Y2});
}

QRectF qPencil::Text(QPainter& On, double X, double Y, const std::string& Text, eAlign Align) const
{
    const QString Words = Shown(Text);
    const QFontMetricsF Metrics(Letters, On.device());
    const double Width = Metrics.horizontalAdvance(Words);
    const double Left = Align == eAlign::Left ? X : Align == eAlign::Right ? X - Width : X - Width / 2;
    On.drawText(QPointF(Left, Y + Metrics.ascent()), Words);
    return {Left, Y, Width, Metrics.height()};
}

double qPencil::TextWidth(const std::string& Text, int Size, bool Bold) const
{
    return QFontMetricsF(Sized(Letters, Size, Bold)).horizontalAdvance(Shown(Text));
}
