// What the controls of the play window do to the clock, and what they show of it.
#include "views/play/fData04play.h"

#include "base/mNumText.h"
#include "platform/mHost.h"
#include "platform/qt/qSurface.h"
#include "platform/qt/qText.h"
#include "views/play/cPlayPlots.h"
#include "views/play/mPlayOffset.h"
#include "widgets/qPlace.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>

namespace {
constexpr int ShortestTick = 15; // ms
constexpr int32_t White = 0xFFFFFF;
constexpr int WheelNotch = 120;
constexpr int NotesShown = 2;
} // namespace

bool fData04play::InitData(const PlayData& Data)
{
    const bool Success = Play.InitData(Data);
    setWindowTitle(Shown(Play.Caption()));
    for (QWidget* Each : std::initializer_list<QWidget*>{txtCorr, cmdCorr[0], cmdCorr[1], cmdMatch})
        Each->setEnabled(Success && Play.HasCorrection());
    if (Success && Play.HasCorrection()) Play.SetCorrection(KeptOffset(Data.Sample, Data.VideoFN));
    txtCorr->setText(Shown(FormatNum(Play.Correction(), "0.00")));
    ShowNotes();
    DrawAll();
    return Success;
}

// The session's rows may be others than those that the objects were made of.
void fData04play::Renew()
{
    if (!Guard("The play view", [&] { return Play.Renew(); })) return Unload();
    ShowNotes();
    DrawAll();
}

void fData04play::ShowNotes()
{
    QStringList Lines;
    for (const std::string& Note : Play.Notes())
        Lines << Shown(Note);
    lbNotes->setToolTip(Lines.join("\n"));
    if (Play.IsMatching())
        Lines = {"The video's catch is taken. Click on the catch in a curve; Esc gives up."};
    else if (Lines.size() > NotesShown)
        Lines = Lines.mid(0, NotesShown - 1) << QString("%1 more.").arg(Lines.size() - NotesShown + 1);
    lbNotes->setText(Lines.join("\n"));
    lbNotes->setVisible(!Lines.isEmpty());
}

void fData04play::DrawAll()
{
    if (Play.Caption().empty()) return picPlay->Clear(White);
    DrawPlayGround(*picPlay, Play);
    ShowState();
}

// The texts of the clock, the slider, curves and figures.
void fData04play::ShowState()
{
    const QSignalBlocker Quiet(Slider1);
    Slider1->setValue(RoundWithin(Play.Share() * Slider1->maximum(), 0, Slider1->maximum()));
    txtCycle[0]->setText(Shown(Play.TimeText()));
    txtCycle[1]->setText(Shown(Play.ShareText()));
    // What is being typed stays as it is.
    if (txtCorr->text().toDouble() != Play.Correction()) txtCorr->setText(Shown(FormatNum(Play.Correction(), "0.00")));
    cmdMatch->setChecked(Play.IsMatching());
    DrawPlayData(*picPlay, Play, chShowVals->isChecked());
}

// Another window moved the clock.
void fData04play::GoCurTime()
{
    Guard("The play view", [&] {
        Play.GoCurTime();
        return true;
    });
    ShowState();
}

// This window moved the clock. A video that has other ends may have moved it on.
void fData04play::Moved()
{
    const int32_t Frame = gPlayFrame;
    FollowPlayClock(&Clock);
    if (gPlayFrame != Frame) return GoCurTime();
    ShowState();
}

void fData04play::DoAction(int Code)
{
    if (Code == PlayRun || Code == PlayPause) return Run(Code == PlayRun);
    if (Code == PlayClose) return Unload();
    if (Code == PlayToStart)
        Play.ToStart();
    else if (Code == PlayToEnd)
        Play.ToEnd();
    else if (Code == PlayPrevious || Code == PlayNext)
        Play.StepBy(Code == PlayNext ? 1 : -1);
    else
        return;
    Moved();
}

// At the end of a recording it begins anew.
void fData04play::Run(bool On)
{
    if (!On) return Timer1.stop();
    if (PlaysSamples() && gPlayTime >= Play.Length()) Play.ToStart();
    Since.start();
    Timer1.start(std::max(ShortestTick, RoundWithin(gPlayStep * 1000, 1, 1000)));
}

// As many steps as the time asks for: a late tick leaves the clock right.
void fData04play::Tick()
{
    const double Seconds = static_cast<double>(Since.restart()) / 1000;
    if (!Play.Advance(Seconds * txtSpeed->value())) Timer1.stop();
    Moved();
}

void fData04play::Correct(double Seconds)
{
    Play.SetCorrection(Seconds);
    IsCorrected = true;
    ShowState();
}

// A click that begins it, one on a curve that ends it.
void fData04play::Match()
{
    Run(false);
    if (Play.IsMatching())
        Play.EndMatch();
    else
        Play.MatchVideo();
    ShowNotes();
    ShowState();
}

void fData04play::KeepCorrection()
{
    if (!IsCorrected) return;
    IsCorrected = false;
    KeepOffset(Play);
}

bool fData04play::PressKey(int Key)
{
    switch (Key) {
    case Qt::Key_Space:
        Run(!Timer1.isActive());
        return true;
    case Qt::Key_Left:
        DoAction(PlayPrevious);
        return true;
    case Qt::Key_Right:
        DoAction(PlayNext);
        return true;
    case Qt::Key_Home:
        DoAction(PlayToStart);
        return true;
    case Qt::Key_End:
        DoAction(PlayToEnd);
        return true;
    case Qt::Key_Escape:
        if (Play.IsMatching())
            Match();
        else
            Unload();
        return true;
    default:
        return false;
    }
}

void fData04play::keyPressEvent(QKeyEvent* Event)
{
    if (!PressKey(Event->key())) QWidget::keyPressEvent(Event);
}

bool fData04play::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::KeyPress) return PressKey(dynamic_cast<QKeyEvent&>(*Event).key());
    return (Watched == picPlay && MouseOnPlot(Event)) || QWidget::eventFilter(Watched, Event);
}

// A click moves the clock there, or tells the catch; the wheel scrubs, a step a notch.
bool fData04play::MouseOnPlot(QEvent* Event)
{
    if (Event->type() == QEvent::Wheel) {
        const int Notches = dynamic_cast<QWheelEvent&>(*Event).angleDelta().y() / WheelNotch;
        Play.StepBy(-Notches);
        Moved();
        return true;
    }
    if (Event->type() != QEvent::MouseButtonPress) return false;
    setFocus();
    const QPointF Place = dynamic_cast<QMouseEvent&>(*Event).position();
    const auto Seconds = Play.TimeAt({Place.x(), Place.y()});
    if (!Seconds) return true;
    if (Play.IsMatching()) {
        Play.MatchData(*Seconds);
        IsCorrected = true;
        KeepCorrection();
        ShowNotes();
        ShowState();
    } else {
        Play.SetTime(gPlayTime + *Seconds);
        Moved();
    }
    return true;
}

void fData04play::Unload()
{
    (isWindow() ? this : parentWidget())->close();
}

void fData04play::closeEvent(QCloseEvent* Event)
{
    Run(false);
    KeepCorrection();
    Tag.clear();
    KeepPlace(*this, Section);
    QWidget::closeEvent(Event);
}
