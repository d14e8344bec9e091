// The grid's commands and its editing.
#include "records/qGridView.h"

#include "platform/qt/qText.h"
#include "records/qCellDelegate.h"
#include "records/qGridModel.h"
#include "widgets/qFrozenColumns.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <numeric>

qGridView::qGridView(qGridModel& InitModel, QWidget* Parent)
    : QTableView(Parent), Rows(InitModel), Cells(new qCellDelegate(*this, InitModel)), Shares(*this, InitModel)
{
    setModel(&Rows);
    setItemDelegate(Cells);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false); // so that Tab reaches the buttons; while a cell is edited it goes on to the next
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    verticalHeader()->setMinimumWidth(4 * fontMetrics().averageCharWidth());
    GoToRow(0);
}

void qGridView::Tell(const std::string& Words) const
{
    if (OnWords) OnWords(Words);
}

void qGridView::SetCancel(const QWidget& Button)
{
    Cells->Cancel = &Button;
}

void qGridView::GoToRow(int Row)
{
    setCurrentIndex(Rows.index(Row, std::max(0, currentIndex().column())));
}

void qGridView::GoToCurrent(int Column)
{
    setCurrentIndex(Rows.index(Rows.Table().Current(), std::max(0, Column)));
}

bool qGridView::Step(int By)
{
    for (int Row = currentIndex().row() + By; Row >= 0 && Row < Rows.rowCount(); Row += By)
        if (!isRowHidden(Row)) {
            GoToRow(Row);
            return true;
        }
    return false;
}

void qGridView::Do(const GridStep& Change)
{
    const int Column = currentIndex().column();
    Rows.Do(Change);
    GoToCurrent(Column);
}

void qGridView::Do(const GridEdit& Edit)
{
    Tell(Edit.Reason);
    if (!Edit.Step.IsNothing()) Do(Edit.Step);
}

void qGridView::AddRow()
{
    if (!FinishEdit() || Rows.columnCount() == 0) return;
    Do(InsertRow(Rows.Table(), HasPatternRows ? Rows.rowCount() - 1 : currentIndex().row()));
}

void qGridView::DeleteRows()
{
    CancelEdit();
    Do(::DeleteRows(Rows.Table(), MarkedRows()));
}

void qGridView::MoveRows(int By)
{
    if (!FinishEdit()) return;
    const GridBlock Block = Marked();
    if (Block.IsEmpty()) return;
    Do(::MoveRows(Rows.Table(), Block.Rows.front(), Block.Rows.back(), By));
}

void qGridView::CopyPrevious()
{
    if (!FinishEdit()) return;
    const QModelIndex Cell = currentIndex();
    if (Cell.row() < 1) return Tell("There is no row above.");
    Do(::FillDown(Rows.Table(), {{Cell.row() - 1, Cell.row()}, {Cell.column()}}));
    GoToRow(Cell.row());
}

void qGridView::FillDown()
{
    if (!FinishEdit()) return;
    const GridBlock Block = Marked();
    if (Block.Rows.size() == 1) return CopyPrevious();
    Do(::FillDown(Rows.Table(), Block));
}

void qGridView::Copy()
{
    if (const GridBlock Block = Marked(); !Block.IsEmpty())
        QApplication::clipboard()->setText(Shown(BlockText(Rows.Table(), Block)));
}

void qGridView::Cut()
{
    Copy();
    ClearCells();
}

void qGridView::Paste()
{
    if (!FinishEdit() || Rows.columnCount() == 0) return;
    Do(PasteBlock(Rows.Table(), Marked(), ShownRows(), ::Plain(QApplication::clipboard()->text())));
}

void qGridView::ClearCells()
{
    CancelEdit();
    Do(::ClearCells(Rows.Table(), Marked()));
}

bool qGridView::Undo()
{
    CancelEdit();
    const int Column = currentIndex().column();
    if (!Rows.Undo()) return false;
    GoToCurrent(Column);
    return true;
}

bool qGridView::Redo()
{
    CancelEdit();
    const int Column = currentIndex().column();
    if (!Rows.Redo()) return false;
    GoToCurrent(Column);
    return true;
}

bool qGridView::FinishEdit()
{
    QWidget* Editor = indexWidget(currentIndex());
    if (!Editor) return true;
    if (!Cells->CheckEditor(*Editor, currentIndex())) return false;
    commitData(Editor);
    closeEditor(Editor, QAbstractItemDelegate::NoHint);
    return true;
}

