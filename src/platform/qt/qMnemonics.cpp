// A filter of the window's keys that looks for a button before menus see them.
#include "platform/qt/qMnemonics.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace {
class qMnemonics : public QObject
{
public:
    explicit qMnemonics(QWidget& Window) : QObject(&Window) {}

    bool eventFilter(QObject* Window, QEvent* Event) override
    {
        if (Event->type() != QEvent::ShortcutOverride && Event->type() != QEvent::KeyPress) return false;
        auto* Key = static_cast<QKeyEvent*>(Event);
        if (!(Key->modifiers() & Qt::AltModifier)) return false;
        for (auto* Button : Window->findChildren<QAbstractButton*>()) {
            if (!Button->isEnabled() || Button->shortcut() != QKeySequence(Key->keyCombination())) continue;
            Event->accept();
            if (Event->type() == QEvent::KeyPress) Button->click();
            return true;
        }
        return false;
    }
};
} // namespace

void TakeMnemonics(QWidget& Window)
{
    Window.installEventFilter(new qMnemonics(Window));
}
