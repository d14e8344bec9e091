// The desktop program.
#include "app/qProgram.h"
#include "core/shell/fFolders.h"
#include "platform/qt/qText.h"

#include <QStandardPaths>

namespace {
int Main(qToolkit&)
{
    QApplication::setApplicationName("skarvelin");
    qProgram Program(qSettings::UserPath());
    Program.Start(ProgramFolder(Plain(QApplication::applicationDirPath()),
                                Plain(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))));
    return QApplication::exec();
}
} // namespace

int main(int Count, char** Args)
{
    return RunProgram(Count, Args, Main);
}
