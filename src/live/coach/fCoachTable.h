// The coach's table on the screen: lines and columns that fill the window evenly, with letters as large as they fit, so
// that it is read at arm's length in the sun.
#pragma once

#include "live/coach/cCoach.h"
#include "live/coach/fCoachCell.h"

#include <QWidget>

#include <vector>

class QGridLayout;
class QLabel;

class fCoachTable : public QWidget
{
public:
    explicit fCoachTable(QWidget* Parent);

    /// Makes the table's labels anew. They are named lbSeatName_, lbVarName_ and txtTargets_ with their line or column,
    /// and lbV_ with the number of lines times the column plus the line; lbNote stands in place of what there is not.
    void Build(const cCoach& Panel);

    /// Shows what the cells hold now.
    void ShowValues(const cCoach& Panel);

protected:
    void resizeEvent(QResizeEvent* Event) override;

private:
    QLabel* AddLabel(const QString& Name, const QString& Text, int Row, int Column);
    void AddHeads(const cCoach& Panel);
    void AddRow(const cCoach& Panel, int Row);
    void AddNote(const std::string& Words, bool HasRows);
    void StretchColumns();
    void StretchLines();
    void Fit();
    void FitValues();

    QGridLayout* Grid = nullptr;
    std::vector<QLabel*> Names;
    std::vector<QLabel*> Heads;
    std::vector<QLabel*> Targets;
    std::vector<fCoachCell*> Cells; // line by line
    int Columns = 0;
    int Longest = 0; // letters of the longest value
};
