// The dialog "Skarvelin Setup": settings, devices and commands of the logger, and the log of all exchanges.
#pragma once

#include "acquisition/cLoggerSetUp.h"

#include <QDialog>
#include <QTimer>

#include <vector>

class fDeviceTab;
class fSettingBox;
class fSlaveBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTabWidget;
class QTreeWidget;

class fADCsetup : public QDialog
{
public:
    explicit fADCsetup(QWidget* Parent);

    cLoggerSetUp& SetUp() { return Logger; }

    void done(int Result) override;

private:
    // A button: its name, caption, tool tip and what it does.
    struct ButtonShape
    {
        const char* Name;
        const char* Caption;
        const char* Tip;
        void (fADCsetup::*Action)();
    };

    QWidget* BuildState();
    QWidget* BuildSampling();
    QWidget* BuildSensors();
    QWidget* BuildCommands();
    QWidget* BuildLog();
    QLayout* BuildButtons();
    QPushButton* AddButton(const ButtonShape& Shape);
    void AddTab(QWidget* Page, const char* Title);

    void ShowState();
    void ShowLog();
    void Stop();
    void CopyLog();
    void SendText();
    void ReadResponse();
    void AskADC();
    void AskSerial();
    void SetClock();
    void ZeroAcc();
    void RunAndExit();
    void Save();
    void Read();
    void Reset();

    cLoggerSetUp Logger;
    QTimer Refresh; // shows several changes at once
    std::vector<fSettingBox*> Settings;
    std::vector<fDeviceTab*> Devices;
    QTabWidget* Tabs = nullptr;
    fSlaveBox* Slaves = nullptr;
    QLabel* State = nullptr;
    QProgressBar* Progress = nullptr;
    QPushButton* Stopper = nullptr;
    std::vector<std::pair<QLabel*, const char*>> Values; // of keys
    QLineEdit* txtSend = nullptr;
    QPlainTextEdit* txtResp = nullptr;
    QTreeWidget* Log = nullptr;
};
