// A filter of the window's keys that looks for a button before menus see them.
#include "platform/qt/qMnemonics.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

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
        QAbstractButton* Button = ButtonOf(static_cast<const QKeyEvent&>(*Event));
        if (Event->type() == QEvent::KeyPress && Object != parent()) Object->removeEventFilter(this);
        if (!Button) return false;
        Event->accept();
        if (Event->type() == QEvent::KeyPress)
            Button->click();
        else if (QWidget* Focus = QApplication::focusWidget())
            Focus->installEventFilter(this);
        return true;
    }

private:
    QAbstractButton* ButtonOf(const QKeyEvent& Key) const
    {
        if (!(Key.modifiers() & Qt::AltModifier)) return nullptr;
        for (auto* Button : parent()->findChildren<QAbstractButton*>())
            if (Button->isEnabled() && Button->shortcut() == QKeySequence(Key.keyCombination())) return Button;
        return nullptr;
    }
};
} // namespace

void TakeMnemonics(QWidget& Window)
{
    Window.installEventFilter(new qMnemonics(Window));
}
