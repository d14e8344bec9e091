// Labels, keys and full screen of the rower's panel.
#include "live/rower/fData01real.h"

#include "acquisition/mSampling.h"
#include "core/mIni.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "records/mTargets.h"
#include "widgets/qPlace.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace {
constexpr const char* Section = "fData01real";
constexpr double ValueShare = 0.115; // of the panel's height: figures legible from three metres on a small tablet
constexpr double CaptionShare = 0.03;

// A label of the row above the plots: its value's number in the object name, and its caption.
struct LabelShape
{
    int Index;
    const char* Caption;
    int Share; // of the width
};
constexpr LabelShape Labels[] = {{0, "Time (s)", 4}, {2, "Stroke rate", 3}, {3, "Strokes", 3}};

constexpr double WidestValue = 9.5; // heights of a value in the panel's width: three beside each other

// As high as the panel's height asks for, and no wider than its width allows.
void SetPixels(QLabel& Label, QSize Room, double Share)
{
    QFont Letters = Label.font();
    const double Height = std::min(Room.height() * Share, Room.width() / WidestValue * Share / ValueShare);
    Letters.setPixelSize(std::max(8, static_cast<int>(Height)));
    Label.setFont(Letters);
    Label.setFixedHeight(QFontMetrics(Letters).height());
}

// How much of its text's width a label has, at most 1.
double WidthShare(const QLabel& Label)
{
    const int Wanted = QFontMetrics(Label.font()).horizontalAdvance(Label.text());
    return Wanted > Label.width() ? static_cast<double>(Label.width()) / Wanted : 1;
}
} // namespace

fData01real::fData01real(int16_t Source, const std::string& RawPath)
    : qDataWindow("fData01real", "Rower's Panel"), Room(new QVBoxLayout(this)), Body(new QWidget(this)),
      Surface(new qSurface(Body)), Panel(*Surface), Mode(Source)
{
    Surface->setObjectName("picPanel");
    Room->setContentsMargins(0, 0, 0, 0);
    Room->addWidget(Body);
    Body->setWindowTitle(windowTitle());
    Body->setAutoFillBackground(true);
    Body->installEventFilter(this);
    auto* Layout = new QVBoxLayout(Body);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->setSpacing(0);
    Layout->addWidget(BuildLabels());
    Layout->addWidget(Surface, 1);
    setFocusPolicy(Qt::StrongFocus);
    Surface->SetBackground(gBackground);
    Panel.Load(Source);
    Panel.InitMode(RawPath);
    Surface->OnResize = [this] { Panel.Resize(); };
    SetLive(false);
    ShowLabels();
}

QWidget* fData01real::BuildLabels()
{
    auto* Strip = new QWidget(Body);
    Strip->setToolTip("F11 fills the screen and comes back, Space holds a replay, Esc closes the panel");
    auto* Layout = new QHBoxLayout(Strip);
    Layout->setContentsMargins(12, 0, 12, 0);
    for (std::size_t i = 0; i < LabelCnt; ++i) {
        lbLabs[i] = new QLabel(Labels[i].Caption, Strip);
        lbData[i] = new QLabel(Strip);
        lbLabs[i]->setObjectName(QString("lbLabs_%1").arg(Labels[i].Index));
        lbData[i]->setObjectName(QString("lbData_%1").arg(Labels[i].Index));
        lbData[i]->setStyleSheet("font-weight: bold");
        auto* Pair = new QVBoxLayout;
        Pair->setSpacing(0);
        for (QLabel* Label : {lbLabs[i], lbData[i]}) {
            Label->setAlignment(Qt::AlignCenter);
            Label->setMinimumWidth(1);
            Pair->addWidget(Label);
        }
        Layout->addLayout(Pair, Labels[i].Share);
    }
    return Strip;
}

void fData01real::SizeLabels()
{
    for (std::size_t i = 0; i < LabelCnt; ++i) {
        SetPixels(*lbLabs[i], Body->size(), CaptionShare);
        SetPixels(*lbData[i], Body->size(), ValueShare);
    }
    // At once: the plots would be drawn a second time when the labels take their place later.
    lbData[0]->parentWidget()->layout()->activate();
    Body->layout()->activate();
    // A figure of an hour's rowing may be too long for its place; all get smaller with it, and the plots stay.
    double Share = 1;
    for (const QLabel* Label : lbData)
        Share = std::min(Share, WidthShare(*Label));
    for (QLabel* Label : lbData) {
        QFont Letters = Label->font();
        Letters.setPixelSize(std::max(8, static_cast<int>(Share * Letters.pixelSize())));
        Label->setFont(Letters);
    }
}

void fData01real::ShowLabels()
{
    const std::string* const Texts[] = {&Panel.TimeText, &Panel.RateText, &Panel.StrokesText};
    bool IsLonger = false;
    for (std::size_t i = 0; i < LabelCnt; ++i) {
        const QString Text = Shown(*Texts[i]);
        IsLonger = IsLonger || Text.size() != lbData[i]->text().size();
        lbData[i]->setText(Text);
    }
    if (IsLonger) SizeLabels();
}

void fData01real::DrawData()
{
    Panel.DrawData();
    ShowLabels();
}

// What a recording gave is as good while it is held.
void fData01real::SetLive(bool Live)
{
    const bool IsGood = Live || IsReplayOpen() || IsTableSource(Mode);
    Surface->setEnabled(IsGood);
    for (QLabel* Label : lbData)
        Label->setEnabled(IsGood);
}

void fData01real::NewSession()
{
    InitTargets();
    Panel.Load(Mode);
    Panel.Resize();
    ShowLabels();
}

void fData01real::DoAction(int Code)
{
    Obey(Panel.DoAction(Code));
    ShowLabels();
}

void fData01real::Obey(eRowerWish Wish)
{
    switch (Wish) {
    case eRowerWish::StartLog:
        StartLog();
        return;
    case eRowerWish::ToggleReplay:
        // Without a file there is nothing to hold or to go on with.
        if (IsReplayOpen()) gReplaying = !gReplaying;
        return;
    case eRowerWish::Close:
        return Unload();
    case eRowerWish::None:
        return;
    }
}

void fData01real::ToggleFullScreen()
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
    SizeLabels(); // labels come to another parent with its letters
}

bool fData01real::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Watched == Body && Event->type() == QEvent::Resize) SizeLabels();
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

void fData01real::keyPressEvent(QKeyEvent* Event)
{
    switch (Event->key()) {
    case Qt::Key_Space:
        return Obey(Panel.PressSpace());
    case Qt::Key_F11:
        return ToggleFullScreen();
    case Qt::Key_Escape:
        return Unload();
    default:
        return qDataWindow::keyPressEvent(Event);
    }
}

void fData01real::closeEvent(QCloseEvent* Event)
{
    const bool WasLogging = gLogging;
    if (WasLogging && !AskYesNo("A recording is running. Stop it and close the panel?", TitleWarning))
        return Event->ignore();
    if (Body->isWindow()) ToggleFullScreen(); // it would outlive the window that it belongs to
    KeepPlace(*this, Section);
    Panel.Unload();
    if (WasLogging) StopAll();
    qDataWindow::closeEvent(Event);
    if (WasLogging && Mode < SourceNoView && OnRecorded) OnRecorded(gLogFile.Path());
}
