// The desktop program: the one place where its objects are put together.
#include "core/fFolders.h"
#include "core/frmMain.h"
#include "core/mGlobData.h"
#include "core/mHost.h"
#include "core/mMain.h"
#include "platform/qt/qClock.h"
#include "platform/qt/qDialogs.h"
#include "platform/qt/qIcons.h"
#include "platform/qt/qLook.h"
#include "platform/qt/qSerialPort.h"
#include "platform/qt/qSettings.h"
#include "platform/qt/qSocket.h"
#include "platform/qt/qStatus.h"
#include "platform/qt/qText.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>

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

int main(int Count, char** Args)
{
    QApplication Program(Count, Args);
    QApplication::setApplicationName("skarvelin");
    QApplication::setWindowIcon(ProgramIcon());
    SetLook();

    qDialogs Dialogs;
    qStatus Status;
    qSettings Settings(qSettings::UserPath());
    qClock Clock;
    qSerialPort SerialPort;
    qSocket Socket;
    gHost = {&Dialogs, &Status, &Settings, &Clock, &SerialPort, &Socket};

    const std::string Folder = ProgramFolder(Plain(QApplication::applicationDirPath()),
                                             Plain(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
    frmMain Main(Status);
    if (!Main.Load(Folder)) OfferDemo(DemoFolder(), Folder);
    if (!gCurFile.empty()) Guard("Opening the session", LoadCurrentFile);
    Main.show();
    return QApplication::exec();
}
