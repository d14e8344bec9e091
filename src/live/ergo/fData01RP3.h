// The window "Skarvo Erg data": what the rower on an ergometer looks at. It owns its link to the logger.
#pragma once

#include "acquisition/cOwnLink.h"
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
    /// Opens its link, too. The targets are those that InitTargets has chosen.
    fData01RP3();

    void TakeSample() override { Panel.TakeSample(); }
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
    QLayout* BuildMonitor();
    QLayout* BuildBottom();
    QLabel* AddLabel(const char* Name);
    QPushButton* AddButton(const char* Name, const char* Tip);
    void ShowStroke();
    void ShowTiming();
    void ShowState();

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
    qSerialPort MSComm1;
    qSocket Wireless;
    cOwnLink Link;
    QTimer Timer1;
};
