// The MPEG player: a clip with four buttons and what the last command gave, driven by the play view.
#pragma once

#include "core/mPlayClock.h"
#include "video/cMovie.h"
#include "video/fVideoPicture.h"

#include <QWidget>

class QLabel;
class QPushButton;

class f2Video : public QWidget
{
public:
    static constexpr const char* Section = "f2Video"; // of the settings

    f2Video();

    /// Opens a clip. False when it cannot be rendered (reported to the user).
    bool VideoFileOpen(const std::string& Path);

    /// Shows the picture of gPlayFrame.
    void GoCurTime();

    cMovie Movie;

protected:
    void keyPressEvent(QKeyEvent* Event) override;
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void wheelEvent(QWheelEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    QPushButton* AddButton(const char* Name, const char* Caption, const char* Tip, void (cMovie::*Work)());
    bool PressKey(int Key);
    void ShowState();

    cPlayFollower Clock;

    fVideoPicture* VideoBox;
    QPushButton* cmdPrev;
    QPushButton* cmdPause;
    QPushButton* cmdPlay;
    QPushButton* cmdNext;
    QLabel* lbSetPos;
    QLabel* lbRetPos;
    QLabel* lbRetVal;
};