void qGridView::TakeKeyboard()
{
    QWidget* Editor = indexWidget(currentIndex());
    (Editor ? Editor : this)->setFocus();
}

void qGridView::CancelEdit()
{
    if (QWidget* Editor = indexWidget(currentIndex())) closeEditor(Editor, QAbstractItemDelegate::RevertModelCache);
}

GridBlock qGridView::Marked() const
{
    GridBlock Block;
    QItemSelection Ranges = selectionModel()->selection();
    if (Ranges.isEmpty()) Ranges = QItemSelection(currentIndex(), currentIndex());
    if (!currentIndex().isValid() || Ranges.isEmpty()) return Block;
    QPoint First(Ranges[0].left(), Ranges[0].top()), Last(Ranges[0].right(), Ranges[0].bottom());
    for (const QItemSelectionRange& Part : Ranges) {
        First = {std::min(First.x(), Part.left()), std::min(First.y(), Part.top())};
        Last = {std::max(Last.x(), Part.right()), std::max(Last.y(), Part.bottom())};
    }
    for (int Row = First.y(); Row <= Last.y(); ++Row)
        if (!isRowHidden(Row)) Block.Rows.push_back(Row);
    Block.Columns.resize(static_cast<std::size_t>(Last.x() - First.x() + 1));
    std::iota(Block.Columns.begin(), Block.Columns.end(), First.x());
    return Block;
}

std::vector<int> qGridView::ShownRows() const
{
    std::vector<int> Seen;
    for (int Row = 0; Row < Rows.rowCount(); ++Row)
        if (!isRowHidden(Row)) Seen.push_back(Row);
    return Seen;
}

void qGridView::SetFilter(const QString& Words)
{
    if (!FinishEdit()) return;
    setUpdatesEnabled(false);
    for (int Row = 0; Row < Rows.rowCount(); ++Row) {
        bool IsFound = Words.isEmpty();
        for (int Column = 0; Column < Rows.columnCount() && !IsFound; ++Column)
            IsFound = Shown(Rows.Table().Cell(Row, Column)).contains(Words, Qt::CaseInsensitive);
        if (isRowHidden(Row) == IsFound) setRowHidden(Row, !IsFound);
        if (Frozen) Frozen->setRowHidden(Row, !IsFound);
    }
    setUpdatesEnabled(true);
    if (isRowHidden(currentIndex().row()) && !Step(1)) Step(-1);
}

void qGridView::Freeze(int Count)
{
    if (Count < 1) return;
    Frozen = new qFrozenColumns(*this, Count);
    connect(Frozen, &QTableView::doubleClicked, this,
            [this](const QModelIndex& Cell) { edit(Cell, DoubleClicked, nullptr); });
}

void qGridView::resizeEvent(QResizeEvent* Event)
{
    QTableView::resizeEvent(Event);
    Shares.Apply();
}

void qGridView::currentChanged(const QModelIndex& Cell, const QModelIndex& Former)
{
    QTableView::currentChanged(Cell, Former);
    if (Cell.isValid()) Rows.Table().SetCurrent(Cell.row());
}

void qGridView::scrollTo(const QModelIndex& Cell, ScrollHint Hint)
{
    QTableView::scrollTo(Cell, Hint);
    const int Covered = Frozen ? Frozen->Covered() : 0;
    const int Left = visualRect(Cell).left();
    if (Cell.column() >= (Frozen ? Frozen->Count() : 0) && Left < Covered)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + Left - Covered);
}

// A double click on a cell with a list opens the list. A cell of a frozen column is edited where it stands without
// them.
bool qGridView::edit(const QModelIndex& Cell, EditTrigger Trigger, QEvent* Event)
{
    const bool IsCovered = Frozen && Cell.column() < Frozen->Count();
    const bool HasBegun = QTableView::edit(Cell, Trigger, Event);
    auto* List = Trigger == DoubleClicked ? qobject_cast<QComboBox*>(indexWidget(Cell)) : nullptr;
    if (List) QTimer::singleShot(0, List, &QComboBox::showPopup);
    if (!IsCovered || state() != EditingState) return HasBegun;
    horizontalScrollBar()->setValue(0);
    Frozen->SetAside(true);
    return HasBegun;
}

void qGridView::closeEditor(QWidget* Editor, QAbstractItemDelegate::EndEditHint Hint)
{
    QTableView::closeEditor(Editor, Hint);
    if (Frozen && (state() != EditingState || currentIndex().column() >= Frozen->Count())) Frozen->SetAside(false);
}
