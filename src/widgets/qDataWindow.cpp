// Life of a data window.
#include "widgets/qDataWindow.h"

#include <QCloseEvent>
#include <QVBoxLayout>

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

qSurface* qDataWindow::AddSurface()
{
    auto* Surface = new qSurface(this);
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->addWidget(Surface);
    setFocusPolicy(Qt::StrongFocus);
    resize(560, 480);
    return Surface;
}

void qDataWindow::closeEvent(QCloseEvent* Event)
{
    Tag.clear();
    QWidget::closeEvent(Event);
}
