// The window of a live panel with curves: the surface that they are drawn on, and the panel's engine class.
#pragma once

#include "core/mIni.h"
#include "core/mNotice.h"
#include "live/panel/fPanel.h"
#include "platform/qt/qSurface.h"

#include <string>

/// Engine is constructed on a surface and has TakeSample, DrawData, NewRun and Resize.
template <class Engine>
class fCurvePanel : public fPanel
{
public:
    void TakeSample() override { Panel.TakeSample(); }
    void NewRun() override { Panel.NewRun(); }

protected:
    fCurvePanel(const char* Name, const char* Caption, int16_t InitSource, const char* SurfaceName)
        : fPanel(Name, Caption, InitSource), Surface(new qSurface(Body)), Panel(*Surface)
    {
        Surface->setObjectName(SurfaceName);
        Surface->SetBackground(Background);
        Surface->OnResize = [this] { Panel.Resize(); };
        AddFading(*Surface);
    }

    /// The settings that an open panel follows at once may have changed.
    virtual void OptionsChanged()
    {
        if (Background == gBackground) return;
        Surface->SetBackground(Background = gBackground);
        Panel.Resize();
    }

    void DrawPanel() override { Panel.DrawData(); }

    qSurface* const Surface;
    Engine Panel;

private:
    std::string Background = gBackground; // the picture's file
    cListener Listener{[this](eNotice What) {
        if (What == eNotice::OptionsSaved) OptionsChanged();
    }};
};
