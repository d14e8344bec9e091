// Life of a data window.
#include "platform/qt/qDataWindow.h"

#include <QCloseEvent>

qDataWindow::qDataWindow(const char* Name, const char* Caption) : cDataWindow(DataTag)
{
    setObjectName(Name);
    setWindowTitle(Caption);
    setAttribute(Qt::WA_DeleteOnClose);
}

void qDataWindow::Unload()
{
    // The frame around it in the work area goes with it.
    QWidget* Frame = parentWidget() && parentWidget()->inherits("QMdiSubWindow") ? parentWidget() : this;
    Frame->close();
}

void qDataWindow::closeEvent(QCloseEvent* Event)
{
    Tag.clear();
    QWidget::closeEvent(Event);
}
