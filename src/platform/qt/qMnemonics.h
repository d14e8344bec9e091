// Alt with a letter inside a window of the work area: its own controls come before the main window's menus.
#pragma once

class QWidget;

/// Lets the buttons and labelled boxes of Window take their Alt keys while the keyboard is in it, although a menu has
/// the same letter.
void TakeMnemonics(QWidget& Window);
