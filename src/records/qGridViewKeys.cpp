// The grid's keys, and its menu of commands.
#include "records/qGridModel.h"
#include "records/qGridView.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

namespace {
bool IsPlain(const QKeyEvent& Event, int Key)
{
    return Event.key() == Key && (Event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

bool IsWith(const QKeyEvent& Event, Qt::KeyboardModifiers Keys, int Key)
{
    return Event.key() == Key && (Event.modifiers() & ~Qt::KeypadModifier) == Keys;
}
} // namespace

bool qGridView::PressEditKey(const QKeyEvent& Event)
{
    const bool IsEnter = IsPlain(Event, Qt::Key_Return) || IsPlain(Event, Qt::Key_Enter);
    if (Event.matches(QKeySequence::Undo))
        Undo();
    else if (Event.matches(QKeySequence::Redo))
        Redo();
    else if (IsPlain(Event, Qt::Key_Insert))
        AddRow();
    else if (IsPlain(Event, Qt::Key_Delete) && !HasPatternRows)
        ClearCells();
    else if (IsPlain(Event, Qt::Key_Delete) || IsWith(Event, Qt::ControlModifier, Qt::Key_Delete))
        DeleteRows();
    else if (IsEnter && state() != EditingState)
        QAbstractItemView::edit(currentIndex());
    else
        return false;
    return true;
}

bool qGridView::PressBlockKey(const QKeyEvent& Event)
{
    constexpr auto CtrlShift = Qt::ControlModifier | Qt::ShiftModifier;
    if (Event.matches(QKeySequence::Copy))
        Copy();
    else if (Event.matches(QKeySequence::Cut))
        Cut();
    else if (Event.matches(QKeySequence::Paste))
        Paste();
    else if (IsWith(Event, Qt::ControlModifier, Qt::Key_F2))
        CopyPrevious();
    else if (IsWith(Event, Qt::ControlModifier, Qt::Key_D))
        FillDown();
    else if (IsWith(Event, CtrlShift, Qt::Key_Up))
        MoveRows(-1);
    else if (IsWith(Event, CtrlShift, Qt::Key_Down))
        MoveRows(1);
    else
        return false;
    return true;
}

void qGridView::keyPressEvent(QKeyEvent* Event)
{
    if (!PressEditKey(*Event) && !PressBlockKey(*Event)) QTableView::keyPressEvent(Event);
}

void qGridView::contextMenuEvent(QContextMenuEvent* Event)
{
    QMenu Menu(this);
    const auto Add = [&](const char* Caption, auto Command) {
        connect(Menu.addAction(Caption), &QAction::triggered, this, Command);
    };
    Add("&Undo\tCtrl+Z", [this] { Undo(); });
    Add("&Redo\tCtrl+Shift+Z", [this] { Redo(); });
    Menu.addSeparator();
    Add("Cu&t\tCtrl+X", [this] { Cut(); });
    Add("&Copy\tCtrl+C", [this] { Copy(); });
    Add("&Paste\tCtrl+V", [this] { Paste(); });
    Add("&Fill Down\tCtrl+D", [this] { FillDown(); });
    Menu.addSeparator();
    Add("&Add Row\tIns", [this] { AddRow(); });
    Add(HasPatternRows ? "&Delete Rows\tDel" : "&Delete Rows\tCtrl+Del", [this] { DeleteRows(); });
    Add("Move U&p\tCtrl+Shift+Up", [this] { MoveRows(-1); });
    Add("Move D&own\tCtrl+Shift+Down", [this] { MoveRows(1); });
    Menu.exec(Event->globalPos());
}
