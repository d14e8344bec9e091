// The window "Rower's Panel": what the rower looks at while rowing, live or from a recording.
#pragma once

#include "live/rower/cRower.h"
#include "platform/qt/qSurface.h"
#include "widgets/qDataWindow.h"

#include <array>
#include <functional>
#include <string>

class QLabel;
class QVBoxLayout;

class fData01real : public qDataWindow
{
public:
    /// Source tells where samples come from; with a table source RawPath is the raw file that is loaded for it. The
    /// targets are those that InitTargets has chosen.
    explicit fData01real(int16_t Source = SourceFrames, const std::string& RawPath = "");

    /// Called with the recording's file when the panel was closed over a running recording, which has ended by then.
    std::function<void(const std::string&)> OnRecorded;

    /// Fills the screen with the panel, or puts it back into its window.
    void ToggleFullScreen();

    void DrawData() override;
    void DoAction(int Code) override;
    void SetLive(bool Live) override;
    void NewSession() override;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    static constexpr std::size_t LabelCnt = 3;

    QWidget* BuildLabels();
    void SizeLabels();
    void ShowLabels();
    void Obey(eRowerWish Wish);

    QVBoxLayout* Room;                      // where the panel is when it does not fill the screen
    QWidget* Body;                          // labels and plots
    std::array<QLabel*, LabelCnt> lbLabs{}; // captions
    std::array<QLabel*, LabelCnt> lbData{}; // values
    qSurface* Surface;
    cRower Panel;
    const int16_t Mode;
};
