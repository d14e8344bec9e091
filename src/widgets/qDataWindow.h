// A window that takes frames, as a child of the main window.
#pragma once

#include "core/mDataWindow.h"
#include "platform/qt/qSurface.h"

#include <QWidget>

class qDataWindow : public QWidget, public cDataWindow
{
public:
    /// Name is the window's object name.
    qDataWindow(const char* Name, const char* Caption);

    /// Closes the window; it is gone in a later turn of the event loop and takes no frames from now on.
    void Unload() override;

protected:
    /// Fills the window with a surface, and lets it take keys.
    qSurface* AddSurface();

    void closeEvent(QCloseEvent* Event) override;
};
