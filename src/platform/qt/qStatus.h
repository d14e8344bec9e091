// The status bar of the main window as the engine's status line.
#pragma once

#include "platform/iStatus.h"

#include <QElapsedTimer>
#include <QTimer>

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

    /// Lets go of the widgets: what is told from now on is dropped.
    void Detach();

    /// Called when panel 1, the title of the session, changes.
    std::function<void()> OnTitle;

    void SetPanel(int Panel, const std::string& Text) override;
    void SetProgress(int Percent) override;

    /// Whether Esc was pressed. Windows are painted meanwhile; other keys and the mouse do nothing while long work goes
    /// on, and timers and links wait for its end.
    bool IsCancelled() override;

private:
    void Show();

    std::array<QLabel*, 3> Panels{};
    std::array<std::optional<std::string>, 3> Waiting;
    QTimer Delay;
    QProgressBar* Progress = nullptr;
    QElapsedTimer SincePaint;
};
