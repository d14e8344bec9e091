// The window of the performance monitor: discovery, polling, and what the monitor says at each change.
#pragma once

#include "ergometer/cMonitorLink.h"

#include <QTimer>
#include <QWidget>

#include <array>

class QLabel;
class QLayout;
class QPlainTextEdit;
class QPushButton;

class fPMI : public QWidget
{
public:
    fPMI();
    ~fPMI() override;
    fPMI(const fPMI&) = delete;
    fPMI& operator=(const fPMI&) = delete;

protected:
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    QLayout* BuildCommands();
    QLayout* BuildFigures();
    QLayout* BuildBox(int Number, const char* Caption);
    QLabel* AddLabel(const char* Name);
    QPushButton* AddButton(const char* Name, const char* Caption, const char* Tip);
    void ShowNews();
    void ShowState(const PMSnapshot& Monitor, int64_t Now);
    void ShowFigures(const PMSnapshot& Monitor, bool IsConnected);

    static constexpr int Boxes = 2;
    static constexpr int Figures = 7;

    QPushButton* Command1;
    QPushButton* Command2;
    QPushButton* Command3;
    QLabel* lbUnit;
    QLabel* lbState;
    QLabel* lbReport; // what went wrong last
    std::array<QLabel*, Figures> lbFigures{};
    std::array<QPlainTextEdit*, Boxes> Texts{};
    QTimer Timer1; // looks for what has come
};
