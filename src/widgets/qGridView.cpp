// The grid's keys, its editor and its columns.
#include "widgets/qGridView.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "platform/mHost.h"
#include "widgets/qGridModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {
constexpr int HeadText = Qt::AlignCenter | Qt::TextWordWrap;

std::string ColumnKey(const std::string& Prefix, std::size_t Column)
{
    return Prefix + "ColW_" + FormatNum(static_cast<double>(Column), "00");
}

// An editor takes over what was typed when it loses the focus, which is before the click on a button arrives.
class qCancelDelegate : public QStyledItemDelegate
{
public:
    qCancelDelegate(QObject* Parent, const QWidget& InitButton) : QStyledItemDelegate(Parent), Button(InitButton) {}

    bool eventFilter(QObject* Editor, QEvent* Event) override
    {
        if (Event->type() != QEvent::FocusOut || QApplication::focusWidget() != &Button)
            return QStyledItemDelegate::eventFilter(Editor, Event);
        Q_EMIT closeEditor(qobject_cast<QWidget*>(Editor), RevertModelCache);
        return false;
    }

private:
    const QWidget& Button;
};
} // namespace

qGridView::qGridView(qGridModel& InitModel, QWidget* Parent) : QTableView(Parent), Rows(InitModel)
{
    setModel(&Rows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false); // so that Tab reaches the buttons; while a cell is edited it goes on to the next
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    verticalHeader()->setMinimumWidth(4 * fontMetrics().averageCharWidth());
    horizontalHeader()->setDefaultAlignment(Qt::Alignment(HeadText));
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(2 * fontMetrics().averageCharWidth());
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int Column, int, int Width) {
        if (!IsApplying) At(Shares, Column) = SafeDiv(Width, viewport()->width());
    });
    Shares.assign(static_cast<std::size_t>(Rows.columnCount()), 0);
    GoToRow(0);
}

void qGridView::SetCancel(const QWidget& Button)
{
    setItemDelegate(new qCancelDelegate(this, Button));
}

void qGridView::GoToRow(int Row)
{
    setCurrentIndex(Rows.index(Row, std::max(0, currentIndex().column())));
}

void qGridView::AddRow()
{
    FinishEdit();
    Rows.AddRow();
    GoToRow(Rows.Table().Current());
}

void qGridView::DeleteRow()
{
    CancelEdit();
    const int Column = currentIndex().column();
    Rows.DeleteRow(currentIndex().row());
    setCurrentIndex(Rows.index(Rows.Table().Current(), Column));
}

bool qGridView::Undo()
{
    CancelEdit();
    const int Column = std::max(0, currentIndex().column());
    if (!Rows.Undo()) return false;
    setCurrentIndex(Rows.index(Rows.Table().Current(), Column));
    return true;
}

void qGridView::FinishEdit()
{
    QWidget* Editor = indexWidget(currentIndex());
    if (!Editor) return;
    commitData(Editor);
    closeEditor(Editor, QAbstractItemDelegate::NoHint);
}

void qGridView::CancelEdit()
{
    if (QWidget* Editor = indexWidget(currentIndex())) closeEditor(Editor, QAbstractItemDelegate::RevertModelCache);
}

void qGridView::keyPressEvent(QKeyEvent* Event)
{
    const bool IsPlain = (Event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool IsEnter = Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter;
    if (Event->matches(QKeySequence::Undo))
        Undo();
    else if (IsPlain && Event->key() == Qt::Key_Insert)
        AddRow();
    else if (IsPlain && Event->key() == Qt::Key_Delete)
        DeleteRow();
    else if (IsPlain && IsEnter && state() != EditingState)
        edit(currentIndex());
    else
        QTableView::keyPressEvent(Event);
}

void qGridView::RestoreColumns(const std::string& Section, const std::string& Prefix)
{
    for (std::size_t i = 0; i < Shares.size(); ++i)
        Shares[i] = std::clamp(Val(gHost.Settings->GetSetting(Section, ColumnKey(Prefix, i)).value_or("0")), 0.0, 1.0);
    ApplyShares();
}

void qGridView::KeepColumns(const std::string& Section, const std::string& Prefix) const
{
    for (std::size_t i = 0; i < Shares.size(); ++i)
        if (Shares[i] > 0) gHost.Settings->SaveSetting(Section, ColumnKey(Prefix, i), FormatNum(Shares[i], "0.0000"));
}

void qGridView::resizeEvent(QResizeEvent* Event)
{
    QTableView::resizeEvent(Event);
    ApplyShares();
}

int qGridView::NeededWidth(int Column) const
{
    const QString Head = Rows.headerData(Column, Qt::Horizontal, Qt::DisplayRole).toString();
    return std::max(sizeHintForColumn(Column), HeadRoom(Head, 0).width());
}

// The place of a head that is broken into lines where it is wider than Width; none gives its longest word's.
QSize qGridView::HeadRoom(const QString& Head, int Width) const
{
    const int Margin = 3 * fontMetrics().averageCharWidth();
    const QRect Place(0, 0, std::max(1, Width - Margin), 0);
    return horizontalHeader()->fontMetrics().boundingRect(Place, HeadText, Head).size() + QSize(Margin, Margin);
}

// A width that is not kept is what the column needs and its part of what the grid has to spare. The right edges are
// rounded, not the widths, so that the last column ends where the shares do.
void qGridView::ApplyShares()
{
    IsApplying = true;
    const double Width = viewport()->width();
    std::vector<double> Widths;
    double Spare = Width;
    for (std::size_t i = 0; i < Shares.size(); ++i) {
        Widths.push_back(Shares[i] > 0 ? Shares[i] * Width : NeededWidth(static_cast<int>(i)));
        Spare -= Widths.back();
    }
    const auto Own = static_cast<double>(std::count(Shares.begin(), Shares.end(), 0.0));
    double Edge = 0;
    int Height = 0;
    for (std::size_t i = 0; i < Shares.size(); ++i) {
        const int Column = static_cast<int>(i);
        if (Shares[i] == 0.0) Widths[i] += std::max(0.0, Spare) / Own;
        const double Left = Edge;
        Edge += Widths[i];
        setColumnWidth(Column, static_cast<int>(RoundHalfEven(Edge) - RoundHalfEven(Left)));
        const QString Head = Rows.headerData(Column, Qt::Horizontal, Qt::DisplayRole).toString();
        Height = std::max(Height, HeadRoom(Head, columnWidth(Column)).height());
    }
    horizontalHeader()->setFixedHeight(std::max(Height, fontMetrics().height()));
    IsApplying = false;
}
