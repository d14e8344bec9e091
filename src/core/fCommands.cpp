// The commands of the main window.
#include "core/fCommands.h"

#include "core/frmMain.h"
#include "core/mGlobData.h"
#include "core/mHost.h"
#include "files/mTextIO.h"
#include "platform/qt/qIcons.h"

#include <QMessageBox>

void FileOpen(frmMain& Main)
{
    const std::string Path = ExecComDlg("Load Settings from...", "txt", eFileMode::In, gCurDir);
    if (!Path.empty()) Main.OpenFile(Path);
}

void FileSave(frmMain&)
{
    if (gCurFile.empty()) return MsgBox("There is no session to save: open one first.", TitleInformation);
    if (BackupFile(gCurFile) && WriteDataFile(gCurFile, gFile, SectionFilter::Any)) UpdateStatus("Saved: " + gCurFile);
}

void FileExit(frmMain& Main)
{
    Main.close();
}

void ShowHelp(frmMain&)
{
    MsgBox("Unable to display Help Contents. There is no Help associated with this project.", TitleInformation);
}

void ShowAbout(frmMain& Main)
{
    auto* Box = new QMessageBox(&Main);
    Box->setObjectName("frmAbout");
    Box->setAttribute(Qt::WA_DeleteOnClose);
    Box->setWindowTitle("About Skarvelin");
    Box->setIconPixmap(ProgramIcon().pixmap(64));
    Box->setText("<h2>Skarvelin</h2><p>Version " SKARVELIN_VERSION "</p>");
    Box->setInformativeText("Shows a rowing crew what it does: live channels, recordings, strokes and typical strokes."
                            "<br><br>GNU General Public License, version 3 or later.");
    Box->open();
}
