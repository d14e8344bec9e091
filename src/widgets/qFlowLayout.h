// A layout that sets controls in lines, as words are set: the next line begins where one is full.
#pragma once

#include <QLayout>

#include <vector>

class qFlowLayout : public QLayout
{
public:
    qFlowLayout() { setContentsMargins(0, 0, 0, 0); }
    ~qFlowLayout() override;

    void addItem(QLayoutItem* Item) override { Items.push_back(Item); }
    int count() const override { return static_cast<int>(Items.size()); }
    QLayoutItem* itemAt(int Index) const override;
    QLayoutItem* takeAt(int Index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int Width) const override { return Set(QRect(0, 0, Width, 0), false); }
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect& Place) override;

private:
    int Set(const QRect& Place, bool IsMoving) const;

    std::vector<QLayoutItem*> Items;
};
