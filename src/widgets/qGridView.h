// A grid on the screen: keys for rows and cells, and columns whose widths are kept as shares of the grid's width.
#pragma once

#include <QTableView>

#include <string>
#include <vector>

class qGridModel;

class qGridView : public QTableView
{
public:
    qGridView(qGridModel& InitModel, QWidget* Parent);

    /// Appends a row, or deletes the one that the cursor is in, and goes to the row that is next.
    void AddRow();
    void DeleteRow();

    /// Takes the last change back and goes where it was. False when there is none.
    bool Undo();

    /// Ends the editing of a cell: what is typed goes into the cell, or is dropped.
    void FinishEdit();
    void CancelEdit();

    /// A button on which a click drops what is being typed; elsewhere a click puts it into the cell.
    void SetCancel(const QWidget& Button);

    /// Goes to a row, in the column that the cursor is in.
    void GoToRow(int Row);

    /// The columns' widths as shares of the grid's, under Prefix and the keys "ColW_00", "ColW_01" .... A column
    /// without a kept one gets room for its texts, and a part of what is to spare.
    void RestoreColumns(const std::string& Section, const std::string& Prefix);
    void KeepColumns(const std::string& Section, const std::string& Prefix) const;

protected:
    void keyPressEvent(QKeyEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;

private:
    int NeededWidth(int Column) const;
    QSize HeadRoom(const QString& Head, int Width) const;
    void ApplyShares();

    qGridModel& Rows;
    std::vector<double> Shares; // of the width, by column; 0 stands for a width of its own
    bool IsApplying = false;
};
