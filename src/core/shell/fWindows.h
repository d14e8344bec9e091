// The table of windows: what each is called, how it is made, how many there are, where it stands and what it needs.
#pragma once

#include <QSize>

#include <cstdint>
#include <span>
#include <string>

class QWidget;
class frmMain;

/// What a window is opened with; each uses what it needs of it.
struct WindowArgs
{
    std::string File{}; // that it shows
    std::string Kind{}; // of the table that it shows
    int Mode = 0;       // a number of the window's own
    int16_t Sample = 0; // row of gFile.Desc
    int32_t First = 0;  // samples of gRaw
    int32_t Last = 0;
    bool OpensLink = true;      // false: a file is played, or the link is open
    bool ChoosesTargets = true; // false: they were chosen for a window before it
    QWidget* Owner = nullptr;   // window that it belongs to
};

enum class eCount
{
    One,      // the one that is open comes to the front
    OneAnew,  // a new one in place of the one that is open, unless that stays
    OneAKind, // one for each WindowArgs::Kind, whose name stands behind the window's
    Many
};

enum class ePlace
{
    Kept,  // in the work area, where it was closed
    Tiled, // in the work area, side by side with what is open
    Dialog // above the main window, which waits for it
};

/// What is seen to ahead of a window.
enum eNeeds : unsigned
{
    NeedsNothing = 0,
    NeedsSession = 1, // an open session: without one that is said, and the window is not opened
    NeedsLink = 2,    // the link is opened and the logger asked to stream; the window is opened even if that fails
    NeedsTargets = 4  // the targets are chosen anew when it is made
};

struct WindowKind
{
    const char* Name;                              // object name
    const char* Title;                             // in messages
    QWidget* (*Make)(frmMain&, const WindowArgs&); // null when it cannot be made (reported to the user)
    eCount Count;
    ePlace Place;
    unsigned Needs;
    const char* Section = nullptr; // of the settings where its place is kept; null: it keeps none, or sees to it itself
    const char* Prefix = "";       // ahead of the keys there; OneAKind puts the kind and "_" there
    QSize Size{};                  // without a kept place; none: all of the work area
};

/// All windows but the main one.
std::span<const WindowKind> AllWindows();

/// The row of that name, null when there is none.
const WindowKind* FindWindow(const std::string& Name);

/// The open window of that name, null when there is none. One that is closing no longer counts.
QWidget* FindOpen(const frmMain& Main, const std::string& Name);

/// Opens a window as its row says, or brings the one that is open to the front. Null when it is not opened (reported to
/// the user).
QWidget* OpenWindow(frmMain& Main, const std::string& Name, const WindowArgs& Args = {});
