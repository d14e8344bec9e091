// The surface of a video window: a picture scaled into the middle, and what others draw over it and do on it with the
// mouse, in pixels of the picture.
#pragma once

#include "platform/iMedia.h"

#include <QWidget>

#include <functional>
#include <memory>

class fVideoPicture : public QWidget
{
public:
    explicit fVideoPicture(QWidget* Parent = nullptr);

    /// Shows a picture; null shows an empty surface with the text, if there is one.
    void SetPicture(std::shared_ptr<const Picture> Shown, const QString& Text = {});

    /// The picture's scale: Most times its own pixels where there is room, else as large as the surface. KeepsAspect
    /// off: stretched over the whole surface.
    void SetScale(double Most, bool KeepsAspect);

    /// Zooms by Factor with the place At (widget) staying where it is, from the whole picture to 32 times.
    void ZoomBy(double Factor, QPointF At);

    /// Moves a picture that is zoomed by pixels of the widget.
    void MoveBy(QPointF By);

    /// Shows the whole picture again.
    void ResetZoom();

    double Zoom() const { return ZoomNow; }

    /// Where the picture is seen, in the widget; empty without a picture.
    QRectF PictureRect() const;

    // Places of the widget in pixels of the picture (0,0 is the corner of its first pixel), and back.
    QPointF ToPicture(QPointF At) const;
    QPointF FromPicture(QPointF Pixel) const;

    /// Draws over the picture; the painter's units are those of the widget.
    std::function<void(QPainter& Painter)> OnPaint;

    /// A press, move, release or double click of the mouse at a place in pixels of the picture, which may lie outside
    /// it. True when it was taken.
    std::function<bool(QMouseEvent& Event, QPointF Pixel)> OnMouse;

    /// The wheel. True when it was taken; else the window scrubs.
    std::function<bool(QWheelEvent& Event)> OnWheel;

protected:
    void paintEvent(QPaintEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override { Mouse(*Event); }
    void mouseMoveEvent(QMouseEvent* Event) override { Mouse(*Event); }
    void mouseReleaseEvent(QMouseEvent* Event) override { Mouse(*Event); }
    void mouseDoubleClickEvent(QMouseEvent* Event) override { Mouse(*Event); }
    void wheelEvent(QWheelEvent* Event) override;

private:
    QRectF WholeRect() const;
    void Mouse(QMouseEvent& Event);
    void KeepInside();

    std::shared_ptr<const Picture> Shown;
    QString Note;
    double MostScale = 1;
    bool IsKeepingAspect = true;
    double ZoomNow = 1;
    QPointF Shift; // of the zoomed picture's corner from that of the whole one, widget
};
