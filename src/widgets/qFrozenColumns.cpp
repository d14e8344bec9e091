// Two views in step.
#include "widgets/qFrozenColumns.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QWheelEvent>

qFrozenColumns::qFrozenColumns(QTableView& InitMain, int InitCount)
    : QTableView(&InitMain), Main(InitMain), Edge(new QFrame(this)), Columns(InitCount)
{
    setObjectName(Main.objectName() + "_frozen");
    setModel(Main.model());
    setSelectionModel(Main.selectionModel());
    setFocusPolicy(Qt::NoFocus);
    setFocusProxy(&Main);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(Main.selectionMode());
    setAlternatingRowColors(Main.alternatingRowColors());
    setWordWrap(false);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(Main.verticalScrollMode());
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Edge->setFrameShape(QFrame::VLine);
    Edge->setForegroundRole(QPalette::Dark);
    Edge->setFrameShadow(QFrame::Plain);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(Main.verticalHeader()->defaultSectionSize());
    horizontalHeader()->setDefaultAlignment(Main.horizontalHeader()->defaultAlignment());
    horizontalHeader()->setHighlightSections(false);
    for (int Column = 0; Column < model()->columnCount(); ++Column)
        if (Column < Columns)
            setColumnWidth(Column, Main.columnWidth(Column));
        else
            setColumnHidden(Column, true);
    connect(Main.verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(), &QScrollBar::setValue);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, Main.verticalScrollBar(), &QScrollBar::setValue);
    connect(Main.horizontalHeader(), &QHeaderView::sectionResized, this, [this](int Column, int, int Width) {
        if (Column < Columns) setColumnWidth(Column, Width);
        Place();
    });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int Column, int, int Width) {
        if (Column < Columns) Main.setColumnWidth(Column, Width);
    });
    connect(this, &QTableView::doubleClicked, &Main, [this](const QModelIndex& Cell) {
        Main.setFocus();
        Q_EMIT Main.doubleClicked(Cell);
    });
    connect(this, &QTableView::pressed, &Main, [this] { Main.setFocus(); });
    Main.viewport()->installEventFilter(this);
    Main.horizontalHeader()->installEventFilter(this);
    Main.verticalHeader()->installEventFilter(this);
    Place();
}

int qFrozenColumns::Covered() const
{
    int Width = 0;
    for (int Column = 0; Column < Columns; ++Column)
        Width += Main.columnWidth(Column);
    return 2 * Width > Main.viewport()->width() ? 0 : Width;
}

void qFrozenColumns::SetAside(bool IsAside)
{
    IsSetAside = IsAside;
    Place();
}

void qFrozenColumns::Place()
{
    const int Head = Main.horizontalHeader()->height();
    horizontalHeader()->setFixedHeight(Head);
    const QPoint Corner = Main.viewport()->geometry().topLeft() - QPoint(0, Head);
    setGeometry(QRect(Corner, QSize(Covered(), Main.viewport()->height() + Head)));
    Edge->setGeometry(width() - 1, 0, 1, height());
    Edge->raise();
    setVisible(!IsSetAside && Covered() > 0);
}

bool qFrozenColumns::eventFilter(QObject* Object, QEvent* Event)
{
    if (Object != viewport() && (Event->type() == QEvent::Resize || Event->type() == QEvent::Show)) Place();
    return QTableView::eventFilter(Object, Event);
}

void qFrozenColumns::wheelEvent(QWheelEvent* Event)
{
    QApplication::sendEvent(Main.viewport(), Event);
}
