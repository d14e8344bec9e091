// Where a window stood when it was closed: kept in the per-user settings, and given back to the next one.
#pragma once

#include <QSize>

#include <string>

class QWidget;

/// Gives a window the place and size kept in a section of the settings, or a size in the middle when none is kept;
/// either within what can be seen. Call it when the window is in its place, in the work area or on the screen.
void RestorePlace(QWidget& Window, const std::string& Section, QSize Default, const std::string& Prefix = "");

/// Keeps "Left", "Top", "Width" and "Height" of a window in that section, each with Prefix before it.
void KeepPlace(const QWidget& Window, const std::string& Section, const std::string& Prefix = "");
