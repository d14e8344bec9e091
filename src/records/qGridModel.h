// The table behind a grid, for the toolkit: a cGrid that is edited in steps.
#pragma once

#include "records/cGrid.h"

#include <QAbstractTableModel>

#include <functional>
#include <string>

class qGridModel : public QAbstractTableModel
{
public:
    /// Table outlives the model; all changes of it go through here.
    qGridModel(cGrid& Table, QObject* Parent);

    /// Called after each change.
    std::function<void()> OnChanged;

    /// Called with why a cell did not take what was put into it, and with an empty text when one did.
    std::function<void(const std::string& Reason)> OnRefused;

    /// What is to be remarked about a cell, which is marked then; empty: nothing.
    std::function<std::string(int Row, int Column)> Remark;

    /// The colour of a number of the colour table, 0x00BBGGRR.
    std::function<int32_t(const std::string& Number)> Colour;

    cGrid& Table() { return Grid; }
    const cGrid& Table() const { return Grid; }

    /// Makes a change. Table().Current() is the row to go to, here and below.
    void Do(const GridStep& Step);

    /// Takes the last change back, or does it again. False when there is none.
    bool Undo();
    bool Redo();

    /// Shows the table anew: it was filled with other rows.
    void Refill();

    int rowCount(const QModelIndex& Parent = {}) const override;
    int columnCount(const QModelIndex& Parent = {}) const override;
    QVariant data(const QModelIndex& Cell, int Role) const override;
    QVariant headerData(int Section, Qt::Orientation Direction, int Role) const override;
    Qt::ItemFlags flags(const QModelIndex& Cell) const override;
    bool setData(const QModelIndex& Cell, const QVariant& Value, int Role) override;

private:
    void Change(const GridStep& Step, const std::function<void()>& Make);
    void Changed() const;
    QString ToolTip(const QModelIndex& Cell) const;

    cGrid& Grid;
};
