// Dark text on light backgrounds, which can be read in sunlight.
#include "widgets/qLook.h"

#include <QApplication>
#include <QPalette>

namespace {
QPalette Colours()
{
    QPalette Palette;
    const QColor Ink(16, 24, 32);
    for (const auto Role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        Palette.setColor(Role, Ink);
    Palette.setColor(QPalette::Window, QColor(243, 245, 247));
    Palette.setColor(QPalette::Button, QColor(234, 238, 242));
    Palette.setColor(QPalette::Base, Qt::white);
    Palette.setColor(QPalette::AlternateBase, QColor(238, 243, 248));
    Palette.setColor(QPalette::ToolTipBase, QColor(255, 252, 224));
    Palette.setColor(QPalette::Highlight, QColor(11, 92, 173));
    Palette.setColor(QPalette::HighlightedText, Qt::white);
    Palette.setColor(QPalette::Dark, QColor(150, 160, 170));
    for (const auto Role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        Palette.setColor(QPalette::Disabled, Role, QColor(128, 136, 144));
    return Palette;
}

constexpr const char* Sheet = R"(
QToolBar { spacing: 4px; padding: 4px 8px; border: 0; border-bottom: 1px solid #c4ccd4; background: #f3f5f7; }
QToolBar QToolButton { padding: 4px 6px; border: 1px solid transparent; border-radius: 6px; min-width: 66px; }
QToolBar QToolButton:hover:enabled { background: #dfe8f1; border-color: #a9bccf; }
QToolBar QToolButton:pressed:enabled { background: #c9d9e9; }
QToolBar QToolButton:disabled { color: #808890; }
QToolButton#cmdToolBar_4 { background: #d00000; color: white; }
QToolButton#cmdToolBar_4:hover:enabled { background: #b00000; }
QToolButton#cmdToolBar_4:disabled { background: #d00000; color: #ffd0d0; }
QMenuBar { background: #f3f5f7; }
QMenuBar::item { padding: 5px 10px; }
QMenuBar::item:selected { background: #0b5cad; color: white; border-radius: 4px; }
QDialogButtonBox, QMessageBox, QInputDialog { dialogbuttonbox-buttons-have-icons: 0; }
QStatusBar { border-top: 1px solid #c4ccd4; }
QStatusBar::item { border: 0; }
QStatusBar QLabel { padding: 2px 4px; }
QStatusBar QLabel[alarm="true"] { background: #d00000; color: white; font-weight: bold; }
)";
} // namespace

void SetLook()
{
    QApplication::setStyle("Fusion");
    QApplication::setPalette(Colours());
    qApp->setStyleSheet(Sheet);
}
