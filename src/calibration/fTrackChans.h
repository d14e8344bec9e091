// The window "Channels Indicator" with a sweeping trace of every channel.
#pragma once

#include "calibration/cTrackChans.h"
#include "widgets/qDataWindow.h"

#include <functional>

class fTrackChans : public qDataWindow
{
public:
    fTrackChans();

    void TakeSample() override { Chans.TakeSample(); }
    void DrawData() override { Chans.DrawData(); }
    void SetLive(bool Live) override { Chans.SetLive(Live); }
    void NewSession() override;

    /// What Enter does: begins or ends a dump of the channels. Nothing when it is empty.
    std::function<void()> OnDump;

protected:
    void keyPressEvent(QKeyEvent* Event) override;

private:
    void DrawAnew();

    qSurface* Surface;
    cTrackChans Chans;
};
