// The status bar of the main window as the engine's status line.
#pragma once

#include "platform/iStatus.h"
#include "platform/qt/qPace.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

class QLabel;
class QProgressBar;

class qStatus : public iStatus
{
public:
    qStatus();

    /// Uses the widgets of a window; they must live as long as the status line is used.
    void Attach(std::array<QLabel*, 3> NewPanels, QProgressBar* NewProgress);

    /// Detaches the widgets: texts from now on are dropped.
    void Detach();

    /// Called when panel 1, the title of the session, changes.
    std::function<void()> OnTitle;

    /// The text is on the screen with the next picture.
    void SetPanel(int Panel, const std::string& Text) override;

    /// Long work runs without pictures in between: texts and progress are on the screen at once.
    void SetProgress(int Percent) override;

    /// Whether Esc was pressed. Windows are painted meanwhile; other keys and the mouse do nothing during long work,
    /// and timers and links wait for its end.
    bool IsCancelled() override;

private:
    void Show();

    std::array<QLabel*, 3> Panels{};
    std::array<std::optional<std::string>, 3> Waiting;
    qPace Refresh;
    QProgressBar* Progress = nullptr;
};
