// The work area's ground.
#include "widgets/qWorkArea.h"

#include "widgets/qIcons.h"

#include <QMdiSubWindow>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int Smallest = 240; // length of a share in which a window is of use

// Lengths that together fill Room: equal, but for those that need more.
QList<int> Shares(const QList<int>& Needs, int Room)
{
    QList<int> Lengths(Needs.size(), 0);
    auto Count = static_cast<int>(Needs.size());
    for (bool IsFair = false; !IsFair;) {
        IsFair = true;
        for (qsizetype i = 0; i < Needs.size(); ++i) {
            if (Lengths[i] > 0 || Count == 1 || Needs[i] * Count <= Room) continue;
            Lengths[i] = Needs[i];
            Room -= Needs[i];
            --Count;
            IsFair = false;
        }
    }
    for (int& Length : Lengths) {
        if (Length > 0) continue;
        Length = Room / Count--;
        Room -= Length;
    }
    return Lengths;
}
} // namespace

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

void qWorkArea::Tile(Qt::Orientation Direction)
{
    QList<QMdiSubWindow*> Frames;
    for (QMdiSubWindow* Frame : subWindowList())
        if (Frame->isVisible() && !Frame->isMinimized()) Frames.push_back(Frame);
    Tile(Direction, Frames);
}

void qWorkArea::Tile(Qt::Orientation Direction, const QList<QMdiSubWindow*>& Frames)
{
    const bool AsBands = Direction == Qt::Horizontal;
    const QSize Room = viewport()->size();
    const int Long = AsBands ? Room.height() : Room.width();
    QList<int> Needs;
    for (const QMdiSubWindow* Frame : Frames) {
        const QSize Need = Frame->minimumSizeHint();
        Needs.push_back(AsBands ? Need.height() : Need.width());
    }
    const auto Count = static_cast<int>(Frames.size());
    const QList<int> Lengths = Shares(Needs, Long);
    const bool IsRoomy =
        std::all_of(Lengths.begin(), Lengths.end(), [&](int Each) { return Each >= std::min(Smallest, Long / Count); });
    int From = 0;
    for (int i = 0; i < Count; ++i) {
        const int Length = IsRoomy ? Lengths[i] : std::min(std::max(Needs[i], Long / Count), Long);
        if (!IsRoomy) From = std::min(Long * i / Count, Long - Length);
        Frames[i]->showNormal();
        Frames[i]->setGeometry(AsBands ? QRect(0, From, Room.width(), Length) : QRect(From, 0, Length, Room.height()));
        From += Length;
    }
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
    Painter.drawText(
        Words, Qt::AlignHCenter | Qt::AlignTop,
        "Make a session with Ctrl+N, open one with Ctrl+O, or drop its file here.\nThen check the channels with F5.");
}
