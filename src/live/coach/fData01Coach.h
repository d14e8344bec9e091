// The window "Coach's panel": the table of the crew's stroke variables against their targets, time and rates, and the
// recording of what is rowed.
#pragma once

#include "live/coach/cCoach.h"
#include "live/panel/fPanel.h"

#include <QTimer>

#include <array>

class fCoachTable;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

class fData01Coach : public fPanel
{
public:
    /// The targets are those that InitTargets has chosen.
    fData01Coach();

    void TakeSample() override { Panel.TakeSample(); }
    void NewRun() override { Panel.NewRun(); }

protected:
    void DrawPanel() override {}
    void ShowLabels() override;
    void LoadSession() override { Panel.Load(); }
    void FitLabels(QSize Size) override;
    ePanelWish KeyWish(int Key) const override;
    void Closing() override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    QWidget* BuildBar();
    QGroupBox* BuildChoice(const char* Name, const char* Caption, std::array<QRadioButton*, 2>& Buttons,
                           const std::array<const char*, 2>& Captions);
    QWidget* BuildTargets();
    QWidget* BuildCommands();
    QPushButton* AddCommand(const char* Name, const char* Caption);
    void ShowTable();
    void ShowLogging();

    cCoach Panel;
    bool IsNarrow = false;
    int TableNumber = 0; // of the table on the screen
    fReadouts* Readouts;
    fCoachTable* Table;
    QGridLayout* Bar = nullptr;
    QWidget* TargetBox = nullptr;
    QLabel* lbTargGroup = nullptr;
    QWidget* Legend = nullptr;
    QGroupBox* Frame1 = nullptr;
    QGroupBox* frScull = nullptr;
    QWidget* Commands = nullptr;
    std::array<QRadioButton*, 2> opDisplay{};
    std::array<QRadioButton*, 2> opScull{};
    QPushButton* cmdStart = nullptr;
    QTimer Watch; // looks whether a recording has begun or has ended elsewhere
};
