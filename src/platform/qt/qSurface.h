// A widget with a picture that stays: drawing goes to the picture, changed parts to the screen once a refresh, under a
// veil while the widget is disabled.
#pragma once

#include "core/mNotice.h"
#include "platform/qt/qPace.h"
#include "platform/qt/qPencil.h"

#include <QImage>
#include <QWidget>

#include <functional>
#include <vector>

class qSurface : public QWidget, public iSurface
{
public:
    explicit qSurface(QWidget* Parent = nullptr);
    ~qSurface() override;

    /// Called when the picture is new and white: at first, after a change of size or of the colours and the pen width
    /// of curves, and on a screen of other density.
    std::function<void()> OnResize;

    SurfacePoint Size() const override;
    double Pixel() const override { return 0.25 / devicePixelRatioF(); } // smooth edges show quarters
    void Clear(int32_t Colour) override;
    void SetBackground(const std::string& Path) override;
    void SetPen(int32_t Colour, int Width) override;
    void SetFill(int32_t Colour) override;
    void SetFont(int Size, bool Bold) override;
    void Line(double X1, double Y1, double X2, double Y2) override;
    void Polyline(std::span<const SurfacePoint> Points) override;
    void Curve(std::span<const SurfacePlace> Places) override;
    void Point(double X, double Y) override;
    void Circle(double X, double Y, double Radius) override;
    void Box(double X1, double Y1, double X2, double Y2) override;
    void Text(double X, double Y, const std::string& Text, eAlign Align) override;
    double TextWidth(const std::string& Text, int Size, bool Bold) const override;
    void KeepGround() override;
    void RestoreGround(double X1, double Y1, double X2, double Y2) override;

    /// The picture as it is now, in the screen's pixels.
    QImage Grab();

protected:
    void paintEvent(QPaintEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;

private:
    void Renew();
    void FitBackground();
    QPainter& Brush();
    void Changed(const QRectF& Place);
    const QImage& RingStamp(double Radius);
    void AddDirty(const QRect& Place);
    void ShowDirty();

    QImage Picture;
    QImage Ground;
    QImage Background; // as it was read, null when there is none
    QImage Backdrop;   // in the picture's size
    QPainter Painter;  // open on the picture while drawing calls follow each other
    qPencil Pencil;

    // A small empty circle is drawn once and then copied: the curves of a panel ask for thousands a second.
    struct Ring
    {
        int32_t Colour = 0;
        int Width = 1;
        double Radius = 0;
        QImage Picture;
    };
    std::vector<Ring> Rings;
    Ring Pen;             // its colour and width
    bool IsHollow = true; // circles and boxes have no fill

    cListener Look;
    std::vector<QRect> Dirty; // of the picture, not yet on the screen
    qPace Refresh;
};
