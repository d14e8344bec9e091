// The frame of a live panel's window: full screen, keys, labels at the picture rate, values that turn grey when frames
// stop, the question on closing over a recording, and its hand-over to the data view.
//
// A new panel is a class derived from fPanel beside an engine class that takes samples and draws:
//  - its constructor gives fPanel the window's name, which is also the section of its settings, the caption and the
//    source of samples, puts its controls into Body (what fills the screen at F11), names them to AddFading where they
//    show values, and to AddReadouts where they are rows of large labels, then calls Begin;
//  - TakeSample has the engine class take the frame in gData: it runs for every frame and draws nothing. DrawPanel has
//    it draw what has come: it runs once for an arrival of frames. A surface's OnResize calls the engine class itself;
//  - NewRun has the engine class begin its figures anew: the logger was restarted, and TakeSample comes next;
//  - ShowLabels sets all labels from the engine class; it runs as often as pictures are shown (gPictureRate);
//  - LoadSession takes over the session that is in gFile now, with the engine class's figures from the start;
//  - FitLabels sizes large labels that stand in no row of readouts;
//  - KeyWish names what keys ask for when that is more than Escape and the space bar (F11 is always there), LogPressed
//  is the slot of a button that
//    starts and stops a recording, Closing keeps the panel's own settings when it is closed.
// The shell makes the panel, gives it its place (RestorePlace with the window's name) and sets OnRecorded.
#pragma once

#include "live/panel/cPanelFrame.h"
#include "live/panel/fReadouts.h"
#include "platform/qt/qPace.h"
#include "widgets/qDataWindow.h"

#include <functional>
#include <string>
#include <vector>

class QVBoxLayout;

class fPanel : public qDataWindow
{
public:
    /// Called with the recording's file when the panel was closed over a running recording, which has ended by then.
    std::function<void(const std::string&)> OnRecorded;

    /// Fills the screen with the panel, or puts it back into its window.
    void ToggleFullScreen();

    void TakeSample() override = 0;
    void NewRun() override = 0;
    void DrawData() override;
    void DoAction(int Code) override;
    void SetLive(bool Live) override;
    void NewSession() override;

protected:
    /// Name is also the section of the panel's settings; InitSource is a SourceMode.
    fPanel(const char* Name, const char* Caption, int16_t InitSource);

    /// The panel's controls are made: shows them.
    void Begin();

    virtual void DrawPanel() = 0;
    virtual void ShowLabels() = 0;
    virtual void LoadSession() = 0;
    virtual ePanelWish KeyWish(int Key) const;
    virtual void FitLabels(QSize /*Panel*/) {} // those that are no readouts, for a panel of that size
    virtual void Closing() {}

    /// Part is grey while no frames come.
    void AddFading(QWidget& Part) { Fading.push_back(&Part); }

    /// Readouts grow with the panel, and their values are grey while no frames come.
    void AddReadouts(fReadouts& Row);

    void Obey(ePanelWish Wish);
    void LogPressed() { Obey(cPanelFrame::PressLog()); }

    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

    QWidget* const Body;
    const int16_t Source;

private:
    void Fit();

    const char* const Section;
    QVBoxLayout* Room; // where Body is when it does not fill the screen
    std::vector<QWidget*> Fading;
    std::vector<fReadouts*> Rows;
    cPanelFrame Frame;
    qPace Labels;
};
