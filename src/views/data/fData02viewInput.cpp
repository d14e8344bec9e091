// What the mouse and the keys do in the data view.
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "views/data/fData02view.h"

#include <QLabel>
#include <QPushButton>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {
constexpr double DragLeast = 4;   // drawing units: less is a click
constexpr double ArrowStep = 0.1; // of the view's width
} // namespace

bool fData02view::eventFilter(QObject* Watched, QEvent* Event)
{
    const bool IsDone = Watched == Surface ? MouseOnPlot(Event) : Watched == Strip && MouseOnStrip(Event);
    return IsDone || QWidget::eventFilter(Watched, Event);
}

// Dragging selects, a click sets the cursor, the wheel zooms at the pointer.
bool fData02view::MouseOnPlot(QEvent* Event)
{
    const auto* Mouse = dynamic_cast<QMouseEvent*>(Event);
    switch (Event->type()) {
    case QEvent::MouseButtonPress:
        DragFrom = Mouse->position().x();
        setFocus();
        return true;
    case QEvent::MouseMove:
        lbPointer->setText(Shown(View.PointerText(Mouse->position().x(), Mouse->position().y())));
        if ((Mouse->buttons() & Qt::LeftButton) && std::abs(Mouse->position().x() - DragFrom) >= DragLeast &&
            View.Select(DragFrom, Mouse->position().x()))
            View.Draw();
        return true;
    case QEvent::MouseButtonRelease:
        Guard("Selection", [&] {
            if (std::abs(Mouse->position().x() - DragFrom) >= DragLeast) {
                if (View.Select(DragFrom, Mouse->position().x())) ShowNumbers();
            } else if (View.SetCursor(Mouse->position().x())) {
                ShowCursor();
            }
            return true;
        });
        Show();
        return true;
    case QEvent::Wheel:
        Turn(*static_cast<QWheelEvent*>(Event));
        return true;
    default:
        return false;
    }
}

// A touchpad turns the wheel in small parts of a notch; a turn sideways moves.
void fData02view::Turn(const QWheelEvent& Wheel)
{
    constexpr int Notch = 120; // eighths of a degree
    const QPoint Angle = Wheel.angleDelta();
    const bool IsSideways = std::abs(Angle.x()) > std::abs(Angle.y());
    WheelTurn += IsSideways ? Angle.x() : Angle.y();
    if (std::abs(WheelTurn) < Notch) return;
    if (IsSideways)
        View.MoveView(WheelTurn > 0 ? -ArrowStep : ArrowStep);
    else
        View.ZoomAt(Wheel.position().x(), WheelTurn > 0);
    WheelTurn = 0;
    Show();
}

bool fData02view::MouseOnStrip(QEvent* Event)
{
    const auto* Mouse = dynamic_cast<QMouseEvent*>(Event);
    switch (Event->type()) {
    case QEvent::MouseButtonPress:
        DragFrom = Mouse->position().x();
        Nav.Cursor = Nav.RowAt(DragFrom);
        setFocus();
        ShowStrip();
        return true;
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease: {
        const bool IsHeld = Event->type() == QEvent::MouseButtonRelease || (Mouse->buttons() & Qt::LeftButton);
        lbPointer->setText(Shown(cDataNav::RowText(Nav.RowAt(Mouse->position().x()))));
        if (!IsHeld || std::abs(Mouse->position().x() - DragFrom) < DragLeast) return true;
        Nav.Select(DragFrom, Mouse->position().x());
        ShowStrip();
        return true;
    }
    default:
        return false;
    }
}

void fData02view::keyPressEvent(QKeyEvent* Event)
{
    const auto Move = [this](double Frac) {
        View.MoveView(Frac);
        Show();
    };
    const bool IsArrow = Event->key() == Qt::Key_Left || Event->key() == Qt::Key_Right;
    const int Way = Event->key() == Qt::Key_Left ? -1 : 1;
    if (IsArrow && IsStrip()) {
        Nav.Cursor = std::max(Nav.Cursor + Way, 1);
        ShowStrip();
        return lbPointer->setText(Shown(cDataNav::RowText(Nav.Cursor)));
    }
    if (IsArrow && (Event->modifiers() & Qt::ShiftModifier)) {
        View.MoveCursor(Way);
        ShowCursor();
        return Show();
    }
    // As the buttons, which are grey when there is nothing for them to do.
    const auto Press = [this](const char* Button) { findChild<QPushButton*>(Button)->click(); };
    if (Event->matches(QKeySequence::SelectAll)) return Press("cmdSelAll");
    switch (Event->key()) {
    case Qt::Key_Left:
        return Move(-ArrowStep);
    case Qt::Key_Right:
        return Move(ArrowStep);
    case Qt::Key_PageUp:
        return Move(-1);
    case Qt::Key_PageDown:
        return Move(1);
    case Qt::Key_Home:
        View.FirstSample = 0;
        return Show();
    case Qt::Key_End:
        View.ScrollToEnd();
        return Show();
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
        if (IsEdited) Run("Save Data", &fData02view::SaveData);
        if (IsEdited) return; // not saved
        [[fallthrough]];
    case Qt::Key_Escape:
        (parentWidget() ? parentWidget() : this)->close();
        return;
    default:
        QWidget::keyPressEvent(Event);
    }
}
