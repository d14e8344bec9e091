// skarvelin-demo FOLDER [--picture FILE] COMMAND...: the desktop program with its ini file and settings in FOLDER, and
// menu commands given by name, for demonstrations and for pictures of its windows.
#include "app/cProgram.h"
#include "core/mGlobData.h"
#include "platform/qt/qText.h"

#include <QAction>
#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace {
constexpr int FramesForPicture = 300;     // more than a sweep of the traces
constexpr int PatienceForPicture = 60000; // ms

// Saves a picture of the window as soon as enough frames have come and ends the program.
void TakePicture(QWidget& Window, const QString& Path)
{
    Window.setGeometry(0, 0, 1280, 800);
    auto* Look = new QTimer(&Window);
    QObject::connect(Look, &QTimer::timeout, &Window, [&Window, Path, Look] {
        if (gFrameCnt < FramesForPicture) return;
        Look->stop();
        // Few colours are on it, and a table of them makes the file small.
        const QImage Small = Window.grab().toImage().convertToFormat(QImage::Format_Indexed8, Qt::AvoidDither);
        QApplication::exit(Small.save(Path) ? 0 : 1);
    });
    Look->start(50);
    QTimer::singleShot(PatienceForPicture, &Window, [] {
        std::fputs("No frames came.\n", stderr);
        QApplication::exit(1);
    });
}
} // namespace

int main(int Count, char** Args)
{
    QApplication Toolkit(Count, Args);
    QStringList Words = QApplication::arguments().mid(1);
    if (Words.isEmpty()) {
        std::fputs("usage: skarvelin-demo FOLDER [--picture FILE] COMMAND...\n", stderr);
        return 2;
    }
    const std::string Folder = Plain(Words.takeFirst()) + "/";
    cProgram Program(Folder + "settings.ini");
    Program.Start(Folder);
    if (Words.size() > 1 && Words[0] == "--picture") {
        TakePicture(Program.Main(), Words[1]);
        Words = Words.mid(2);
    }
    for (const QString& Word : Words) {
        if (auto* Command = Program.Main().findChild<QAction*>(Word); Command && Command->isEnabled()) {
            Command->trigger();
        } else {
            std::fputs(("There is no command " + Plain(Word) + ".\n").c_str(), stderr);
            return 2;
        }
    }
    return QApplication::exec();
}
