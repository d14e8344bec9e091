// Layout and keys of the MPEG player.
#include "video/f2Video.h"

#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qFlowLayout.h"
#include "widgets/qPlace.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {
constexpr double NoLimit = 1000; // the picture fills the box

QLabel* AddLabel(QWidget& Window, const char* Name, const char* Widest)
{
    auto* Label = new QLabel(&Window);
    Label->setObjectName(Name);
    Label->setMinimumWidth(Window.fontMetrics().horizontalAdvance(Widest) + 8);
    return Label;
}
} // namespace

f2Video::f2Video()
    : Movie(gHost.MakeMedia ? gHost.MakeMedia() : nullptr), Clock([this] { GoCurTime(); }),
      VideoBox(new fVideoPicture(this)), cmdPrev(AddButton("cmdPrev", "Prev.", "A picture back: Left", &cMovie::Prev)),
      cmdPause(AddButton("cmdPause", "Pause", "Space", &cMovie::Pause)),
      cmdPlay(AddButton("cmdPlay", "Play", "Space", &cMovie::Play)),
      cmdNext(AddButton("cmdNext", "Next", "A picture on: Right", &cMovie::Next)),
      lbSetPos(AddLabel(*this, "lbSetPos", "SetPos=00000000")),
      lbRetPos(AddLabel(*this, "lbRetPos", "RetPos=00000000")), lbRetVal(AddLabel(*this, "lbRetVal", "RetVal=000"))
{
    setObjectName("f2Video");
    setWindowTitle("MPEG video");
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusPolicy(Qt::StrongFocus);
    VideoBox->setObjectName("VideoBox");
    VideoBox->SetScale(NoLimit, true);
    auto* Row = new qFlowLayout;
    for (QWidget* Each :
         std::initializer_list<QWidget*>{cmdPrev, cmdPause, cmdPlay, cmdNext, lbSetPos, lbRetPos, lbRetVal})
        Row->addWidget(Each);
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(4, 4, 4, 4);
    Layout->addWidget(VideoBox, 1);
    Layout->addLayout(Row);
    for (QWidget* Each : findChildren<QWidget*>())
        Each->installEventFilter(this);
    Movie.OnShow = [this] { ShowState(); };
    ShowState();
}

QPushButton* f2Video::AddButton(const char* Name, const char* Caption, const char* Tip, void (cMovie::*Work)())
{
    auto* Button = new QPushButton(Caption, this);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    connect(Button, &QPushButton::clicked, this, [this, Work] { (Movie.*Work)(); });
    return Button;
}

bool f2Video::VideoFileOpen(const std::string& Path)
{
    const bool IsOpened = Movie.VideoFileOpen(Path);
    setWindowTitle(Shown(IsOpened ? Movie.VideoFN() : "MPEG video"));
    return IsOpened;
}

// Its first picture is number 1: a clock at 0 would wrap to the end.
void f2Video::GoCurTime()
{
    if (Movie.FrameCnt() < 1) return;
    if (gPlayFrame == 0) gPlayFrame = 1;
    Movie.GoCurTime();
}

void f2Video::ShowState()
{
    VideoBox->SetPicture(Movie.Shown(), Shown(Movie.Trouble().empty() ? "No video is open." : Movie.Trouble()));
    lbSetPos->setText(Shown(Movie.SetPos()));
    lbRetPos->setText(Shown(Movie.RetPos()));
    lbRetVal->setText(Shown(Movie.RetVal()));
}

bool f2Video::PressKey(int Key)
{
    switch (Key) {
    case Qt::Key_Space:
        Movie.IsRunning() ? Movie.Pause() : Movie.Play();
        return true;
    case Qt::Key_Left:
        Movie.Prev();
        return true;
    case Qt::Key_Right:
        Movie.Next();
        return true;
    default:
        return false;
    }
}

// The keys do the same wherever the keyboard is in the window.
bool f2Video::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::KeyPress && PressKey(dynamic_cast<QKeyEvent&>(*Event).key())) return true;
    return QWidget::eventFilter(Watched, Event);
}

void f2Video::keyPressEvent(QKeyEvent* Event)
{
    if (!PressKey(Event->key())) QWidget::keyPressEvent(Event);
}

void f2Video::wheelEvent(QWheelEvent* Event)
{
    if (Event->angleDelta().y() > 0) Movie.Prev();
    if (Event->angleDelta().y() < 0) Movie.Next();
    Event->accept();
}

void f2Video::closeEvent(QCloseEvent* Event)
{
    KeepPlace(*this, Section);
    Movie.Pause();
    QWidget::closeEvent(Event);
}
