// The desktop program's objects, put together.
#pragma once

#include "core/shell/frmMain.h"
#include "platform/qt/qClock.h"
#include "platform/qt/qDialogs.h"
#include "platform/qt/qSerialPort.h"
#include "platform/qt/qSettings.h"
#include "platform/qt/qSocket.h"
#include "platform/qt/qStatus.h"

#include <optional>
#include <string>

class qProgram
{
public:
    /// SettingsPath is the file of the settings store.
    explicit qProgram(const std::string& SettingsPath);

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
    std::optional<frmMain> Window;
};
