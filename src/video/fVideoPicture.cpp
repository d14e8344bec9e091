// Placing, zooming and painting a picture.
#include "video/fVideoPicture.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {
constexpr double MostZoom = 32;
constexpr double Coarse = 4; // screen pixels a pixel of the video from which each is shown as a square
} // namespace

fVideoPicture::fVideoPicture(QWidget* Parent) : QWidget(Parent)
{
    setMinimumSize(160, 120);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void fVideoPicture::SetPicture(std::shared_ptr<const Picture> NewShown, const QString& Text)
{
    Note = Text;
    Shown = std::move(NewShown);
    update();
}

void fVideoPicture::SetScale(double Most, bool KeepsAspect)
{
    MostScale = Most;
    IsKeepingAspect = KeepsAspect;
    KeepInside();
}

QRectF fVideoPicture::WholeRect() const
{
    if (!Shown || Shown->Width < 1 || Shown->Height < 1) return {};
    if (!IsKeepingAspect) return rect();
    const double Fits =
        std::min(width() / static_cast<double>(Shown->Width), height() / static_cast<double>(Shown->Height));
    const double Scale = std::min(Fits, MostScale);
    QRectF Place(0, 0, Shown->Width * Scale, Shown->Height * Scale);
    Place.moveCenter(QRectF(rect()).center());
    return Place;
}

QRectF fVideoPicture::PictureRect() const
{
    const QRectF Whole = WholeRect();
    return {Whole.topLeft() + Shift, Whole.size() * ZoomNow};
}

QPointF fVideoPicture::ToPicture(QPointF At) const
{
    const QRectF Place = PictureRect();
    if (Place.isEmpty()) return {};
    return {(At.x() - Place.left()) / Place.width() * Shown->Width,
            (At.y() - Place.top()) / Place.height() * Shown->Height};
}

QPointF fVideoPicture::FromPicture(QPointF Pixel) const
{
    const QRectF Place = PictureRect();
    if (Place.isEmpty()) return {};
    return {Place.left() + Pixel.x() / Shown->Width * Place.width(),
            Place.top() + Pixel.y() / Shown->Height * Place.height()};
}

void fVideoPicture::ZoomBy(double Factor, QPointF At)
{
    const QPointF Pixel = ToPicture(At);
    ZoomNow = std::clamp(ZoomNow * Factor, 1.0, MostZoom);
    Shift += At - FromPicture(Pixel);
    KeepInside();
}

void fVideoPicture::MoveBy(QPointF By)
{
    Shift += By;
    KeepInside();
}

void fVideoPicture::ResetZoom()
{
    ZoomNow = 1;
    KeepInside();
}

// Some of the picture stays in the middle of the surface; the whole one stands where it belongs.
void fVideoPicture::KeepInside()
{
    if (ZoomNow <= 1) Shift = {};
    const QRectF Place = PictureRect();
    const QPointF Middle = QRectF(rect()).center();
    if (!Place.isEmpty()) {
        Shift.rx() += std::clamp(Middle.x(), Place.left(), Place.right()) == Middle.x() ? 0
                      : Middle.x() < Place.left()                                       ? Middle.x() - Place.left()
                                                                                        : Middle.x() - Place.right();
        Shift.ry() += std::clamp(Middle.y(), Place.top(), Place.bottom()) == Middle.y() ? 0
                      : Middle.y() < Place.top()                                        ? Middle.y() - Place.top()
                                                                                        : Middle.y() - Place.bottom();
    }
    update();
}

void fVideoPicture::paintEvent(QPaintEvent*)
{
    QPainter Painter(this);
    Painter.fillRect(rect(), Qt::black);
    if (!Shown) {
        Painter.setPen(Qt::white);
        Painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, Note);
        return;
    }
    const QRectF Place = PictureRect();
    const QImage Image(reinterpret_cast<const uchar*>(Shown->Pixels.data()), Shown->Width, Shown->Height,
                       Shown->Width * static_cast<qsizetype>(sizeof(uint32_t)), QImage::Format_RGB32);
    Painter.setRenderHint(QPainter::SmoothPixmapTransform, Place.width() < Coarse * Shown->Width);
    Painter.drawImage(Place, Image);
    if (OnPaint) OnPaint(Painter);
}

void fVideoPicture::resizeEvent(QResizeEvent*)
{
    KeepInside();
}

void fVideoPicture::Mouse(QMouseEvent& Event)
{
    if (!OnMouse || !Shown || !OnMouse(Event, ToPicture(Event.position()))) Event.ignore();
}

void fVideoPicture::wheelEvent(QWheelEvent* Event)
{
    if (!OnWheel || !OnWheel(*Event)) Event->ignore();
}
