// The window "ReZeroing Channels": a group of unloaded channels with their counts, and their zeros.
#pragma once

#include "calibration/cReZero.h"
#include "widgets/qDataWindow.h"

#include <QTimer>

#include <array>

/// What the window zeroes: channels of the session, or the automatic calibrator.
enum eReZeroMode
{
    ReZeroChannels,
    ReZeroCalibrator
};

class QButtonGroup;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;

class fDoReZero : public qDataWindow
{
public:
    /// CalibratorMode: the window sets the zero of the automatic calibrator.
    explicit fDoReZero(bool CalibratorMode);

    cReZero& Zeros() { return ReZeroing; }

    /// Shows group Index, as its option button does.
    void ChooseGroup(int Index);

    void StartData();
    void StopData();

    /// Shows rows and texts as they stand now.
    void ShowRows();

    void TakeSample() override { ReZeroing.TakeSample(); }
    void DrawData() override { ShowRows(); }
    void SetLive(bool Live) override;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    static constexpr int Columns = 8;

    QGroupBox* BuildGroups();
    QLayout* BuildRows();
    QLayout* BuildCommands();
    void AddNewContr();
    void GetFromLogger();
    void ReZero();
    void SaveData();
    void ShowState();

    cReZero ReZeroing;
    QButtonGroup* opParGr;
    std::array<std::array<QLineEdit*, Columns>, cReZero::MaxRows> Boxes{};
    QLabel* State;
    QTimer Look; // at the link
    int Group = -1;
};
