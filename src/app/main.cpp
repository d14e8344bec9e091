// The desktop program.
#include "app/qProgram.h"
#include "core/shell/fFolders.h"
#include "platform/qt/qText.h"

#include <QApplication>
#include <QStandardPaths>

int main(int Count, char** Args)
{
    QApplication Toolkit(Count, Args);
    QApplication::setApplicationName("skarvelin");
    qProgram Program(qSettings::UserPath());
    Program.Start(ProgramFolder(Plain(QApplication::applicationDirPath()),
                                Plain(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))));
    return QApplication::exec();
}
