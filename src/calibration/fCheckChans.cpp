// Present values of all channels: the surface and the window's keys.
#include "calibration/fCheckChans.h"

#include <QVBoxLayout>

fCheckChans::fCheckChans()
    : qDataWindow("fCheckChans", "Channels Indicator"), Surface(new qSurface(this)), Chans(*Surface)
{
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->addWidget(Surface);
    setFocusPolicy(Qt::StrongFocus);
    resize(560, 480);
    Surface->OnResize = [this] {
        Chans.SetUpPoly();
        Chans.DrawGrid();
    };
}
