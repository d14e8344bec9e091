// The order in which the desktop program comes up.
#include "app/qProgram.h"

#include "acquisition/mSampling.h"
#include "core/mGlobData.h"
#include "core/shell/fFolders.h"
#include "core/shell/mMain.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qIcons.h"
#include "widgets/qLook.h"

#include <QApplication>
#include <QFileInfo>

namespace {
// Beside an unpacked program, in an installed one, or in the tree that it was built from.
std::string DemoFolder()
{
    const QString Program = QApplication::applicationDirPath();
    for (const QString& Folder : {Program + "/demo", Program + "/../share/skarvelin/demo", QString(SOURCE_DEMO)})
        if (QFileInfo::exists(Folder + "/eight.txt")) return Plain(Folder);
    return {};
}
} // namespace

qProgram::qProgram(const std::string& SettingsPath) : Settings(SettingsPath)
{
    QApplication::setWindowIcon(ProgramIcon());
    SetLook();
    gHost = {&Dialogs, &Status, &Settings, &Clock, &SerialPort, &Socket};
    InitSampling(&SecondSocket);
    Window.emplace(Status);
}

void qProgram::Start(const std::string& Folder)
{
    if (!Window->Load(Folder)) OfferDemo(DemoFolder(), Folder);
    if (!gCurFile.empty()) Guard("Opening the session", LoadCurrentFile);
    Window->show();
}
