// Cells as the toolkit asks for them, and changes as it has to be notified of them.
#include "records/qGridModel.h"

#include "base/mError.h"
#include "platform/qt/qColour.h"
#include "platform/qt/qText.h"
#include "records/mGridSteps.h"

#include <utility>

namespace {
const QColor Marked(255, 226, 170);
const QColor NotEdited(110, 118, 126);

// What a value means, empty when it is none of the usual ones.
std::string Meaning(const GridColumn& Column, const std::string& Text)
{
    for (const Choice& Each : Column.Choices)
        if (Each.Text == Text) return Each.Meaning;
    return {};
}
} // namespace

qGridModel::qGridModel(cGrid& Table, QObject* Parent) : QAbstractTableModel(Parent), Grid(Table) {}

int qGridModel::rowCount(const QModelIndex& Parent) const
{
    return Parent.isValid() ? 0 : Grid.RowCount();
}

int qGridModel::columnCount(const QModelIndex& Parent) const
{
    return Parent.isValid() ? 0 : Grid.ColumnCount();
}

QVariant qGridModel::data(const QModelIndex& Cell, int Role) const
{
    if (!Cell.isValid()) return {};
    const GridColumn& Column = At(std::as_const(Grid).Columns(), Cell.column());
    switch (Role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return Shown(Grid.Cell(Cell.row(), Cell.column()));
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | (IsNumeric(Column) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ToolTipRole:
        return ToolTip(Cell);
    case Qt::BackgroundRole:
        if (Remark && !Remark(Cell.row(), Cell.column()).empty()) return Marked;
        return {};
    case Qt::ForegroundRole:
        if (Column.Kind == eCell::RowNumber) return NotEdited;
        return {};
    case Qt::DecorationRole:
        if (Column.Kind == eCell::Colour && Colour) return ToQColor(Colour(Grid.Cell(Cell.row(), Cell.column())));
        return {};
    default:
        return {};
    }
}

QString qGridModel::ToolTip(const QModelIndex& Cell) const
{
    const std::string Words = Remark ? Remark(Cell.row(), Cell.column()) : std::string();
    if (!Words.empty()) return Shown(Words);
    const std::string Text = Grid.Cell(Cell.row(), Cell.column());
    const std::string Means = Meaning(At(std::as_const(Grid).Columns(), Cell.column()), Text);
    return Means.empty() ? QString() : Shown(Text + "  " + Means);
}

QVariant qGridModel::headerData(int Section, Qt::Orientation Direction, int Role) const
{
    if (Direction == Qt::Vertical || Section >= Grid.ColumnCount() ||
        (Role != Qt::DisplayRole && Role != Qt::ToolTipRole))
        return QAbstractTableModel::headerData(Section, Direction, Role);
    const GridColumn& Column = At(std::as_const(Grid).Columns(), Section);
    if (Role == Qt::DisplayRole || Column.Tip.empty()) return Shown(Column.Head);
    return Shown(Column.Head + ": " + Column.Tip);
}

Qt::ItemFlags qGridModel::flags(const QModelIndex& Cell) const
{
    const bool IsEdited = Cell.isValid() && At(std::as_const(Grid).Columns(), Cell.column()).Kind != eCell::RowNumber;
    return QAbstractTableModel::flags(Cell) | (IsEdited ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool qGridModel::setData(const QModelIndex& Cell, const QVariant& Value, int Role)
{
    if (!Cell.isValid() || Role != Qt::EditRole) return false;
    std::string Text = Plain(Value.toString());
    const bool IsOther = Text != Grid.Cell(Cell.row(), Cell.column());
    const std::string Reason = IsOther ? Grid.Take(Cell.column(), Text, eFrom::Typed) : std::string();
    if (OnRefused)
        OnRefused(Reason.empty() ? Reason : At(std::as_const(Grid).Columns(), Cell.column()).Head + ": " + Reason);
    if (!Reason.empty()) return false;
    Do(ChangeCells(Grid, {{Cell.row(), Cell.column(), Text}}));
    return true;
}

void qGridModel::Do(const GridStep& Step)
{
    Change(Step, [&] { Grid.Do(Step); });
}

bool qGridModel::Undo()
{
    const auto Step = Grid.NextUndo();
    if (Step) Change(*Step, [this] { Grid.Undo(); });
    return Step.has_value();
}

bool qGridModel::Redo()
{
    const auto Step = Grid.NextRedo();
    if (Step) Change(*Step, [this] { Grid.Redo(); });
    return Step.has_value();
}

void qGridModel::Refill()
{
    beginResetModel();
    endResetModel();
    Changed();
}

void qGridModel::Change(const GridStep& Step, const std::function<void()>& Make)
{
    const auto Out = static_cast<int>(Step.Out.size());
    const auto In = static_cast<int>(Step.In.size());
    if (Step.IsNothing()) return Grid.SetCurrent(Step.Current);
    if (Out == In) {
        Make();
        Q_EMIT dataChanged(index(Step.First, 0), index(Step.First + In - 1, columnCount() - 1));
    } else if (Out == 0) {
        beginInsertRows({}, Step.First, Step.First + In - 1);
        Make();
        endInsertRows();
    } else if (In == 0) {
        beginRemoveRows({}, Step.First, Step.First + Out - 1);
        Make();
        endRemoveRows();
    } else {
        beginResetModel();
        Make();
        endResetModel();
    }
    Changed();
}

void qGridModel::Changed() const
{
    if (OnChanged) OnChanged();
}
