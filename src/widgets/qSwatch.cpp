// Painting, and the ways to ask.
#include "widgets/qSwatch.h"

#include <QKeyEvent>
#include <QPainter>

qSwatch::qSwatch(QWidget* Parent) : QWidget(Parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
}

void qSwatch::SetColour(const QColor& Colour)
{
    Shown = Colour;
    update();
}

QSize qSwatch::sizeHint() const
{
    return {8 * fontMetrics().height(), fontMetrics().height() + 8};
}

void qSwatch::paintEvent(QPaintEvent*)
{
    constexpr int Frame = 2;
    QPainter Painter(this);
    Painter.fillRect(rect(), hasFocus() ? palette().highlight() : palette().dark());
    Painter.fillRect(rect().adjusted(Frame, Frame, -Frame, -Frame), Shown);
}

void qSwatch::mouseDoubleClickEvent(QMouseEvent*)
{
    if (OnChoose) OnChoose();
}

void qSwatch::keyPressEvent(QKeyEvent* Event)
{
    const int Key = Event->key();
    if (Key != Qt::Key_Return && Key != Qt::Key_Enter && Key != Qt::Key_Space) return QWidget::keyPressEvent(Event);
    if (OnChoose) OnChoose();
}
