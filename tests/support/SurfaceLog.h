// A surface that writes what is drawn on it as lines of text.
#pragma once

#include "platform/iSurface.h"

#include <string>
#include <vector>

class SurfaceLog : public iSurface
{
public:
    SurfaceLog(int Width, int Height) : Extent{Width, Height} {}

    /// The calls since the last Take, a line each: what was drawn, where, and in which pen or fill.
    std::vector<std::string> Take();

    SurfacePoint Extent;

    SurfacePoint Size() const override { return Extent; }
    void Clear(int32_t Colour) override;
    void SetPen(int32_t Colour, int Width) override;
    void SetFill(int32_t Colour) override;
    void SetFont(int Size, bool Bold) override;
    void Line(double X1, double Y1, double X2, double Y2) override;
    void Polyline(std::span<const SurfacePoint> Points) override;
    void Point(double X, double Y) override;
    void Circle(double X, double Y, double Radius) override;
    void Box(double X1, double Y1, double X2, double Y2) override;
    void Text(double X, double Y, const std::string& Text, eAlign Align) override;
    void KeepGround() override;
    void RestoreGround(double X1, double Y1, double X2, double Y2) override;

private:
    void Add(const std::string& What, std::vector<double> Numbers, const std::string& Behind);

    std::vector<std::string> Calls;
    std::string Pen;
    std::string Fill;
    std::string Font;
};
