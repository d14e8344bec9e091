// Traces of all channels: the surface and the window's keys.
#include "calibration/fTrackChans.h"

#include "acquisition/mComFast.h"
#include "core/fCommands.h"
#include "core/frmMain.h"

#include <QKeyEvent>
#include <QVBoxLayout>

fTrackChans::fTrackChans()
    : qDataWindow("fTrackChans", "Channels Indicator"), Surface(new qSurface(this)), Chans(*Surface)
{
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->addWidget(Surface);
    setFocusPolicy(Qt::StrongFocus);
    resize(560, 480);
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
    auto* Main = dynamic_cast<frmMain*>(window());
    if (Event->key() == Qt::Key_Escape)
        CloseLink();
    else if (Main && (Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter))
        DumpChannels(*Main);
    else
        qDataWindow::keyPressEvent(Event);
}
