// The surface of windows: what it keeps to draw faster looks as if it were drawn each time.
#include "platform/qt/qSurface.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {
// The largest difference of a colour channel between two pictures of one size.
int Difference(const QImage& A, const QImage& B)
{
    int Most = 0;
    for (int Y = 0; Y < A.height(); ++Y)
        for (int X = 0; X < A.width(); ++X) {
            const QColor P = A.pixelColor(X, Y), Q = B.pixelColor(X, Y);
            Most = std::max(
                {Most, std::abs(P.red() - Q.red()), std::abs(P.green() - Q.green()), std::abs(P.blue() - Q.blue())});
        }
    return Most;
}

// Rings of some pens over each other on a picture of their own, moved by a part of a pixel.
QImage Rings(double Shift)
{
    qSurface Surface;
    Surface.resize(200, 200);
    Surface.Grab();
    Surface.Clear(0xFFFFFF);
    for (const auto& [Colour, Width] : {std::pair{0x0000FF, 1}, {0xFF0000, 3}, {0x00FF00, 1}})
        for (const double Radius : {0.0, 2.0, 3.7, 9.5, 40.0}) {
            Surface.SetPen(Colour, Width);
            Surface.SetFill(NoFill);
            Surface.Circle(100 + Shift, 60 + 10 * Width, Radius);
            Surface.Circle(10 + Shift, 5, Radius); // partly beyond the edge
        }
    Surface.SetFill(0x00FF00);
    Surface.Circle(150 + Shift, 150, 8);
    return Surface.Grab();
}
} // namespace

TEST_CASE("rings that are copied look like rings that are drawn, and filled circles are filled")
{
    const QImage Copied = Rings(0);
    CHECK(Copied.size() == QSize(200, 200));
    CHECK(Copied.pixelColor(150, 150) == QColor(0, 255, 0));
    CHECK(Copied.pixelColor(100, 52) != QColor(255, 255, 255));
    CHECK(Difference(Copied, Rings(1e-9)) <= 3); // no whole pixel: drawn
}
