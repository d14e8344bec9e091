// Status panels that keep up with long work and cost little when frames come fast.
#include "platform/qt/qStatus.h"

#include "platform/qt/qText.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>

namespace {
constexpr int PaintEvery = 50; // ms

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

qStatus::qStatus()
{
    Delay.setSingleShot(true);
    QObject::connect(&Delay, &QTimer::timeout, &Delay, [this] { Show(); });
}

void qStatus::Attach(std::array<QLabel*, 3> NewPanels, QProgressBar* NewProgress)
{
    Panels = NewPanels;
    Progress = NewProgress;
    SincePaint.start();
}

void qStatus::Detach()
{
    Panels = {};
    Progress = nullptr;
}

// A text that comes soon after the one before waits, since laying it out costs more than the frame that it tells of.
// Long work runs without events in between, so the text is painted here.
void qStatus::SetPanel(int Panel, const std::string& Text)
{
    if (Panel < 1 || Panel > 3) return;
    Waiting[static_cast<std::size_t>(Panel - 1)] = Text;
    if (Panel == 1 || SincePaint.elapsed() >= PaintEvery)
        Show();
    else if (!Delay.isActive())
        Delay.start(PaintEvery);
    if (Panel == 1 && OnTitle) OnTitle();
}

void qStatus::Show()
{
    SincePaint.restart();
    for (std::size_t i = 0; i < Panels.size(); ++i) {
        if (!Panels[i] || !Waiting[i]) continue;
        Panels[i]->setText(Shown(*Waiting[i]));
        Panels[i]->repaint();
        Waiting[i].reset();
    }
}

void qStatus::SetProgress(int Percent)
{
    if (!Progress) return;
    Progress->setVisible(Percent > 0 && Percent < 100);
    Progress->setValue(Percent);
    if (Progress->isVisible()) Progress->repaint();
}

bool qStatus::IsCancelled()
{
    WorkGate Gate;
    QCoreApplication::instance()->installEventFilter(&Gate);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    return Gate.IsEscaped;
}
