// The editors of a grid's cells: texts, lists of usual values, dates with a calendar, colours; each shows as it is
// typed in whether the cell takes what stands there.
#pragma once

#include <QStyledItemDelegate>

#include <functional>
#include <string>

class QComboBox;
class qGridModel;

class qCellDelegate : public QStyledItemDelegate
{
public:
    qCellDelegate(QObject& Parent, qGridModel& InitRows);

    /// The button on which a click drops what is being typed.
    const QWidget* Cancel = nullptr;

    /// Whether the cell takes what its editor holds. False: it is said why, beside the editor.
    bool CheckEditor(QWidget& Editor, const QModelIndex& Cell) const;

    QWidget* createEditor(QWidget* Parent, const QStyleOptionViewItem& Look, const QModelIndex& Cell) const override;
    void setEditorData(QWidget* Editor, const QModelIndex& Cell) const override;
    void setModelData(QWidget* Editor, QAbstractItemModel* Model, const QModelIndex& Cell) const override;
    void updateEditorGeometry(QWidget* Editor, const QStyleOptionViewItem& Look, const QModelIndex&) const override;
    bool eventFilter(QObject* Object, QEvent* Event) override;

private:
    QComboBox* MakeList(QWidget* Parent, const QModelIndex& Cell) const;
    std::string Refusal(const QWidget& Editor, const QModelIndex& Cell) const;
    void Close(QWidget* Editor, bool IsTaken);

    qGridModel& Rows;
};
