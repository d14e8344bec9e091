// What the video window does with keys, wheel and slider, and what it shows.
#include "video/f1Video.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mVideoFile.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qPlace.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QImageReader>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QWheelEvent>

#include <cstring>

namespace {
constexpr int LookMs = 100; // at the index while it is made
constexpr int ManyPictures = 10;
constexpr int WheelNotch = 120;

std::shared_ptr<const Picture> AsPicture(const QImage& Image)
{
    const QImage Plain = Image.convertToFormat(QImage::Format_RGB32);
    auto Made = std::make_shared<Picture>();
    Made->Width = Plain.width();
    Made->Height = Plain.height();
    Made->Pixels.resize(static_cast<std::size_t>(Plain.width()) * static_cast<std::size_t>(Plain.height()));
    for (int Row = 0; Row < Plain.height(); ++Row)
        std::memcpy(Made->Pixels.data() + static_cast<std::size_t>(Row) * static_cast<std::size_t>(Plain.width()),
                    Plain.constScanLine(Row), static_cast<std::size_t>(Plain.width()) * sizeof(uint32_t));
    return Made;
}
} // namespace

bool f1Video::VideoFileOpen(const std::string& Path)
{
    picVideoWindow->ResetZoom();
    const bool IsOpened = Video.VideoFileOpen(Path);
    setWindowTitle(Shown(IsOpened ? Path : "Video"));
    if (IsOpened && Video.IndexDone() < 1) IndexLook.start(LookMs);
    SetWinSize();
    ShowClip();
    ShowState();
    return IsOpened;
}

bool f1Video::JPGOpen(const std::string& Path)
{
    QImageReader Reader(Shown(Path));
    Reader.setAutoTransform(true);
    const QImage Image = Reader.read();
    if (Image.isNull()) return FileFailed(CantOpen, Path, TitleWarning, Plain(Reader.errorString()));
    IndexLook.stop();
    setWindowTitle(Shown(Path));
    picVideoWindow->ResetZoom();
    Video.TakeStill(Path, AsPicture(Image));
    SetWinSize();
    ShowClip();
    return true;
}

void f1Video::DoAction(int Code)
{
    Video.DoAction(Code);
    if (Code == VideoClose) return Unload();
    ShowState();
}

void f1Video::SetOnDigit(std::function<void(int)> Work)
{
    OnDigit = std::move(Work);
    ShowState();
}

void f1Video::ChangeFile()
{
    const std::string Path = ExecComDlg("Video File to Open", "avi", eFileMode::In, gVideoDir);
    if (Path.empty() || (MayClose && !MayClose())) return;
    VideoFileOpen(Path);
}

void f1Video::SetWinSize()
{
    picVideoWindow->SetScale(mSize, chAspect->isChecked());
}

void f1Video::TakeIndex()
{
    const bool IsWhole = Video.TakeIndex() || Video.IndexDone() >= 1;
    if (IsWhole) IndexLook.stop();
    ShowClip();
    if (IsWhole) ShowState();
}

void f1Video::ShowClip()
{
    if (!Video.IsOpen() && !Video.Shown()) return lbClip->clear();
    QString Text = QString("%1 x %2").arg(Video.Width()).arg(Video.Height());
    if (Video.IsOpen()) {
        Text +=
            QString(", %1 pictures, %2/s").arg(Video.Pictures()).arg(Shown(FormatNum(SafeDiv(1, gPlayStep), "0.00")));
        if (Video.IsCut()) Text += ", breaks off there";
        if (!Video.Trouble().empty()) Text += "; " + Shown(Video.Trouble());
        if (Video.IndexDone() < 1) Text += QString(", index %1").arg(Shown(FormatNum(Video.IndexDone(), "0%")));
    }
    lbClip->setText(Text);
}

void f1Video::GoCurTime()
{
    IsFollowing = true;
    Video.GoCurTime();
    IsFollowing = false;
}

// Another picture is seen. When this window moved the clock, the play view and other videos follow.
void f1Video::Moved()
{
    ShowClip();
    ShowState();
    if (!IsFollowing && Video.IsOpen()) FollowPlayClock(&Clock);
}

void f1Video::ShowState()
{
    const bool IsOpen = Video.IsOpen();
    {
        const QSignalBlocker Quiet(Slider1);
        Slider1->setMaximum(Video.Frames());
        if (IsOpen) Slider1->setValue(gPlayFrame);
    }
    Slider1->setEnabled(IsOpen && Video.Frames() > 0);
    Slider1->setToolTip(Shown(IsOpen ? Video.Elapsed() + " of " + FormatNum(Video.Duration(), "0.00") + " s" : ""));
    txtElapsed->setText(Shown(IsOpen ? Video.Elapsed() : ""));
    for (std::size_t i = 0; i + 1 < cmdVidContr.size(); ++i)
        cmdVidContr[i]->setEnabled(IsOpen);
    cmdVidContr[VideoPlay]->setEnabled(IsOpen && !Video.IsRunning());
    cmdVidContr[VideoPause]->setEnabled(IsOpen && Video.IsRunning());
    for (QPushButton* Button : cmdDigIt)
        Button->setEnabled(OnDigit && Video.Shown() && !(IsOpen && Video.IsDigit()));
    const std::string Empty = Video.Trouble().empty() ? "No video is open. \"File...\" opens one." : Video.Trouble();
    picVideoWindow->SetPicture(Video.Shown(), Shown(Empty));
}

bool f1Video::PressKey(const QKeyEvent& Event)
{
    if (Event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
    switch (Event.key()) {
    case Qt::Key_Space:
        DoAction(Video.IsRunning() ? VideoPause : VideoPlay);
        return true;
    case Qt::Key_Left:
        DoAction(VideoPrev);
        return true;
    case Qt::Key_Right:
        DoAction(VideoNext);
        return true;
    case Qt::Key_Home:
        DoAction(VideoToStart);
        return true;
    case Qt::Key_End:
        DoAction(VideoToEnd);
        return true;
    default:
        return false;
    }
}

// The keys and the wheel do the same wherever the keyboard is in the window.
bool f1Video::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::KeyPress && PressKey(dynamic_cast<QKeyEvent&>(*Event))) return true;
    if (Event->type() == QEvent::Wheel && Watched != picVideoWindow) {
        wheelEvent(dynamic_cast<QWheelEvent*>(Event));
        return true;
    }
    return QWidget::eventFilter(Watched, Event);
}

void f1Video::keyPressEvent(QKeyEvent* Event)
{
    if (!PressKey(*Event)) QWidget::keyPressEvent(Event);
}

void f1Video::wheelEvent(QWheelEvent* Event)
{
    const int Notches = Event->angleDelta().y() / WheelNotch;
    const int Step = Event->modifiers() & Qt::ControlModifier ? ManyPictures : 1;
    if (Video.IsOpen() && Notches != 0) Slider1->setValue(Slider1->value() - Notches * Step);
    Event->accept();
}

void f1Video::Unload()
{
    (parentWidget() ? parentWidget() : this)->close();
}

void f1Video::closeEvent(QCloseEvent* Event)
{
    if (MayClose && !MayClose()) return Event->ignore();
    Tag.clear();
    KeepPlace(*this, Section);
    Video.DoAction(VideoPause);
    IndexLook.stop();
    QWidget::closeEvent(Event);
    if (OnClosed) OnClosed();
}
