// A grid on the screen: blocks of cells, rows, undo and redo by keys, a filter, and columns that stay in sight.
#pragma once

#include "records/mGridSteps.h"
#include "records/qColumnShares.h"

#include <QTableView>

#include <functional>
#include <string>
#include <vector>

class qCellDelegate;
class qFrozenColumns;
class qGridModel;

class qGridView : public QTableView
{
public:
    qGridView(qGridModel& InitModel, QWidget* Parent);

    /// A table whose rows are patterns: Insert adds a copy of the last row at the end, Delete deletes rows. Otherwise
    /// Insert copies the current row behind it, Delete empties cells, and Ctrl+Delete deletes rows.
    void SetPatternRows() { HasPatternRows = true; }

    /// Called with what a command did or why it did nothing.
    std::function<void(const std::string& Words)> OnWords;

    void AddRow();
    void DeleteRows(); // those of the marked block
    void MoveRows(int By);
    void CopyPrevious(); // the cell above into the current one
    void FillDown();
    void Copy();
    void Cut();
    void Paste();
    void ClearCells();

    /// Takes the last change back, or does it again, and goes where it was. False when there is none.
    bool Undo();
    bool Redo();

    /// Makes a change and goes to its row.
    void Do(const GridStep& Step);

    /// Makes a change, or passes on why there is none.
    void Do(const GridEdit& Edit);

    /// Ends the editing of a cell: what is typed goes into the cell, or is dropped. False when the cell does not take
    /// it: the editing goes on, and it is said why.
    bool FinishEdit();
    void CancelEdit();

    /// Gives the keyboard to the editor of a cell, or to the grid when none is open.
    void TakeKeyboard();

    /// A button on which a click drops what is being typed; elsewhere a click puts it into the cell.
    void SetCancel(const QWidget& Button);

    /// Goes to a row, in the column that the cursor is in.
    void GoToRow(int Row);

    /// Goes to the next row that is shown, or the one before. False at either end.
    bool Step(int By);

    /// The rows of the marked block, and the block.
    std::vector<int> MarkedRows() const { return Marked().Rows; }
    GridBlock Marked() const;

    /// Shows the rows alone that hold Words in some cell, in whatever case; all when it is empty.
    void SetFilter(const QString& Words);

    /// Keeps the first columns in sight.
    void Freeze(int Count);

    /// The widths of the columns.
    qColumnShares& Widths() { return Shares; }

    void scrollTo(const QModelIndex& Cell, ScrollHint Hint = EnsureVisible) override;

protected:
    void keyPressEvent(QKeyEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;
    void contextMenuEvent(QContextMenuEvent* Event) override;
    bool edit(const QModelIndex& Cell, EditTrigger Trigger, QEvent* Event) override;
    void closeEditor(QWidget* Editor, QAbstractItemDelegate::EndEditHint Hint) override;
    void currentChanged(const QModelIndex& Cell, const QModelIndex& Former) override;

private:
    bool PressEditKey(const QKeyEvent& Event);
    bool PressBlockKey(const QKeyEvent& Event);
    void GoToCurrent(int Column);
    void Tell(const std::string& Words) const;
    std::vector<int> ShownRows() const;

    qGridModel& Rows;
    qCellDelegate* Cells;
    qFrozenColumns* Frozen = nullptr;
    qColumnShares Shares;
    bool HasPatternRows = false;
};
