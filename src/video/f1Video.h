// The video window: a clip's picture, and below it the slider and the buttons that step and play it.
#pragma once

#include "core/mDataWindow.h"
#include "core/mPlayClock.h"
#include "video/cVideo.h"
#include "video/fVideoPicture.h"

#include <QTimer>
#include <QWidget>

#include <array>
#include <functional>
#include <string>

class QCheckBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSlider;

class f1Video : public QWidget, public cDataWindow
{
public:
    static constexpr const char* Section = "1Video"; // of the settings

    f1Video();

    /// Opens a clip. False when it cannot be rendered (reported to the user); the window stays empty and says so.
    bool VideoFileOpen(const std::string& Path);

    /// Shows a still picture in place of a clip, for digitising. False when it cannot be read (reported to the user).
    bool JPGOpen(const std::string& Path);

    /// Shows the picture of gPlayFrame: another window moved the clock.
    void GoCurTime();

    /// A button's work by its number, eVideoAction.
    void DoAction(int Code) override;

    void DrawData() override { Video.DrawData(); }
    void SetLive(bool) override {}
    bool NeedsLink() const override { return false; }
    void NewSession() override {} // a clip belongs to no session
    void Unload() override;

    /// Called when the window closes.
    std::function<void()> OnClosed;

    /// What a button cmdDigIt does, by its number; without it the buttons are grey.
    void SetOnDigit(std::function<void(int Index)> Work);

    /// Whether the window may close: what it holds is saved, or may be lost.
    std::function<bool()> MayClose;

    /// Writes the slider, the texts and the picture anew.
    void ShowState();

    cVideo Video;
    fVideoPicture* const picVideoWindow;
    QSlider* Slider1 = nullptr;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void wheelEvent(QWheelEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    QWidget* BuildControls();
    QLayout* BuildSlider();
    QLayout* BuildButtons();
    QWidget* BuildSize();
    QPushButton* AddButton(const QString& Name, const char* Caption, const char* Tip, std::function<void()> Work);
    bool PressKey(const QKeyEvent& Event);
    void ChangeFile();
    void SetWinSize();
    void Moved();
    void TakeIndex();
    void ShowClip();

    double mSize = 1; // display scale
    cPlayFollower Clock;
    bool IsFollowing = false; // another window moved the clock
    QTimer IndexLook;
    std::function<void(int)> OnDigit;
    QLineEdit* txtElapsed = nullptr;
    QLabel* lbClip = nullptr; // what the clip is, and how far its index is made
    std::array<QPushButton*, 7> cmdVidContr{};
    std::array<QPushButton*, 3> cmdDigIt{};
    QCheckBox* chAspect = nullptr;
    std::array<QRadioButton*, 3> optSize{};
};
