// Making, checking and closing of editors.
#include "records/qCellDelegate.h"

#include "base/mError.h"
#include "platform/qt/qColour.h"
#include "platform/qt/qText.h"
#include "records/qGridModel.h"
#include "widgets/qDateBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>

#include <utility>

namespace {
constexpr const char* RefusedColour = "background: #ffd6d6;";

const GridColumn& ColumnOf(const qGridModel& Rows, const QModelIndex& Cell)
{
    return At(Rows.Table().Columns(), Cell.column());
}

QLineEdit* BoxOf(const QWidget& Editor)
{
    const auto* List = qobject_cast<const QComboBox*>(&Editor);
    return List ? List->lineEdit() : qobject_cast<QLineEdit*>(const_cast<QWidget*>(&Editor));
}

// What stands in an editor. A chosen line of a list stands for its value.
QString TextOf(const QWidget& Editor)
{
    const QString Text = BoxOf(Editor)->text();
    const auto* List = qobject_cast<const QComboBox*>(&Editor);
    const int Line = List ? List->findText(Text) : -1;
    return Line < 0 ? Text : List->itemData(Line).toString();
}

// The index that an editor of a view stands at.
QModelIndex CellOf(const QWidget& Editor)
{
    for (const QWidget* Above = Editor.parentWidget(); Above; Above = Above->parentWidget())
        if (const auto* View = qobject_cast<const QAbstractItemView*>(Above)) return View->currentIndex();
    return {};
}
} // namespace

qCellDelegate::qCellDelegate(QObject& Parent, qGridModel& InitRows) : QStyledItemDelegate(&Parent), Rows(InitRows) {}

QWidget* qCellDelegate::createEditor(QWidget* Parent, const QStyleOptionViewItem&, const QModelIndex& Cell) const
{
    const GridColumn& Column = ColumnOf(Rows, Cell);
    QWidget* Editor = nullptr;
    if (!Column.Choices.empty())
        Editor = MakeList(Parent, Cell);
    else if (Column.Kind == eCell::Date)
        Editor = new qDateBox(Parent);
    else
        Editor = new QLineEdit(Parent);
    QLineEdit* Box = BoxOf(*Editor);
    Box->setFrame(false);
    connect(Box, &QLineEdit::textChanged, this, [this, Box, Editor, Cell = QPersistentModelIndex(Cell)] {
        const std::string Reason = Cell.isValid() ? Refusal(*Editor, Cell) : std::string();
        Box->setStyleSheet(Reason.empty() ? "" : RefusedColour);
        Box->setToolTip(Shown(Reason));
    });
    return Editor;
}

QComboBox* qCellDelegate::MakeList(QWidget* Parent, const QModelIndex& Cell) const
{
    const GridColumn& Column = ColumnOf(Rows, Cell);
    auto* List = new QComboBox(Parent);
    List->setEditable(true);
    List->setInsertPolicy(QComboBox::NoInsert);
    List->setCompleter(nullptr);
    List->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (const Choice& Each : Column.Choices) {
        List->addItem(Shown(Each.Text + "  " + Each.Meaning), Shown(Each.Text));
        if (Column.Kind == eCell::Colour && Rows.Colour) {
            QPixmap Swatch(List->iconSize());
            Swatch.fill(ToQColor(Rows.Colour(Each.Text)));
            List->setItemIcon(List->count() - 1, QIcon(Swatch));
        }
    }
    connect(List, &QComboBox::activated, this, [this, List] { const_cast<qCellDelegate*>(this)->Close(List, true); });
    return List;
}

void qCellDelegate::setEditorData(QWidget* Editor, const QModelIndex& Cell) const
{
    QLineEdit* Box = BoxOf(*Editor);
    Box->setText(Cell.data(Qt::EditRole).toString());
    Box->selectAll();
}

void qCellDelegate::setModelData(QWidget* Editor, QAbstractItemModel* Model, const QModelIndex& Cell) const
{
    Model->setData(Cell, TextOf(*Editor), Qt::EditRole);
}

// A list is as wide as its lines, whatever its column is.
void qCellDelegate::updateEditorGeometry(QWidget* Editor, const QStyleOptionViewItem& Look, const QModelIndex&) const
{
    QRect Place = Look.rect;
    if (qobject_cast<QComboBox*>(Editor) || dynamic_cast<qDateBox*>(Editor))
        Place.setWidth(std::max(Place.width(), Editor->sizeHint().width()));
    if (const QWidget* Viewport = Editor->parentWidget(); Place.right() > Viewport->width())
        Place.moveRight(std::max(Place.width(), Viewport->width()) - 1);
    Editor->setGeometry(Place);
}

std::string qCellDelegate::Refusal(const QWidget& Editor, const QModelIndex& Cell) const
{
    std::string Text = Plain(TextOf(Editor));
    if (Text == Plain(Cell.data(Qt::EditRole).toString())) return {};
    return std::as_const(Rows).Table().Take(Cell.column(), Text, eFrom::Typed);
}

bool qCellDelegate::CheckEditor(QWidget& Editor, const QModelIndex& Cell) const
{
    const std::string Reason = Refusal(Editor, Cell);
    if (Reason.empty()) return true;
    const std::string Words = ColumnOf(Rows, Cell).Head + ": " + Reason;
    QToolTip::showText(Editor.mapToGlobal(QPoint(0, Editor.height())), Shown(Words), &Editor);
    if (Rows.OnRefused) Rows.OnRefused(Words);
    return false;
}

void qCellDelegate::Close(QWidget* Editor, bool IsTaken)
{
    if (IsTaken) Q_EMIT commitData(Editor);
    Q_EMIT closeEditor(Editor, IsTaken ? NoHint : RevertModelCache);
}

// Nothing leaves a cell that does not take its text: neither Enter and Tab nor a click elsewhere, which reaches what
// was clicked only when the editor has lost the keyboard. The button that drops what is typed is an exception.
bool qCellDelegate::eventFilter(QObject* Object, QEvent* Event)
{
    auto* Editor = qobject_cast<QWidget*>(Object);
    if (Event->type() == QEvent::FocusOut && Cancel && QApplication::focusWidget() == Cancel) {
        Close(Editor, false);
        return false;
    }
    if (Event->type() == QEvent::FocusOut && !CheckEditor(*Editor, CellOf(*Editor))) return false;
    if (Event->type() == QEvent::KeyPress) {
        const int Key = static_cast<QKeyEvent*>(Event)->key();
        const bool Leaves =
            Key == Qt::Key_Return || Key == Qt::Key_Enter || Key == Qt::Key_Tab || Key == Qt::Key_Backtab;
        if (Leaves && !CheckEditor(*Editor, CellOf(*Editor))) return true;
    }
    return QStyledItemDelegate::eventFilter(Object, Event);
}
