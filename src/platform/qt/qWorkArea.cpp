// The work area's ground.
#include "platform/qt/qWorkArea.h"

#include "platform/qt/qIcons.h"

#include <QMdiSubWindow>
#include <QPainter>

qWorkArea::qWorkArea(QWidget* Parent) : QMdiArea(Parent)
{
    setBackground(QColor(222, 228, 234));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

bool qWorkArea::CloseAsking()
{
    for (QMdiSubWindow* Frame : subWindowList()) {
        QWidget* Window = Frame->widget();
        if (!Frame->isVisible() || !Window->property(AsksToClose).toBool()) continue;
        Window->setProperty(IsClosedFor, true);
        const bool IsClosed = Frame->close();
        Window->setProperty(IsClosedFor, false);
        if (!IsClosed) return false;
    }
    return true;
}

void qWorkArea::paintEvent(QPaintEvent* Event)
{
    QMdiArea::paintEvent(Event);
    if (!subWindowList().isEmpty()) return;
    QPainter Painter(viewport());
    const QRect Room = viewport()->rect();
    constexpr int Side = 72;
    const QRect Icon(Room.center().x() - Side / 2, Room.center().y() - Side - 24, Side, Side);
    ProgramIcon().paint(&Painter, Icon);
    Painter.setPen(QColor(60, 76, 92));
    QFont Letters = font();
    Letters.setPixelSize(15);
    Painter.setFont(Letters);
    const QRect Words(Room.left(), Room.center().y(), Room.width(), 80);
    Painter.drawText(Words, Qt::AlignHCenter | Qt::AlignTop,
                     "Open a session with Ctrl+O, or drop its file here.\nThen check the channels with F5.");
}
