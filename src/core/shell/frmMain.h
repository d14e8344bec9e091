// The main window: menus, toolbar, status bar, and the area that holds all other windows.
#pragma once

#include "core/mNotice.h"
#include "platform/qt/qStatus.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

class QAction;
class QProgressBar;
class qWorkArea;

class frmMain : public QMainWindow
{
public:
    /// Status is the status line that the window's panels stand for.
    explicit frmMain(qStatus& InitStatus);
    ~frmMain() override;

    /// Reads settings and the ini file of the program's folder and makes the window look as they say; after it the
    /// window can be shown. False when there is no ini file (reported to the user).
    bool Load(const std::string& Folder);

    /// Sees to it that another session can take the place of the open one: ends a recording, a replay and the link once
    /// that is confirmed, and closes windows with unsaved work, which ask. False when something stays as it is.
    bool EndForSession();

    /// Opens a session behind EndForSession. One that cannot be read leaves the former one open.
    void OpenFile(const std::string& Path);

    /// Puts a window into the area and shows it.
    void AddWindow(QWidget* Window);

    /// Size of the area.
    QSize AreaSize() const;

    /// Brings a window of the area to the front and gives it the keyboard.
    void Activate(QWidget& Window);

    /// Overlaps the windows.
    void Cascade();

    /// Fills the area: Horizontal as bands across it, Vertical side by side.
    void Tile(Qt::Orientation Direction);

    /// Puts these windows of the area side by side in front of the others, the first one on the left.
    /// With Horizontal one below the other.
    void PlaceBeside(const std::vector<QWidget*>& Windows, Qt::Orientation Direction = Qt::Vertical);

    /// Shows toolbar and status bar as their menu entries are checked.
    void ShowBars();

protected:
    void closeEvent(QCloseEvent* Event) override;
    void dragEnterEvent(QDragEnterEvent* Event) override;
    void dropEvent(QDropEvent* Event) override;

private:
    void BuildMenus();
    void BuildToolBar();
    QWidget* BuildConnection();
    void BuildStatusBar();
    void PlaceWindow();
    void KeepPlace();
    void ShowTitle();
    void ShowLogging();
    void ShowOptions();
    QAction* Command(const char* Name) const;
    void Run(const QString& Caption, const std::function<void()>& Action);

    qStatus& Status;
    qWorkArea* Area;
    cListener Options;
    QTimer Watch; // looks whether a recording has begun, starves or has ended
    bool IsLogShown = false;
};
