// The hooks of a video window's picture, and the lines on its slider.
#include "video/fDigitStill.h"

#include "platform/qt/qPainterSurface.h"
#include "video/mDigitDraw.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace {
constexpr double ZoomANotch = 1.25;
constexpr double WheelNotch = 120;
} // namespace

fDigitStill::fDigitStill(fVideoPicture& InitPicture) : Picture(&InitPicture)
{
    Picture->OnPaint = [this](QPainter& Painter) { Paint(Painter); };
    Picture->OnMouse = [this](const QMouseEvent& Event, QPointF Pixel) { return Mouse(Event, Pixel); };
    Picture->OnWheel = [this](const QWheelEvent& Event) { return Wheel(Event); };
    Picture->setCursor(Qt::CrossCursor);
    Picture->update();
}

fDigitStill::~fDigitStill()
{
    if (!Picture) return;
    Picture->OnPaint = nullptr;
    Picture->OnMouse = nullptr;
    Picture->OnWheel = nullptr;
    Picture->unsetCursor();
    Picture->ResetZoom();
}

void fDigitStill::Paint(QPainter& Painter)
{
    if (!IsOn || !OnPaint) return;
    Painter.setRenderHint(QPainter::Antialiasing);
    qPainterSurface Surface(Painter, {Picture->width(), Picture->height()}, 1);
    const bool IsSeen = Pointer && Picture->underMouse();
    OnPaint(Surface, IsSeen ? std::optional(SurfacePlace{Pointer->x(), Pointer->y()}) : std::nullopt);
}

double fDigitStill::Reach() const
{
    const QPointF Corner = Picture->ToPicture({0, 0});
    return DotReach * (Picture->ToPicture({1, 0}).x() - Corner.x());
}

bool fDigitStill::Mouse(const QMouseEvent& Event, QPointF Pixel)
{
    if (!IsOn) return false;
    Pointer = Event.position();
    const bool IsPress = Event.type() == QEvent::MouseButtonPress || Event.type() == QEvent::MouseButtonDblClick;
    if (Event.type() == QEvent::MouseMove && Grip) {
        Picture->MoveBy(Event.position() - *Grip);
        Grip = Event.position();
    } else if (Event.type() == QEvent::MouseMove)
        OnMove(Pixel, Reach());
    else if (Event.button() == Qt::MiddleButton)
        Grip = IsPress ? std::optional(Event.position()) : std::nullopt;
    else if (Event.button() == Qt::LeftButton && IsPress)
        OnPress(Pixel, Reach());
    else if (Event.button() == Qt::LeftButton)
        OnRelease();
    Picture->update();
    return true;
}

bool fDigitStill::Wheel(const QWheelEvent& Event)
{
    if (!IsOn) return false;
    Picture->ZoomBy(std::pow(ZoomANotch, Event.angleDelta().y() / WheelNotch), Event.position());
    return true;
}

fSliderMarks::fSliderMarks(QSlider& InitSlider) : QWidget(&InitSlider), Slider(InitSlider)
{
    setObjectName("picFrameMarks");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setToolTip("Frames that have points");
    resize(Slider.size());
    Slider.installEventFilter(this);
    show();
}

void fSliderMarks::Show(std::vector<int> NewFrames)
{
    Frames = std::move(NewFrames);
    update();
}

bool fSliderMarks::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::Resize) resize(Slider.size());
    return QWidget::eventFilter(Watched, Event);
}

void fSliderMarks::paintEvent(QPaintEvent*)
{
    QPainter Painter(this);
    Painter.setPen(QPen(QColor(208, 96, 0), 2));
    QStyleOptionSlider Option;
    Option.initFrom(&Slider);
    const int Handle = Slider.style()->pixelMetric(QStyle::PM_SliderLength, &Option, &Slider);
    for (const int Frame : Frames) {
        const int X = Handle / 2 + QStyle::sliderPositionFromValue(Slider.minimum(), Slider.maximum(), Frame,
                                                                   Slider.width() - Handle);
        Painter.drawLine(X, height() - height() / 3, X, height());
    }
}
