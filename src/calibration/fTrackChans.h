// The window "Channels Indicator" with a sweeping trace of every channel.
#pragma once

#include "calibration/cTrackChans.h"
#include "widgets/qDataWindow.h"

class fTrackChans : public qDataWindow
{
public:
    fTrackChans();

    void DrawData() override { Chans.DrawData(); }
    void SetLive(bool Live) override { Chans.SetLive(Live); }
    void NewSession() override;

protected:
    void keyPressEvent(QKeyEvent* Event) override;

private:
    void DrawAnew();

    qSurface* Surface;
    cTrackChans Chans;
};
