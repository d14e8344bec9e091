// The retained picture and its way to the screen.
#include "platform/qt/qSurface.h"

#include "platform/qt/qColour.h"
#include "platform/qt/qText.h"

#include <QPaintEvent>

#include <cmath>
#include <cstring>
#include <new>
#include <utility>

namespace {
const QColor Veil(243, 245, 247, 150);

// Changed places nearer than this to each other, in drawing units, are shown as one; and no more than so many.
constexpr int Reach = 4;
constexpr std::size_t MostPlaces = 64;

constexpr double MostRing = 24; // radius of a ring that is kept, in drawing units
constexpr std::size_t MostRings = 64;

QRectF Around(QPointF A, QPointF B)
{
    return QRectF(A, B).normalized();
}
} // namespace

qSurface::qSurface(QWidget* Parent)
    : QWidget(Parent), Pencil(font()), Look([this](eNotice What) {
          if (What == eNotice::LookChanged && !Picture.isNull()) Renew();
      }),
      Refresh([this] { ShowDirty(); })
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(160, 120);
}

qSurface::~qSurface()
{
    if (Painter.isActive()) Painter.end();
}

SurfacePoint qSurface::Size() const
{
    return {width(), height()};
}

void qSurface::Renew()
{
    if (Painter.isActive()) Painter.end();
    const double Ratio = devicePixelRatioF();
    Picture = QImage((QSizeF(size()) * Ratio).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
    if (Picture.isNull()) throw std::bad_alloc(); // drawing on it would begin by renewing it, for ever
    Picture.setDevicePixelRatio(Ratio);
    Picture.fill(Qt::white);
    Rings.clear();
    Ground = Picture;
    FitBackground();
    update();
    if (OnResize) OnResize();
}

QPainter& qSurface::Brush()
{
    if (Picture.isNull()) Renew();
    if (!Painter.isActive()) {
        Painter.begin(&Picture);
        // Through the middle of a unit, so that a line of width 1 covers that unit at every density.
        Painter.translate(0.5, 0.5);
        Pencil.Take(Painter);
    }
    return Painter;
}

// The line's width and half a pixel of rounding stand out on every side. What has no place, as a curve through values
// that are no numbers, may have touched anything.
void qSurface::Changed(const QRectF& Place)
{
    const double Margin = std::ceil(Pencil.PenWidth()) + 1;
    const bool IsFinite = std::isfinite(Place.x() + Place.y() + Place.width() + Place.height());
    const QRectF Seen = Place.adjusted(-Margin, -Margin, Margin, Margin) & QRectF(rect());
    AddDirty(IsFinite ? Seen.toAlignedRect() : rect());
    Refresh.Ask();
}

// The places stay apart, since the ends of many curves are far from each other: what lies between them need not go to
// the screen. Those that touch become one, and too many as well.
void qSurface::AddDirty(const QRect& Place)
{
    for (QRect& Each : Dirty)
        if (Each.adjusted(-Reach, -Reach, Reach, Reach).intersects(Place)) {
            Each |= Place;
            return;
        }
    if (Dirty.size() < MostPlaces) return Dirty.push_back(Place);
    Dirty.front() |= Place;
}

void qSurface::ShowDirty()
{
    QRegion Places;
    for (const QRect& Each : Dirty)
        Places |= Each;
    Dirty.clear();
    update(Places);
}

void qSurface::Clear(int32_t Colour)
{
    if (Painter.isActive()) Painter.end();
    if (Backdrop.isNull())
        Picture.fill(ToQColor(Colour));
    else
        Picture = Backdrop.copy();
    Ground = Picture;
    Changed(rect());
}

void qSurface::SetBackground(const std::string& Path)
{
    Background = Path.empty() ? QImage() : QImage(Shown(Path));
    FitBackground();
}

void qSurface::FitBackground()
{
    Backdrop = {};
    if (Background.isNull() || Picture.isNull()) return;
    Backdrop = Background.scaled(Picture.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                   .convertToFormat(QImage::Format_RGB32);
    Backdrop.setDevicePixelRatio(Picture.devicePixelRatio());
}

void qSurface::SetPen(int32_t Colour, int Width)
{
    Pencil.SetPen(Painter, Colour, Width);
    Pen.Colour = Colour;
    Pen.Width = Width;
}

void qSurface::SetFill(int32_t Colour)
{
    Pencil.SetFill(Painter, Colour);
    IsHollow = Colour == NoFill;
}

void qSurface::SetFont(int Size, bool Bold)
{
    Pencil.SetFont(Painter, Size, Bold);
}

void qSurface::Line(double X1, double Y1, double X2, double Y2)
{
    Changed(Pencil.Line(Brush(), X1, Y1, X2, Y2));
}

void qSurface::Polyline(std::span<const SurfacePoint> Points)
{
    Changed(Pencil.Polyline(Brush(), Points));
}

void qSurface::Curve(std::span<const SurfacePlace> Places)
{
    Changed(Pencil.Curve(Brush(), Places));
}

void qSurface::Point(double X, double Y)
{
    Changed(Pencil.Point(Brush(), X, Y));
}

void qSurface::Circle(double X, double Y, double Radius)
{
    QPainter& To = Brush();
    const double Ratio = Picture.devicePixelRatio();
    const bool IsOnPixels = X == std::floor(X) && Y == std::floor(Y) && Ratio == std::floor(Ratio);
    if (!IsHollow || !IsOnPixels || !(Radius >= 0 && Radius <= MostRing))
        return Changed(Pencil.Circle(To, X, Y, Radius));
    const QImage& Stamp = RingStamp(Radius);
    const double Half = Stamp.width() / Ratio / 2;
    To.drawImage(QPointF(X - Half, Y - Half), Stamp);
    Changed({X - Radius, Y - Radius, 2 * Radius, 2 * Radius});
}

// The ring stands in the middle unit of its picture.
const QImage& qSurface::RingStamp(double Radius)
{
    for (const Ring& Each : Rings)
        if (Each.Colour == Pen.Colour && Each.Width == Pen.Width && Each.Radius == Radius) return Each.Picture;
    if (Rings.size() == MostRings) Rings.clear();
    const int Middle = static_cast<int>(std::ceil(Radius)) + Pen.Width + 1;
    const double Ratio = Picture.devicePixelRatio();
    const int Size = static_cast<int>((2 * Middle + 1) * Ratio);
    Ring New{Pen.Colour, Pen.Width, Radius, QImage(Size, Size, QImage::Format_ARGB32_Premultiplied)};
    New.Picture.setDevicePixelRatio(Ratio);
    New.Picture.fill(Qt::transparent);
    QPainter On(&New.Picture);
    On.translate(0.5, 0.5);
    Pencil.Take(On);
    Pencil.Circle(On, Middle, Middle, Radius);
    On.end();
    return Rings.emplace_back(std::move(New)).Picture;
}

void qSurface::Box(double X1, double Y1, double X2, double Y2)
{
    Changed(Pencil.Box(Brush(), X1, Y1, X2, Y2));
}

void qSurface::Text(double X, double Y, const std::string& Text, eAlign Align)
{
    Changed(Pencil.Text(Brush(), X, Y, Text, Align));
}

double qSurface::TextWidth(const std::string& Text, int Size, bool Bold) const
{
    return Pencil.TextWidth(Text, Size, Bold);
}

void qSurface::KeepGround()
{
    if (Painter.isActive()) Painter.end();
    Ground = Picture.copy();
}

// Rows of pixels are copied as they are: the cheapest way to take a thing away, and exact.
void qSurface::RestoreGround(double X1, double Y1, double X2, double Y2)
{
    const QRectF Place = Around({X1, Y1}, {X2, Y2});
    const double Ratio = Picture.devicePixelRatio();
    const auto Pixel = [Ratio](double Unit) { return static_cast<int>(std::lround(Unit * Ratio)); };
    const QRect Box = QRect(QPoint(Pixel(Place.left()), Pixel(Place.top())),
                            QPoint(Pixel(Place.right() + 1) - 1, Pixel(Place.bottom() + 1) - 1)) &
                      Picture.rect() & Ground.rect();
    if (Box.isEmpty()) return;
    const auto Bytes = static_cast<std::size_t>(Box.width()) * sizeof(QRgb);
    const qsizetype Left = Box.left() * static_cast<qsizetype>(sizeof(QRgb));
    for (int Row = Box.top(); Row <= Box.bottom(); ++Row)
        std::memcpy(Picture.scanLine(Row) + Left, Ground.constScanLine(Row) + Left, Bytes);
    Changed(Place);
}

QImage qSurface::Grab()
{
    if (Picture.isNull()) Renew();
    if (Painter.isActive()) Painter.end();
    return Picture.copy();
}

void qSurface::paintEvent(QPaintEvent* Event)
{
    if (Picture.isNull() || Picture.devicePixelRatio() != devicePixelRatioF()) Renew();
    if (Painter.isActive()) Painter.end();
    QPainter Screen(this);
    const double Ratio = Picture.devicePixelRatio();
    for (const QRect& Part : Event->region())
        Screen.drawImage(QRectF(Part), Picture,
                         QRectF(Part.left() * Ratio, Part.top() * Ratio, Part.width() * Ratio, Part.height() * Ratio));
    if (!isEnabled()) Screen.fillRect(Event->rect(), Veil);
}

void qSurface::resizeEvent(QResizeEvent*)
{
    Renew();
}
