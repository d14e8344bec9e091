// Outlines of the icons on a field of 24 by 24, and the engine that paints them at any size.
#include "widgets/qIcons.h"

#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <array>
#include <cstring>

namespace {
struct Outline
{
    const char* Name;
    const char* Lines; // strokes
    const char* Areas; // filled
};

constexpr std::array<Outline, 10> Outlines = {{
    {"open", "M3 18V5h6l2 3h9v3 M3 18l3-7h16l-3 7z", ""},
    {"new", "M13 3H5v18h14V9l-6-6v6h6 M12 12v6 M9 15h6", ""},
    {"check", "M5 4v16 M12 4v16 M19 4v16", "M2.5 7h5v4h-5z M9.5 13h5v4h-5z M16.5 5h5v4h-5z"},
    {"boat", "M1.5 15.5c5 4 16 4 21 0c-6 .9-15 .9-21 0z M9 13.5L18 4", "M16.2 2.8l3.2-1.6l2 2l-1.8 3.2z"},
    {"erg", "M2 20h20 M5 20l2-5h9 M9.5 15l1.5-4h4", "M17.5 4.5a4.5 4.5 0 1 1-.01 0z M9 7.5a2 2 0 1 1-.01 0z"},
    {"play", "", "M6 3.5v17l14-8.5z"},
    {"record", "M12 2.5a9.5 9.5 0 1 1-.01 0z", "M12 6.5a5.5 5.5 0 1 1-.01 0z"},
    {"stop", "M12 2.5a9.5 9.5 0 1 1-.01 0z", "M8 8h8v8h-8z"},
    {"close", "M5 5l14 14 M19 5L5 19", ""},
    {"calendar", "M3.5 5h17v15.5h-17z M3.5 10h17 M8 2.5v4 M16 2.5v4", "M7 13h3v3h-3z M14 13h3v3h-3z"},
}};

QByteArray Drawing(const char* Name, const QColor& Colour)
{
    for (const Outline& Icon : Outlines)
        if (std::strcmp(Icon.Name, Name) == 0) {
            const QByteArray Ink = Colour.name().toLatin1();
            return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'><path d='" + QByteArray(Icon.Lines) +
                   "' fill='none' stroke='" + Ink +
                   "' stroke-width='2' stroke-linejoin='round' stroke-linecap='round'/><path d='" +
                   QByteArray(Icon.Areas) + "' fill='" + Ink + "'/></svg>";
        }
    return "<svg xmlns='http://www.w3.org/2000/svg'/>";
}

class OutlineEngine : public QIconEngine
{
public:
    explicit OutlineEngine(const QByteArray& NewDrawing) : Svg(NewDrawing) {}

    void paint(QPainter* Painter, const QRect& Place, QIcon::Mode Mode, QIcon::State) override
    {
        Painter->setOpacity(Mode == QIcon::Disabled ? 0.35 : 1);
        QSvgRenderer(Svg).render(Painter, Place);
    }
    QPixmap pixmap(const QSize& Size, QIcon::Mode Mode, QIcon::State State) override
    {
        QPixmap Picture(Size);
        Picture.fill(Qt::transparent);
        QPainter Painter(&Picture);
        paint(&Painter, Picture.rect(), Mode, State);
        return Picture;
    }
    QIconEngine* clone() const override { return new OutlineEngine(Svg); }

private:
    QByteArray Svg;
};
} // namespace

QIcon DrawnIcon(const char* Name, const QColor& Colour)
{
    return QIcon(new OutlineEngine(Drawing(Name, Colour)));
}

QIcon ProgramIcon()
{
    return QIcon(new OutlineEngine("<svg xmlns='http://www.w3.org/2000/svg' viewBox='-4 -4 32 32'>"
                                   "<rect x='-4' y='-4' width='32' height='32' rx='6.4' fill='#0b488a'/>"
                                   "<path d='M2 9c3.3-4 6.7-4 10 0s6.7 4 10 0 M2 16c3.3-4 6.7-4 10 0s6.7 4 10 0' "
                                   "fill='none' stroke='#ffffff' stroke-width='2' stroke-linecap='round'/></svg>"));
}
