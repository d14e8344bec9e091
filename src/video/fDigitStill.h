// Digitising on the picture of a video window: the figure over it, and the mouse that places, drags, zooms and moves.
#pragma once

#include "platform/iSurface.h"
#include "video/fVideoPicture.h"

#include <QPointF>
#include <QPointer>

#include <functional>
#include <optional>

class QSlider;

class fDigitStill
{
public:
    /// Draws over the picture; Surface is in units of the widget.
    using Painting = std::function<void(iSurface& Surface, const std::optional<SurfacePlace>& Pointer)>;

    explicit fDigitStill(fVideoPicture& InitPicture);
    ~fDigitStill();
    fDigitStill(const fDigitStill&) = delete;
    fDigitStill& operator=(const fDigitStill&) = delete;

    Painting OnPaint;

    /// The left button at a place of the picture in its pixels; Reach is that of a point's mark there.
    std::function<void(QPointF Pixel, double Reach)> OnPress;
    std::function<void(QPointF Pixel, double Reach)> OnMove;
    std::function<void()> OnRelease;

    /// Off: the picture is as without digitising.
    bool IsOn = true;

private:
    void Paint(QPainter& Painter);
    bool Mouse(const QMouseEvent& Event, QPointF Pixel);
    bool Wheel(const QWheelEvent& Event);
    double Reach() const;

    QPointer<fVideoPicture> Picture;
    std::optional<QPointF> Pointer; // where the mouse stands, in the widget
    std::optional<QPointF> Grip;    // where the middle button took the picture
};

/// Marks of frames on a slider: a short line at each.
class fSliderMarks : public QWidget
{
public:
    explicit fSliderMarks(QSlider& InitSlider);

    void Show(std::vector<int> NewFrames);

protected:
    void paintEvent(QPaintEvent* Event) override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    QSlider& Slider;
    std::vector<int> Frames;
};
