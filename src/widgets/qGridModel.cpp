// Cells as the toolkit asks for them, changes, and their undoing.
#include "widgets/qGridModel.h"

#include "platform/qt/qText.h"

#include <utility>

namespace {
constexpr std::size_t MostUndo = 100;
}

qGridModel::qGridModel(cGrid Table, QObject* Parent) : QAbstractTableModel(Parent), Grid(std::move(Table)) {}

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
    if (Role == Qt::DisplayRole || Role == Qt::EditRole) return Shown(Grid.Cell(Cell.row(), Cell.column()));
    if (Role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter | (IsNumber && IsNumber(Cell.column()) ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

QVariant qGridModel::headerData(int Section, Qt::Orientation Direction, int Role) const
{
    if (Direction == Qt::Vertical || Section >= Grid.ColumnCount() ||
        (Role != Qt::DisplayRole && Role != Qt::ToolTipRole))
        return QAbstractTableModel::headerData(Section, Direction, Role);
    return Shown(Grid.Heads()[static_cast<std::size_t>(Section)]);
}

Qt::ItemFlags qGridModel::flags(const QModelIndex& Cell) const
{
    return QAbstractTableModel::flags(Cell) | (Cell.isValid() ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool qGridModel::setData(const QModelIndex& Cell, const QVariant& Value, int Role)
{
    if (!Cell.isValid() || Role != Qt::EditRole) return false;
    std::string Text = Plain(Value.toString());
    if (Text == Grid.Cell(Cell.row(), Cell.column())) return true;
    if (OnTyped) Text = OnTyped(Cell.column(), Text);
    if (Text == Grid.Cell(Cell.row(), Cell.column())) return true;
    KeepFormer(Cell.row());
    Grid.SetCell(Cell.row(), Cell.column(), Text);
    Q_EMIT dataChanged(Cell, Cell);
    Changed();
    return true;
}

void qGridModel::AddRow()
{
    if (Grid.ColumnCount() == 0) return;
    KeepFormer(Grid.Current());
    beginInsertRows({}, Grid.RowCount(), Grid.RowCount());
    Grid.AddRow();
    endInsertRows();
    Changed();
}

void qGridModel::DeleteRow(int Row)
{
    if (Row < 0 || Row >= Grid.RowCount()) return;
    KeepFormer(Row);
    beginRemoveRows({}, Row, Row);
    Grid.DeleteRow();
    endRemoveRows();
    Changed();
}

bool qGridModel::Undo()
{
    if (Former.empty()) return false;
    beginResetModel();
    Grid = std::move(Former.back());
    Former.pop_back();
    --Changes;
    endResetModel();
    Changed();
    return true;
}

void qGridModel::KeepFormer(int Row)
{
    Grid.SetCurrent(Row);
    Former.push_back(Grid);
    if (Former.size() > MostUndo) Former.pop_front();
    ++Changes;
}

void qGridModel::Changed() const
{
    if (OnChanged) OnChanged();
}
