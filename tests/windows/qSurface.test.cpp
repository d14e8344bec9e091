// The drawing surface: pixels, the kept ground, and what goes to the screen.
#include "platform/qt/qSurface.h"

#include <doctest/doctest.h>

#include <QTest>

namespace {
// Counts how often it goes to the screen.
class CountingSurface : public qSurface
{
public:
    int Paints = 0;

protected:
    void paintEvent(QPaintEvent* Event) override
    {
        ++Paints;
        qSurface::paintEvent(Event);
    }
};

void DrawPicture(iSurface& Surface)
{
    Surface.SetPen(0x323232, 1);
    Surface.Box(10, 10, 190, 140);
    for (int x = 20; x < 190; x += 20)
        Surface.Line(x, 10, x, 140);
    Surface.Text(15, 20, "12 GateFx");
    Surface.KeepGround();
}
} // namespace

TEST_CASE("restoring the ground takes passing things away to the last pixel")
{
    qSurface Surface;
    Surface.resize(200, 150);
    DrawPicture(Surface);
    const QImage Before = Surface.Grab();
    Surface.SetPen(0xC80000, 2);
    const SurfacePoint Points[] = {{12, 12}, {100, 12}, {100, 60}, {40, 60}, {40, 130}};
    Surface.Polyline(Points);
    Surface.SetFill(0x00FF00);
    Surface.Circle(150, 100, 12);
    CHECK(Surface.Grab() != Before);
    const QPointF OnLine = QPointF(100.5, 40.5) * Surface.devicePixelRatioF();
    CHECK(Surface.Grab().pixelColor(OnLine.toPoint()) == QColor(0, 0, 200));
    Surface.RestoreGround(5, 5, 165, 135);
    CHECK(Surface.Grab() == Before);
}

TEST_CASE("however often it is drawn on, a surface goes to the screen once a refresh, with its last picture")
{
    CountingSurface Surface;
    Surface.resize(200, 150);
    Surface.show();
    REQUIRE(QTest::qWaitForWindowExposed(&Surface));
    QTest::qWait(50);
    Surface.Paints = 0;
    for (int i = 0; i < 500; ++i) {
        Surface.SetPen(i, 1);
        Surface.Line(0, i % 150, 199, i % 150);
    }
    QTest::qWait(100);
    CHECK(Surface.Paints == 1);
    CHECK(Surface.grab().toImage().convertToFormat(QImage::Format_RGB32) == Surface.Grab());
}
