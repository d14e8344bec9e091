// The first columns of a table, which stay in sight when it is scrolled sideways: a second view of them that lies over
// the first one.
#pragma once

#include <QTableView>

class qFrozenColumns : public QTableView
{
public:
    /// Lies over Main, whose model is set, and follows its size, widths and place.
    qFrozenColumns(QTableView& InitMain, int InitCount);

    int Count() const { return Columns; }

    /// Width of the main view's viewport that is covered, 0 while the columns would leave too little of it.
    int Covered() const;

    /// Shows the main view's own columns in their place for a while.
    void SetAside(bool IsAside);

protected:
    bool eventFilter(QObject* Object, QEvent* Event) override;
    void wheelEvent(QWheelEvent* Event) override;

private:
    void Place();

    QTableView& Main;
    QFrame* Edge;
    int Columns;
    bool IsSetAside = false;
};
