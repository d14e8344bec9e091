// Status panels that keep up with long work and cost little when frames come fast.
#include "platform/qt/qStatus.h"

#include "platform/qt/qText.h"

#include <QLabel>
#include <QProgressBar>

namespace {
constexpr int PaintEvery = 50; // ms
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

// Long work runs without events in between, so the text is painted here; at a hundred frames a second not each time.
void qStatus::SetPanel(int Panel, const std::string& Text)
{
    if (Panel < 1 || Panel > 3) return;
    if (QLabel* Label = Panels[static_cast<std::size_t>(Panel - 1)]) {
        Label->setText(Shown(Text));
        if (SincePaint.elapsed() >= PaintEvery) {
            SincePaint.restart();
            Label->repaint();
        }
    }
    if (Panel == 1 && OnTitle) OnTitle();
}

void qStatus::SetProgress(int Percent)
{
    if (!Progress) return;
    Progress->setVisible(Percent > 0 && Percent < 100);
    Progress->setValue(Percent);
    if (Progress->isVisible()) Progress->repaint();
}
