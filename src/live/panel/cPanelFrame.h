// What all live panels decide alike: what keys and the playback control ask for, whether what is shown still holds, and
// what becomes of a recording that runs when a panel is closed.
#pragma once

#include <cstdint>
#include <string>

/// What the window has to do after a key or a playback command.
enum class ePanelWish
{
    None,
    StartLog,     // start a recording
    StopLog,      // end it
    ToggleReplay, // hold the replay, or let it go on
    ShowSample,   // take the sample at the play clock
    Close
};

class cPanelFrame
{
public:
    /// InitSource tells where the panel's samples come from: a SourceMode.
    explicit cPanelFrame(int16_t InitSource) : Source(InitSource) {}

    /// The space bar of a panel that plays recordings.
    ePanelWish PressSpace() const;

    /// The button or key that starts and stops a recording.
    static ePanelWish PressLog();

    /// Playback control: PlayClose closes, every other ePlayCode but PlayPause moves the play row to the play clock.
    static ePanelWish DoAction(int Code);

    /// Does a wish that concerns no window: the recording and the replay.
    static void Obey(ePanelWish Wish);

    /// Whether the values shown hold, Live telling whether frames come: what a recording gave does so while the replay
    /// is held, too.
    bool Holds(bool Live) const;

    /// Whether the panel may be closed: over a running recording the user is asked.
    bool AskToClose();

    /// Ends the recording that ran when AskToClose was called. Gives its file for the data view, "" when none opens.
    std::string EndLogging() const;

private:
    int16_t Source;
    bool WasLogging = false;
};
