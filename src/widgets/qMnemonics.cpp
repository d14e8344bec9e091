// Filters of a window's keys that look for a control or a command before menus see them.
#include "widgets/qMnemonics.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>

#include <utility>

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

class KeyTaker : public QObject
{
public:
    KeyTaker(QWidget& Window, QKeySequence::StandardKey OfKey, std::function<void()> AtKey)
        : QObject(&Window), Key(OfKey), Action(std::move(AtKey))
    {
    }

    bool eventFilter(QObject*, QEvent* Event) override
    {
        if (Event->type() != QEvent::ShortcutOverride && Event->type() != QEvent::KeyPress) return false;
        if (!static_cast<const QKeyEvent&>(*Event).matches(Key)) return false;
        Event->accept();
        if (Event->type() == QEvent::KeyPress) Action();
        return true;
    }

private:
    QKeySequence::StandardKey Key;
    std::function<void()> Action;
};
} // namespace

void TakeMnemonics(QWidget& Window)
{
    Window.installEventFilter(new qMnemonics(Window));
}

void TakeKey(QWidget& Window, QKeySequence::StandardKey Key, std::function<void()> Action)
{
    Window.installEventFilter(new KeyTaker(Window, Key, std::move(Action)));
}
