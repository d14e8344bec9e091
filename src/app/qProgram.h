// The desktop program's objects, put together.
#pragma once

#include "core/shell/frmMain.h"
#include "platform/hid/mUsbMonitor.h"
#include "platform/qt/qClock.h"
#include "platform/qt/qDialogs.h"
#include "platform/qt/qSerialPort.h"
#include "platform/qt/qSettings.h"
#include "platform/qt/qSocket.h"
#include "platform/qt/qStatus.h"

#include <QApplication>

#include <memory>
#include <optional>
#include <string>

/// The event loop of the program. A failure outside every command, or memory that cannot be had, ends what went on with
/// a message, and the program goes on with all that it holds.
class qToolkit : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* Receiver, QEvent* Event) override;

private:
    void Report(const std::string& Reason);

    bool IsReporting = false; // one message at a time: what fails may do so with each event
};

/// Runs the program's main function. An exception that leaves it ends the program with a line on stderr and exit
/// code 1.
int RunProgram(int Count, char** Args, int (*Main)(qToolkit& Toolkit));

class qProgram
{
public:
    /// SettingsPath is the file of the settings store.
    explicit qProgram(const std::string& SettingsPath);
    ~qProgram();
    qProgram(const qProgram&) = delete;
    qProgram& operator=(const qProgram&) = delete;

    /// Takes another way to performance monitors in place of USB.
    void UseMonitor(std::unique_ptr<iMonitor> Other);

    /// Starts with Folder as the program's folder and shows the main window.
    void Start(const std::string& Folder);

    frmMain& Main() { return *Window; }

private:
    qDialogs Dialogs;
    qStatus Status;
    qSettings Settings;
    qClock Clock;
    qSerialPort SerialPort;
    qSocket Socket;
    qSocket SecondSocket; // beside a silent connection
    std::unique_ptr<iMonitor> Monitor = MakeUsbMonitor();
    std::optional<frmMain> Window;
};
