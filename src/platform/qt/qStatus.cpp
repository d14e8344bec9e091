// Status panels that keep up with long work and cost little when frames come fast.
#include "platform/qt/qStatus.h"

#include "platform/qt/qText.h"

#include <QLabel>
#include <QProgressBar>

namespace {
constexpr int PaintEvery = 50; // ms
}

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
