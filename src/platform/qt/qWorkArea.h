// The area of the main window in which all other windows live; empty, it tells how to begin.
#pragma once

#include <QMdiArea>

class qWorkArea : public QMdiArea
{
public:
    explicit qWorkArea(QWidget* Parent);

protected:
    void paintEvent(QPaintEvent* Event) override;
};
