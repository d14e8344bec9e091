// What stands on the screen, control by control, for scripts and for the check that no text is cut.
#pragma once

#include <QString>

class QWidget;

/// A line for each control of Main, of the open windows in its area and of the dialogs above it, 13 columns with tabs
/// between them: window's object name, window's title, control's object name, class, text, "enabled" or "disabled",
/// "visible" or "hidden", left, top, width and height in Main, and width and height that its text needs. Each window
/// stands ahead of its controls as a line of its own. Menu entries are of class QAction; the text of a table is its
/// column headings with "|" between them.
QString ListControls(QWidget& Main);
