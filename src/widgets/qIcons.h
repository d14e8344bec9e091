// The icons of the program, drawn from outlines and so sharp at every density.
#pragma once

#include <QColor>
#include <QIcon>

/// The colour of icons on light grounds.
inline const QColor IconColour(20, 52, 92);

/// The icon of that name in one colour; an unknown name gives an empty picture.
QIcon DrawnIcon(const char* Name, const QColor& Colour);

/// The program's own icon.
QIcon ProgramIcon();
