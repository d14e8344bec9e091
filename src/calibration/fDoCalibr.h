// The window "Calibration Process": one channel against known physical values, typed in or measured by a calibrator.
#pragma once

#include "calibration/cCalGraph.h"
#include "calibration/fCalTexts.h"
#include "platform/qt/qSurface.h"
#include "widgets/qDataWindow.h"

#include <QTimer>

#include <array>

class QButtonGroup;
class QCheckBox;
class QLabel;
class QLayout;
class QPushButton;

class fDoCalibr : public qDataWindow
{
public:
    fDoCalibr();

    void TakeSample() override;
    void DrawData() override;
    void SetLive(bool Live) override;

    /// Shows texts, state of the link and caption as they stand now.
    void ShowTexts();

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    // The last command has no number of its own: it undoes what the one before it, or a file, did to the points.
    enum eCommand
    {
        cmdStart,
        cmdStop,
        cmdPut,
        cmdSave,
        cmdExit,
        cmdStore,
        cmdLoad,
        cmdAnalyse,
        cmdSetAuto,
        cmdSaveTable,
        cmdLimits,
        cmdDelete,
        cmdUndo,
        CommandCnt
    };

    QLayout* BuildChoices();
    QWidget* BuildApply();
    QLayout* BuildButtons();

    void Obey(int Command);
    bool Work(int Command);
    bool StartData();
    bool StopData();
    bool ShowPoint(bool IsPoint);
    bool SaveData();
    bool SaveTable();
    void AwaitLoad();
    void DrawAnew();
    bool TakeKey(const QKeyEvent& Event);
    bool TakeLetter(int Key);
    void Leave();

    cCalibr Calibr;
    qSurface* CalGr;
    cCalGraph Graph;
    QLabel* State;
    fCalTexts* Texts = nullptr;
    std::array<QCheckBox*, 4> Flags{};
    std::array<QPushButton*, CommandCnt> Buttons{};
    QButtonGroup* Apply;
    bool HasNewPoints = false; // since they were drawn last
    QTimer Look;               // at the link, which may be gone without a frame
};
