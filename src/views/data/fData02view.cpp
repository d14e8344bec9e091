// What the controls of the data view pass on, and what they show of it.
#include "views/data/fData02view.h"

#include "platform/mHost.h"
#include "platform/qt/qSurface.h"
#include "platform/qt/qText.h"
#include "widgets/qPlace.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace {
constexpr int StripHeight = 110; // above the plot
} // namespace

bool fData02view::InitData(const std::string& FileName, int16_t Mode)
{
    if (!View.InitData(FileName, Mode)) return false;
    View.OnPlot = OnPlot;
    setWindowTitle(Shown(View.Caption()));
    for (std::size_t i = 0; i < txtInps.size(); ++i)
        txtInps[i]->setText(Shown(View.Inputs[i]));
    Arrange();
    return true;
}

void fData02view::Run(const QString& What, cData02view::Command Action)
{
    View.OnPlot = OnPlot;
    View.Run(Plain(QString(What).remove('&')), Action);
    Arrange();
    // The keys go on working, unless the command brought another window to the front.
    if (QWidget* Focus = QApplication::focusWidget(); !Focus || isAncestorOf(Focus)) setFocus();
}

// What a command may have changed: whether there are samples, and a strip.
void fData02view::Arrange()
{
    for (QWidget* Control : std::initializer_list<QWidget*>{Strip, lbStrip})
        Control->setVisible(View.HasStrokeTable());
    for (QPushButton* Button : TableCommands)
        Button->setVisible(View.HasStrokeTable());
    for (QPushButton* Button : SampleCommands)
        Button->setEnabled(cData02view::HasSamples());
    Surface->setVisible(!View.IsStrip());
    Bar->setVisible(!View.IsStrip());
    Strip->setMaximumHeight(View.IsStrip() ? QWIDGETSIZE_MAX : StripHeight);
    View.Draw();
    View.DrawStrip();
    ShowState();
}

void fData02view::ShowState()
{
    const QSignalBlocker Quiet(Bar);
    Bar->setPageStep(cDataRange::ScrollPage());
    Bar->setValue(View.Plot.Range.ScrollValue());
    if (View.HasStrokeTable()) lbStrip->setText(Shown(View.StripText()));
    lbPointer->setText(Shown(View.PointerText));
    for (std::size_t i = 1; i < txtSel.size(); ++i) {
        txtSel[i]->setText(Shown(View.Numbers.Selected[i].Text));
        txtSel[i]->setEnabled(View.Numbers.Selected[i].IsCurrent);
    }
    for (std::size_t i = 0; i < txtCur.size(); ++i)
        txtCur[i]->setText(Shown(View.Numbers.AtCursor[i]));
    lbCurDist->setText(Shown(View.Numbers.LoggedAtCursor));
}

bool fData02view::eventFilter(QObject* Watched, QEvent* Event)
{
    const bool IsDone = Watched == Surface ? MouseOnPlot(Event) : Watched == Strip && MouseOnStrip(Event);
    if (IsDone) ShowState();
    return IsDone || QWidget::eventFilter(Watched, Event);
}

bool fData02view::MouseOnPlot(QEvent* Event)
{
    const auto* Mouse = dynamic_cast<QMouseEvent*>(Event);
    switch (Event->type()) {
    case QEvent::MouseButtonPress:
        View.Press(Mouse->position().x());
        setFocus();
        return true;
    case QEvent::MouseMove:
        View.Move(Mouse->position().x(), Mouse->position().y(), Mouse->buttons() & Qt::LeftButton);
        return true;
    case QEvent::MouseButtonRelease:
        View.Release(Mouse->position().x());
        return true;
    case QEvent::Wheel: {
        const auto& Wheel = *static_cast<QWheelEvent*>(Event);
        View.Turn(Wheel.position().x(), Wheel.angleDelta().x(), Wheel.angleDelta().y());
        return true;
    }
    default:
        return false;
    }
}

bool fData02view::MouseOnStrip(QEvent* Event)
{
    const auto* Mouse = dynamic_cast<QMouseEvent*>(Event);
    switch (Event->type()) {
    case QEvent::MouseButtonPress:
        View.PressStrip(Mouse->position().x());
        setFocus();
        return true;
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        View.MoveStrip(Mouse->position().x(),
                       Event->type() == QEvent::MouseButtonRelease || (Mouse->buttons() & Qt::LeftButton));
        return true;
    default:
        return false;
    }
}

// Gives whether the key moves the view or the cursor.
bool fData02view::MoveByKey(const QKeyEvent& Event)
{
    switch (Event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int Way = Event.key() == Qt::Key_Left ? -1 : 1;
        if (Event.modifiers() & Qt::ShiftModifier)
            View.MoveCursor(Way);
        else
            View.Step(Way);
        return true;
    }
    case Qt::Key_PageUp:
        View.Page(-1);
        return true;
    case Qt::Key_PageDown:
        View.Page(1);
        return true;
    case Qt::Key_Home:
        View.GoToStart();
        return true;
    case Qt::Key_End:
        View.GoToEnd();
        return true;
    default:
        return false;
    }
}

// As the button, which is grey when there is nothing for it to do.
void fData02view::Press(const char* Button)
{
    findChild<QPushButton*>(Button)->click();
}

void fData02view::keyPressEvent(QKeyEvent* Event)
{
    if (MoveByKey(*Event)) return ShowState();
    if (Event->matches(QKeySequence::SelectAll)) return Press("cmdSelAll");
    switch (Event->key()) {
    case Qt::Key_O:
        return Press("CmdArr_2");
    case Qt::Key_I:
        return Press("CmdArr_3");
    case Qt::Key_X:
        return Press("CmdArr_1");
    case Qt::Key_Delete:
        return Press("CmdArr_7");
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (View.IsEdited) Run("Save Data", &cData02view::SaveData);
        if (View.IsEdited) return; // not saved
        [[fallthrough]];
    case Qt::Key_Escape:
        Unload();
        return;
    default:
        QWidget::keyPressEvent(Event);
    }
}

void fData02view::Unload()
{
    (parentWidget() ? parentWidget() : this)->close();
}

void fData02view::closeEvent(QCloseEvent* Event)
{
    if (!View.MayClose()) return Event->ignore();
    Tag.clear();
    KeepPlace(*this, "fData02view");
    View.Close();
    QWidget::closeEvent(Event);
}
