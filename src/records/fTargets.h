// The window "Targets for immediate feedback", in which the table of Targets.ini is edited.
#pragma once

#include "records/cGrid.h"
#include "records/qGridModel.h"
#include "records/qGridView.h"

#include <QWidget>

#include <functional>

class QLabel;
class QLayout;
class QPushButton;

class fTargets : public QWidget
{
public:
    /// Where place and column widths are kept: a section of the settings, and what its keys begin with.
    static constexpr const char* Section = "TargGrid";
    static constexpr const char* Prefix = "Targets_";

    fTargets();

protected:
    void closeEvent(QCloseEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;

private:
    QLayout* BuildButtons();
    QPushButton* AddButton(const char* Name, const char* Caption, const char* Tip, const std::function<void()>& Action);
    void ShowChoice();
    void Store();
    void Cancel();
    void Leave();

    cGrid Table;
    qGridModel Model;
    qGridView* Grid;
    QLabel* lbChoice;
};
