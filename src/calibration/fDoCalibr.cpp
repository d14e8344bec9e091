// What the buttons and keys of the calibration workbench do.
#include "calibration/fDoCalibr.h"

#include "acquisition/mComFast.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qWorkArea.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolTip>

#include <utility>

namespace {
bool IsLinkClosed()
{
    return gLinkWatch.State() == cLinkWatch::eState::Closed;
}

} // namespace

void fDoCalibr::ShowTexts()
{
    Texts->ShowTexts();
    if (Plain(State->text()) != Calibr.State()) State->setText(Shown(Calibr.State()));
    if (Plain(windowTitle()) != Calibr.Caption()) setWindowTitle(Shown(Calibr.Caption()));
    Buttons[cmdUndo]->setEnabled(Calibr.CanUndo());
    Flags[FlagAutomatic]->setChecked(Calibr.Flag(FlagAutomatic)); // the options may have set it
}

void fDoCalibr::DrawAnew()
{
    Graph.Draw();
    ShowTexts();
}

void fDoCalibr::TakeSample()
{
    if (Calibr.TakeSample()) HasNewPoints = true;
}

void fDoCalibr::DrawData()
{
    ShowPoint(std::exchange(HasNewPoints, false));
}

bool fDoCalibr::ShowPoint(bool IsPoint)
{
    if (IsPoint) Graph.AddPoints();
    ShowTexts();
    if (IsPoint && Texts->Box(BoxPhys).hasFocus()) AwaitLoad();
    return IsPoint;
}

void fDoCalibr::SetLive(bool Live)
{
    Texts->Box(BoxLog).setEnabled(Live);
    ShowTexts();
}

void fDoCalibr::Obey(int Command)
{
    Guard("Calibration", [&] { return Work(Command); });
    if (Command != cmdPut) DrawAnew();
}

bool fDoCalibr::Work(int Command)
{
    switch (Command) {
    case cmdStart:
        return StartData();
    case cmdStop:
        return StopData();
    case cmdPut:
        return ShowPoint(Calibr.PutDataPoint());
    case cmdSave:
        return SaveData();
    case cmdStore:
        return Calibr.SaveRawCalData({});
    case cmdLoad:
        return Calibr.LoadRawCalData({});
    case cmdAnalyse:
        return Calibr.AnalyseArr();
    case cmdSetAuto:
        return Calibr.SetAutoCal();
    case cmdSaveTable:
        return SaveTable();
    case cmdLimits:
        return Calibr.FindLimits();
    case cmdDelete:
        Calibr.DelAllPoints();
        return true;
    case cmdUndo:
        Calibr.UndoPoints();
        return true;
    default:
        Unload();
        return true;
    }
}

bool fDoCalibr::StartData()
{
    Tag.clear();
    if (!Calibr.StartData()) return false;
    Tag = DataTag;
    AwaitLoad();
    return true;
}

// In manual mode the next thing typed is a load, which replaces the previous one.
void fDoCalibr::AwaitLoad()
{
    if (Calibr.Flag(FlagAutomatic)) return;
    Texts->Box(BoxPhys).setFocus();
    Texts->Box(BoxPhys).selectAll();
}

bool fDoCalibr::StopData()
{
    Tag.clear();
    Calibr.StopData();
    Calibr.SetCalGr();
    return true;
}

bool fDoCalibr::SaveData()
{
    const bool IsSaved = Calibr.Save();
    if (IsSaved) UpdateStatus(Calibr.SavedText());
    return IsSaved;
}

bool fDoCalibr::SaveTable()
{
    const bool IsSaved = Calibr.CreateRefTable3();
    if (IsSaved) UpdateStatus(Calibr.SavedText());
    return IsSaved;
}

void fDoCalibr::Leave()
{
    if (Calibr.CheckModified()) Unload();
}

bool fDoCalibr::TakeLetter(int Key)
{
    switch (Key) {
    case Qt::Key_A:
        Obey(cmdStart);
        return true;
    case Qt::Key_O:
        Obey(cmdStop);
        return true;
    case Qt::Key_S:
        if (Guard("Calibration", [&] { return Calibr.SaveData(); })) UpdateStatus(Calibr.SavedText());
        ShowTexts();
        return true;
    case Qt::Key_D:
        Obey(cmdDelete);
        return true;
    case Qt::Key_Space:
        ShowPoint(Calibr.Space());
        return true;
    default:
        return false;
    }
}

bool fDoCalibr::TakeKey(const QKeyEvent& Event)
{
    if (Event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    switch (Event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Obey(Calibr.IsTaking() && !IsLinkClosed() ? cmdPut : cmdStart);
        return true;
    case Qt::Key_Escape:
        if (IsLinkClosed())
            Leave();
        else
            Obey(cmdStop);
        return true;
    default:
        return !Texts->IsTyping() && TakeLetter(Event.key());
    }
}

// Keys are commands whichever control has the focus: a space would otherwise press a button, a letter be typed.
bool fDoCalibr::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::KeyPress && TakeKey(static_cast<QKeyEvent&>(*Event))) return true;
    const bool IsSpace = (Event->type() == QEvent::KeyPress || Event->type() == QEvent::KeyRelease) &&
                         static_cast<QKeyEvent*>(Event)->key() == Qt::Key_Space;
    if (IsSpace && qobject_cast<QPushButton*>(Watched)) return true;
    if (Watched == CalGr && Event->type() == QEvent::MouseMove) {
        const auto* Move = static_cast<QMouseEvent*>(Event);
        QToolTip::showText(Move->globalPosition().toPoint(),
                           Shown(Graph.TextAt(Move->position().x(), Move->position().y())), CalGr);
    }
    return qDataWindow::eventFilter(Watched, Event);
}

void fDoCalibr::keyPressEvent(QKeyEvent* Event)
{
    if (!TakeKey(*Event)) qDataWindow::keyPressEvent(Event);
}

// Its own close button closes it without a question.
void fDoCalibr::closeEvent(QCloseEvent* Event)
{
    if (property(IsClosedFor).toBool() && !Calibr.CheckModified()) return Event->ignore();
    Calibr.KeepSettings();
    qDataWindow::closeEvent(Event);
}
