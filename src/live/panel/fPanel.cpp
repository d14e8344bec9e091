// Keys, full screen and the end of live panels.
#include "live/panel/fPanel.h"

#include "records/mTargets.h"
#include "widgets/qPlace.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

fPanel::fPanel(const char* Name, const char* Caption, int16_t InitSource)
    : qDataWindow(Name, Caption), Body(new QWidget(this)), Source(InitSource), Section(Name),
      Room(new QVBoxLayout(this)), Frame(InitSource), Labels([this] { ShowLabels(); })
{
    Room->setContentsMargins(0, 0, 0, 0);
    Room->addWidget(Body);
    Body->setWindowTitle(windowTitle());
    Body->setAutoFillBackground(true);
    Body->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);
}

void fPanel::Begin()
{
    SetLive(false);
    ShowLabels();
}

void fPanel::AddReadouts(fReadouts& Row)
{
    Row.setToolTip("F11 fills the screen and comes back, Space holds a replay, Esc closes the panel");
    Rows.push_back(&Row);
    for (std::size_t i = 0; i < Row.Count(); ++i)
        AddFading(Row.Value(i));
}

void fPanel::Fit()
{
    for (fReadouts* Row : Rows)
        Row->Fit(Body->size());
    FitLabels(Body->size());
}

void fPanel::DrawData()
{
    DrawPanel();
    Labels.Ask();
}

void fPanel::SetLive(bool Live)
{
    for (QWidget* Part : Fading)
        Part->setEnabled(Frame.Holds(Live));
}

void fPanel::NewSession()
{
    InitTargets();
    LoadSession();
    ShowLabels();
}

void fPanel::DoAction(int Code)
{
    Obey(cPanelFrame::DoAction(Code));
}

void fPanel::Obey(ePanelWish Wish)
{
    if (Wish == ePanelWish::Close) return Unload();
    cPanelFrame::Obey(Wish);
    if (Wish != ePanelWish::ShowSample) return;
    TakeSample();
    DrawData();
}

void fPanel::ToggleFullScreen()
{
    if (Body->isWindow()) {
        Room->addWidget(Body);
        Body->show();
        setFocus();
    } else {
        const QRect Place = screen()->geometry(); // where nobody manages windows it would keep its size
        Body->setParent(nullptr, Qt::Window);
        Body->setGeometry(Place);
        Body->showFullScreen();
        Body->activateWindow();
        Body->setFocus();
    }
    Fit(); // labels come to another parent with its letters
}

bool fPanel::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Watched == Body && Event->type() == QEvent::Resize) Fit();
    if (Watched == Body && Body->isWindow()) {
        if (Event->type() == QEvent::KeyPress) {
            keyPressEvent(static_cast<QKeyEvent*>(Event));
            return true;
        }
        if (Event->type() == QEvent::Close) {
            ToggleFullScreen();
            Event->ignore();
            return true;
        }
    }
    return qDataWindow::eventFilter(Watched, Event);
}

ePanelWish fPanel::KeyWish(int Key) const
{
    if (Key == Qt::Key_Escape) return ePanelWish::Close;
    return Key == Qt::Key_Space ? Frame.PressSpace() : ePanelWish::None;
}

void fPanel::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_F11) return ToggleFullScreen();
    const ePanelWish Wish = KeyWish(Event->key());
    if (Wish == ePanelWish::None) return qDataWindow::keyPressEvent(Event);
    Obey(Wish);
}

void fPanel::closeEvent(QCloseEvent* Event)
{
    if (!Frame.AskToClose()) return Event->ignore();
    if (Body->isWindow()) ToggleFullScreen(); // it would outlive the window that it belongs to
    KeepPlace(*this, Section);
    Closing();
    const std::string Recorded = Frame.EndLogging();
    qDataWindow::closeEvent(Event);
    if (!Recorded.empty() && OnRecorded) OnRecorded(Recorded);
}
