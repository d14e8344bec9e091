// Keys inside a window of the work area: its own commands come before the main window's menus.
#pragma once

#include <QKeySequence>

#include <functional>

class QWidget;

/// Lets the buttons and labelled boxes of Window take their Alt keys while the keyboard is in it, although a menu has
/// the same letter.
void TakeMnemonics(QWidget& Window);

/// Runs Action at a key while the keyboard is in Window. As a shortcut the key would be ambiguous beside a menu or
/// another window that has the same one, and do nothing in either.
void TakeKey(QWidget& Window, QKeySequence::StandardKey Key, std::function<void()> Action);
