// The window "Channels Indicator" with the present value of every channel.
#pragma once

#include "calibration/cCheckChans.h"
#include "widgets/qDataWindow.h"

class fCheckChans : public qDataWindow
{
public:
    fCheckChans();

    void SetDumpFN(const std::string& Name) { Chans.SetDumpFN(Name); }
    void DrawData() override { Chans.DrawData(); }
    void SetLive(bool Live) override { Chans.SetLive(Live); }
    void NewSession() override;

protected:
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    void DrawAnew();

    qSurface* Surface;
    cCheckChans Chans;
};
