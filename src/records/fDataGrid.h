// The record grid: the window in which the rows of one kind are edited.
#pragma once

#include "core/mNotice.h"
#include "records/cDataGrid.h"
#include "records/qGridModel.h"
#include "records/qGridView.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class fCrewDB;

class fDataGrid : public QWidget
{
public:
    /// Where place and column widths are kept: a section of the settings. What the keys begin with is the kind.
    static constexpr const char* Section = "DataGrid";

    /// Rows is loaded.
    explicit fDataGrid(std::unique_ptr<cDataGrid> InitRows);

    /// Opens the report of a sample of gFile.Desc.
    std::function<void(int16_t Sample)> OnSample;

protected:
    void closeEvent(QCloseEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;

    /// The keys of the grid that move in its rows.
    bool eventFilter(QObject* Object, QEvent* Event) override;

private:
    struct Button
    {
        const char* Name;
        const char* Caption;
        const char* Tip;
        std::function<void()> Action;
    };

    bool IsKind(const char* Name) const { return Rows->Kind.Name == std::string(Name); }
    std::string Prefix() const { return std::string(Rows->Kind.Name) + "_"; }
    void BuildGrid();
    QWidget* BuildFilter();
    QLayout* BuildMoves();
    QLayout* BuildButtons();
    std::vector<Button> Buttons();
    std::vector<Button> OwnButtons();
    QPushButton* AddButton(const Button& Made);
    void AddRowersDB();
    void ShowRowersDB();

    void ShowPosition();
    void ShowWords(const std::string& Words);
    void Move(bool HasMoved);
    void GoToEnd(int Row, int By);

    void Store();
    bool Save();
    void SaveAs();
    void Import(const char* Title, const char* Ext);
    void Export();
    void ReadIDs();
    void TakeAntro();
    void ChangeColour();
    void OpenSample(const QModelIndex& Cell);
    void Hear(eNotice What);
    void Leave();
    bool HasChanges() const { return Rows->Grid.IsChanged() || Rows->Crew.IsChanged(); }

    std::unique_ptr<cDataGrid> Rows;
    qGridModel Model;
    qGridView* Grid;
    QWidget* Filter = nullptr;
    QLineEdit* txtFilter;
    QLabel* lblStatus;
    QLabel* lbWords;
    fCrewDB* RowersDB = nullptr;
    bool IsLeaving = false;
    bool IsStoring = false;
    cListener Session;
};
