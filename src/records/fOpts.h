// The window "The Main Options": pages, search and commands around the controls.
#pragma once

#include "records/cOptions.h"

#include <QDialog>

#include <vector>

class QLabel;
class QLayout;
class QLineEdit;
class QTabWidget;
class fOptionControls;

class fOpts : public QDialog
{
public:
    explicit fOpts(QWidget* Parent);

    void done(int Result) override;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    QLayout* BuildSearch();
    QWidget* BuildPage(eOptionPage Page);
    QLayout* BuildButtons();
    void ShowFaults();
    void Search(const QString& Words);
    void GoToFound(int Step);
    void ShowItem(int Index);
    void Apply(bool Closes);

    cOptions Options;
    fOptionControls* Controls;
    QLineEdit* txtSearch;
    QLabel* lbFound;
    QTabWidget* SSTab1;
    QLabel* lbState;
    std::vector<int> Found; // settings that the search has found
    int FoundAt = 0;
};
