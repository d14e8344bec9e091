// The table of the main window's menus: names, captions, keys and what each entry does.
#pragma once

#include <span>

class frmMain;

/// One entry. It runs its Action or opens a Window; one that has neither is disabled, and its tool tip says Why. One
/// without a name is a separator.
struct MenuItem
{
    const char* Menu; // name of the menu it is in
    const char* Name;
    const char* Caption;
    const char* Key; // keyboard shortcut
    void (*Action)(frmMain&);
    const char* Why;
    const char* Window = nullptr; // a row of the table of windows
    const char* Kind = "";        // WindowArgs::Kind
};

struct MenuTitle
{
    const char* Name;
    const char* Caption;
};

/// A toolbar button runs the menu entry named Command or, where there is none, its own Action.
struct ToolButton
{
    const char* Caption;
    const char* Russian;
    const char* Icon;
    const char* Command;
    void (*Action)(frmMain&);
    const char* Why;
};

/// The menus from left to right.
std::span<const MenuTitle> AllMenus();

/// The entries of all menus from top to bottom.
std::span<const MenuItem> AllMenuItems();

/// The toolbar's buttons, 0 to 7.
std::span<const ToolButton> AllToolButtons();
