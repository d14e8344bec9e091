// The window "Skarvo Erg data": what the rower on an ergometer looks at. It owns its link to the logger.
#pragma once

#include "acquisition/cOwnLink.h"
#include "ergometer/cPMLog.h"
#include "live/ergo/cDamp.h"
#include "live/ergo/cErg.h"
#include "live/ergo/fFigures.h"
#include "live/panel/fPanel.h"
#include "platform/qt/qSerialPort.h"
#include "platform/qt/qSocket.h"
#include "platform/qt/qSurface.h"

#include <QTimer>

class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;

class fData01RP3 : public fPanel
{
public:
    /// Opens its link, and looks for a performance monitor. The targets are those that InitTargets has chosen.
    fData01RP3();
    ~fData01RP3() override;
    fData01RP3(const fData01RP3&) = delete;
    fData01RP3& operator=(const fData01RP3&) = delete;

    void TakeSample() override;
    void NewRun() override { Panel.NewRun(); }

    /// The main window's link stays closed for it.
    bool NeedsLink() const override { return false; }

protected:
    void DrawPanel() override { Panel.DrawData(); }
    void ShowLabels() override;
    void LoadSession() override;
    ePanelWish KeyWish(int Key) const override;
    void FitLabels(QSize Size) override;
    void Closing() override;

private:
    void InitLabels();
    QLayout* BuildMonitor();
    QLayout* BuildBottom();
    QLabel* AddLabel(const char* Name);
    QPushButton* AddButton(const char* Name, const char* Tip);
    void ToggleLog();
    void ShowStroke();
    void ShowTiming();
    void ShowState();
    void ShowMonitor();

    fReadouts* Readouts;
    qSurface* Picture1;
    fFigures* Figures;
    QLabel* lbPMI = nullptr;
    QLineEdit* txtPMI = nullptr;
    QLabel* lbPrompt = nullptr;
    QLabel* lbLink = nullptr;
    QPushButton* cmdDamp = nullptr;
    QPushButton* cmdLog = nullptr;
    cErg Panel;
    cDamp Damp;
    cPMLog PMLog;
    qSerialPort MSComm1;
    qSocket Wireless;
    cOwnLink Link;
    QTimer Timer1;
};
