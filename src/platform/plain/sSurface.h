// A surface without a screen: it has a size, and nothing can be seen on it.
#pragma once

#include "platform/iSurface.h"

class sSurface : public iSurface
{
public:
    sSurface(int32_t Width, int32_t Height) : Extent{Width, Height} {}

    SurfacePoint Size() const override { return Extent; }
    void Clear(int32_t) override {}
    void SetBackground(const std::string&) override {}
    void SetPen(int32_t, int) override {}
    void SetFill(int32_t) override {}
    void SetFont(int, bool) override {}
    void Line(double, double, double, double) override {}
    void Polyline(std::span<const SurfacePoint>) override {}
    void Point(double, double) override {}
    void Circle(double, double, double) override {}
    void Box(double, double, double, double) override {}
    void Text(double, double, const std::string&, eAlign) override {}
    void KeepGround() override {}
    void RestoreGround(double, double, double, double) override {}

private:
    SurfacePoint Extent;
};
