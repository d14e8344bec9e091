// The order in which the desktop program comes up.
#include "app/qProgram.h"

#include "acquisition/mSampling.h"
#include "core/mGlobData.h"
#include "core/shell/fFolders.h"
#include "ergometer/cMonitorLink.h"
#include "files/mMain.h"
#include "platform/ffmpeg/mMedia.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qIcons.h"
#include "widgets/qLook.h"

#include <QFileInfo>
#include <QTimer>

#include <cstdio>
#include <utility>

namespace {
std::string DemoFolder()
{
    return FindShipped(Plain(QApplication::applicationDirPath()), "demo", "eight.txt");
}
} // namespace

bool qToolkit::notify(QObject* Receiver, QEvent* Event)
{
    try {
        return QApplication::notify(Receiver, Event);
    } catch (...) {
        Report(FailureReason());
        return false;
    }
}

// The message waits for the end of the event, which may be the painting of a window.
void qToolkit::Report(const std::string& Reason)
{
    std::fputs(("skarvelin: " + Reason + ".\n").c_str(), stderr);
    if (std::exchange(IsReporting, true)) return;
    QTimer::singleShot(0, this, [this, Reason] {
        Guard("The message", [&] {
            MsgBox("What went on has failed: " + Reason +
                       ". Nothing that was stored has been changed. Save what you "
                       "have changed, under another name if in doubt.",
                   TitleError);
            return true;
        });
        IsReporting = false;
    });
}

int RunProgram(int Count, char** Args, int (*Main)(qToolkit& Toolkit))
{
    try {
        qToolkit Toolkit(Count, Args);
        return Main(Toolkit);
    } catch (...) {
        std::fputs(("skarvelin: " + FailureReason() + ".\n").c_str(), stderr);
        return 1;
    }
}

qProgram::qProgram(const std::string& SettingsPath) : Settings(SettingsPath)
{
    QApplication::setWindowIcon(ProgramIcon());
    SetLook();
    gHost = {&Dialogs, &Status, &Settings, &Clock, &SerialPort, &Socket, MakeMedia};
    InitSampling(&SecondSocket);
    gMonitorLink.Use(Monitor.get());
    Window.emplace(Status);
}

// The window goes ahead of the link that it may use, and the link ahead of its way to the monitors.
qProgram::~qProgram()
{
    Window.reset();
    gMonitorLink.Use(nullptr);
}

void qProgram::UseMonitor(std::unique_ptr<iMonitor> Other)
{
    gMonitorLink.Use(Other.get());
    Monitor = std::move(Other);
}

void qProgram::Start(const std::string& Folder)
{
    if (!Window->Load(Folder)) OfferDemo(DemoFolder(), Folder);
    const bool IsLoaded = gCurFile.empty() || Guard("Opening the session", LoadCurrentFile);
    // Saving would put an empty session in its place; a file that is not there may be on a stick that will be.
    if (!IsLoaded && QFileInfo::exists(Shown(gCurFile))) SetCurFile("");
    Window->show();
}
