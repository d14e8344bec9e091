// A surface on a painter that is open on a page or on a picture in memory.
#pragma once

#include "platform/qt/qPencil.h"

class qPainterSurface : public iSurface
{
public:
    /// The painter's units are the drawing units; Step is the smallest of them that can be seen.
    qPainterSurface(QPainter& InitPainter, SurfacePoint InitSize, double Step);

    SurfacePoint Size() const override { return Extent; }
    double Pixel() const override { return Step; }
    void Clear(int32_t Colour) override;
    void SetBackground(const std::string&) override {}
    void SetPen(int32_t Colour, int Width) override { Pencil.SetPen(Painter, Colour, Width); }
    void SetFill(int32_t Colour) override { Pencil.SetFill(Painter, Colour); }
    void SetFont(int Size, bool Bold) override { Pencil.SetFont(Painter, Size, Bold); }
    void Line(double X1, double Y1, double X2, double Y2) override { Pencil.Line(Painter, X1, Y1, X2, Y2); }
    void Polyline(std::span<const SurfacePoint> Points) override { Pencil.Polyline(Painter, Points); }
    void Curve(std::span<const SurfacePlace> Places) override { Pencil.Curve(Painter, Places); }
    void Point(double X, double Y) override { Pencil.Point(Painter, X, Y); }
    void Circle(double X, double Y, double Radius) override { Pencil.Circle(Painter, X, Y, Radius); }
    void Box(double X1, double Y1, double X2, double Y2) override { Pencil.Box(Painter, X1, Y1, X2, Y2); }
    void Text(double X, double Y, const std::string& Words, eAlign Align) override
    {
        Pencil.Text(Painter, X, Y, Words, Align);
    }
    double TextWidth(const std::string& Words, int Size, bool Bold) const override
    {
        return Pencil.TextWidth(Words, Size, Bold);
    }

    // Paper has no passing things.
    void KeepGround() override {}
    void RestoreGround(double, double, double, double) override {}

private:
    QPainter& Painter;
    SurfacePoint Extent;
    double Step;
    qPencil Pencil;
};
