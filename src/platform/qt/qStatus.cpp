// Status panels that keep up with long work and cost little when frames come fast.
#include "platform/qt/qStatus.h"

#include "platform/qt/qText.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>

namespace {
// Lets nothing begin while long work goes on, and sees Esc. A timer that is held back here fires again later.
class WorkGate : public QObject
{
public:
    bool IsEscaped = false;

    bool eventFilter(QObject*, QEvent* Event) override
    {
        switch (Event->type()) {
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress:
            if (static_cast<const QKeyEvent*>(Event)->key() == Qt::Key_Escape) IsEscaped = true;
            return true;
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::ContextMenu:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::Drop:
        case QEvent::Close:
        case QEvent::Timer:
            return true;
        default:
            return false;
        }
    }
};
} // namespace

qStatus::qStatus() : Refresh([this] { Show(); }) {}

void qStatus::Attach(std::array<QLabel*, 3> NewPanels, QProgressBar* NewProgress)
{
    Panels = NewPanels;
    Progress = NewProgress;
}

void qStatus::Detach()
{
    Panels = {};
    Progress = nullptr;
}

// Laying a text out costs more than the frame that it is about, so it waits for the next picture.
void qStatus::SetPanel(int Panel, const std::string& Text)
{
    if (Panel < 1 || Panel > 3) return;
    Waiting[static_cast<std::size_t>(Panel - 1)] = Text;
    Refresh.Ask();
    if (Panel == 1) Show();
    if (Panel == 1 && OnTitle) OnTitle();
}

void qStatus::Show()
{
    for (std::size_t i = 0; i < Panels.size(); ++i) {
        if (!Panels[i] || !Waiting[i]) continue;
        Panels[i]->setText(Shown(*Waiting[i]));
        Waiting[i].reset();
    }
}

void qStatus::SetProgress(int Percent)
{
    if (!Progress) return;
    Progress->setVisible(Percent > 0 && Percent < 100);
    Progress->setValue(Percent);
    if (!Progress->isVisible()) return;
    Show();
    Progress->parentWidget()->repaint();
}

bool qStatus::IsCancelled()
{
    Show(); // its timer waits with the others
    WorkGate Gate;
    QCoreApplication::instance()->installEventFilter(&Gate);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    return Gate.IsEscaped;
}
