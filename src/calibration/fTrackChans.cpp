// Traces of all channels: the surface and the window's keys.
#include "calibration/fTrackChans.h"

#include "acquisition/mComFast.h"

#include <QKeyEvent>

fTrackChans::fTrackChans() : qDataWindow("fTrackChans", "Channels Indicator"), Surface(AddSurface()), Chans(*Surface)
{
    Surface->OnResize = [this] { DrawAnew(); };
}

void fTrackChans::NewSession()
{
    Chans.Load();
    DrawAnew();
}

void fTrackChans::DrawAnew()
{
    Chans.SetUpPoly();
    Chans.DrawGrid();
}

void fTrackChans::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_Escape)
        CloseLink();
    else if (OnDump && (Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter))
        OnDump();
    else
        qDataWindow::keyPressEvent(Event);
}
