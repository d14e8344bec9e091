// The setting of lines.
#include "widgets/qFlowLayout.h"

#include <algorithm>

qFlowLayout::~qFlowLayout()
{
    for (const QLayoutItem* Item : Items)
        delete Item;
}

QLayoutItem* qFlowLayout::itemAt(int Index) const
{
    return Index >= 0 && Index < count() ? Items[static_cast<std::size_t>(Index)] : nullptr;
}

QLayoutItem* qFlowLayout::takeAt(int Index)
{
    QLayoutItem* Item = itemAt(Index);
    if (Item) Items.erase(Items.begin() + Index);
    return Item;
}

QSize qFlowLayout::minimumSize() const
{
    QSize Least;
    for (const QLayoutItem* Item : Items)
        Least = Least.expandedTo(Item->minimumSize());
    return Least;
}

void qFlowLayout::setGeometry(const QRect& Place)
{
    QLayout::setGeometry(Place);
    Set(Place, true);
}

// Gives the height of all lines.
int qFlowLayout::Set(const QRect& Place, bool IsMoving) const
{
    const int Space = spacing();
    int Left = Place.left(), Top = Place.top(), Height = 0;
    for (QLayoutItem* Item : Items) {
        if (Item->isEmpty()) continue;
        const QSize Size = Item->sizeHint();
        if (Left > Place.left() && Left + Size.width() > Place.right() + 1) {
            Left = Place.left();
            Top += Height + Space;
            Height = 0;
        }
        if (IsMoving) Item->setGeometry(QRect(QPoint(Left, Top), Size));
        Left += Size.width() + Space;
        Height = std::max(Height, Size.height());
    }
    return Top + Height - Place.top();
}
