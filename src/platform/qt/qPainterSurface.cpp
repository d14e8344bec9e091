// Letters and ground of a page.
#include "platform/qt/qPainterSurface.h"

#include "platform/qt/qColour.h"

namespace {
// The same font sizes on every machine, at the places that the text has on paper.
QFont PageLetters()
{
    QFont Letters("DejaVu Sans");
    Letters.setHintingPreference(QFont::PreferNoHinting);
    return Letters;
}
} // namespace

qPainterSurface::qPainterSurface(QPainter& InitPainter, SurfacePoint InitSize, double InitStep)
    : Painter(InitPainter), Extent(InitSize), Step(InitStep), Pencil(PageLetters())
{
    Pencil.Take(Painter);
}

void qPainterSurface::Clear(int32_t Colour)
{
    Painter.fillRect(QRect(0, 0, Extent.X, Extent.Y), ToQColor(Colour));
}
