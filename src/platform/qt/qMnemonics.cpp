// A filter of the window's keys that looks for a control before menus see them.
#include "platform/qt/qMnemonics.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>

namespace {
// A key that is not left to the menus goes to the widget with the keyboard, where a text box would write it: so the
// filter sits there too for this one key.
class qMnemonics : public QObject
{
public:
    explicit qMnemonics(QWidget& Window) : QObject(&Window) {}

    bool eventFilter(QObject* Object, QEvent* Event) override
    {
        if (Event->type() != QEvent::ShortcutOverride && Event->type() != QEvent::KeyPress) return false;
        QWidget* Control = ControlOf(static_cast<const QKeyEvent&>(*Event));
        if (Event->type() == QEvent::KeyPress && Object != parent()) Object->removeEventFilter(this);
        if (!Control) return false;
        Event->accept();
        if (Event->type() == QEvent::KeyPress)
            Use(*Control);
        else if (QWidget* Focus = QApplication::focusWidget())
            Focus->installEventFilter(this);
        return true;
    }

private:
    QWidget* ControlOf(const QKeyEvent& Key) const
    {
        if (!(Key.modifiers() & Qt::AltModifier)) return nullptr;
        const QKeySequence Pressed(Key.keyCombination());
        for (auto* Button : parent()->findChildren<QAbstractButton*>())
            if (Button->isEnabled() && Button->shortcut() == Pressed) return Button;
        for (auto* Label : parent()->findChildren<QLabel*>())
            if (Label->buddy() && QKeySequence::mnemonic(Label->text()) == Pressed) return Label->buddy();
        return nullptr;
    }

    static void Use(QWidget& Control)
    {
        if (auto* Button = qobject_cast<QAbstractButton*>(&Control))
            Button->click();
        else
            Control.setFocus(Qt::ShortcutFocusReason);
    }
};
} // namespace

void TakeMnemonics(QWidget& Window)
{
    Window.installEventFilter(new qMnemonics(Window));
}
