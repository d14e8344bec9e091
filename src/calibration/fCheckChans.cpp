// Present values of all channels: the surface and the window's keys.
#include "calibration/fCheckChans.h"

#include "acquisition/mComFast.h"
#include "files/mDump.h"

#include <QKeyEvent>

fCheckChans::fCheckChans() : qDataWindow("fCheckChans", "Channels Indicator"), Surface(AddSurface()), Chans(*Surface)
{
    Surface->OnResize = [this] { DrawAnew(); };
}

void fCheckChans::NewSession()
{
    Chans.Load();
    DrawAnew();
}

void fCheckChans::DrawAnew()
{
    Chans.SetUpPoly();
    Chans.DrawGrid();
}

void fCheckChans::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_Escape) {
        CloseLink();
        CloseDForms();
    } else if (Event->key() == Qt::Key_Space) {
        if (gLinkWatch.State() != cLinkWatch::eState::Closed)
            CloseLink();
        else if (OpenLink())
            SendRun();
    } else {
        qDataWindow::keyPressEvent(Event);
    }
}

void fCheckChans::closeEvent(QCloseEvent* Event)
{
    StopDump();
    qDataWindow::closeEvent(Event);
}
