// The table behind a grid: a cGrid that is edited cell by cell and row by row, with every step undoable.
#pragma once

#include "records/cGrid.h"

#include <QAbstractTableModel>

#include <deque>
#include <functional>
#include <string>

class qGridModel : public QAbstractTableModel
{
public:
    qGridModel(cGrid Table, QObject* Parent);

    /// The text that a cell of a column takes when something is typed in; without it the text as typed.
    std::function<std::string(int Column, const std::string& Typed)> OnTyped;

    /// Whether a column holds numbers, which stand at the right; without it none does.
    std::function<bool(int Column)> IsNumber;

    /// Called after each change.
    std::function<void()> OnChanged;

    const cGrid& Table() const { return Grid; }

    /// Appends a copy of the last row; nothing in a table without columns. Current() of the table is the new row, here
    /// and below the row to go to.
    void AddRow();

    /// Removes a row; nothing when there is no such row.
    void DeleteRow(int Row);

    /// Takes the last change back. False when there is none.
    bool Undo();

    /// Whether the table is another than at first or at the last SetSaved.
    bool IsChanged() const { return Changes != 0; }
    void SetSaved() { Changes = 0; }

    int rowCount(const QModelIndex& Parent = {}) const override;
    int columnCount(const QModelIndex& Parent = {}) const override;
    QVariant data(const QModelIndex& Cell, int Role) const override;
    QVariant headerData(int Section, Qt::Orientation Direction, int Role) const override;
    Qt::ItemFlags flags(const QModelIndex& Cell) const override;
    bool setData(const QModelIndex& Cell, const QVariant& Value, int Role) override;

private:
    void KeepFormer(int Row);
    void Changed() const;

    cGrid Grid;
    std::deque<cGrid> Former; // the table before each of the last changes
    int Changes = 0;          // steps from the saved table; an undone one counts back
};
