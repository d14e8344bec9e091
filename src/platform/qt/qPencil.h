// Pen, fill and font of a surface, and the drawing with them on any of the toolkit's painters.
#pragma once

#include "platform/iSurface.h"

#include <QFont>
#include <QPainter>

/// Each drawing function gives the place that it touched, without the width of the pen.
class qPencil
{
public:
    explicit qPencil(const QFont& Family);

    /// Sets pen, fill and font of a painter that begins.
    void Take(QPainter& On) const;

    // Changes for what is drawn from now on; a painter that is active takes them at once.
    void SetPen(QPainter& On, int32_t Colour, int Width);
    void SetFill(QPainter& On, int32_t Colour);
    void SetFont(QPainter& On, int Size, bool Bold);

    double PenWidth() const { return Pen.widthF(); }

    QRectF Line(QPainter& On, double X1, double Y1, double X2, double Y2) const;
    QRectF Polyline(QPainter& On, std::span<const SurfacePoint> Points) const;
    QRectF Curve(QPainter& On, std::span<const SurfacePlace> Places) const;
    QRectF Point(QPainter& On, double X, double Y) const;
    QRectF Circle(QPainter& On, double X, double Y, double Radius) const;
    QRectF Box(QPainter& On, double X1, double Y1, double X2, double Y2) const;
    QRectF Text(QPainter& On, double X, double Y, const std::string& Text, eAlign Align) const;

    double TextWidth(const std::string& Text, int Size, bool Bold) const;

private:
    QPen Pen;
    QBrush Fill;
    QFont Letters;
};
