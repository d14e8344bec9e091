// The list of open windows that take frames, and how frames and their absence are handed to them.
#pragma once

#include "core/mNotice.h"

#include <string>
#include <vector>

/// Tag of the windows that take frames.
inline constexpr const char* DataTag = "D";

/// Tag of the windows of data that take none, such as the data view.
inline constexpr const char* ViewTag = "V";

/// A window in the list of loaded windows: it enters the list when it is made and leaves it when it is gone.
class cDataWindow
{
public:
    explicit cDataWindow(std::string InitTag);
    virtual ~cDataWindow();
    cDataWindow(const cDataWindow&) = delete;
    cDataWindow& operator=(const cDataWindow&) = delete;

    /// "D" to receive frames; a window that is closing has none.
    std::string Tag;

    /// The logger was restarted and its clock runs from 0 again: strokes, rates and scores start again with the frame
    /// in gData. TakeSample is called for it next.
    virtual void NewRun() {}

    /// A frame was decoded: gData holds it. Recognisers, curves, scores and points take it in; nothing is drawn.
    virtual void TakeSample() {}

    /// One or more frames were taken; gData holds the last one. Draws only what changed.
    virtual void DrawData() = 0;

    /// Playback control: a code of ePlayCode.
    virtual void DoAction(int /*Code*/) {}

    /// Whether the window shows live data, started or not, so that the link stays open for it.
    virtual bool NeedsLink() const { return true; }

    /// Whether the values shown are still coming; those that are not are shown grey. A new window is not live.
    virtual void SetLive(bool Live) = 0;

    /// Closes the window. One that holds what is not saved asks first, and may stay.
    virtual void Unload() = 0;

    /// Another session was opened, with other channels. A window that cannot show it closes.
    virtual void NewSession() { Unload(); }

    /// Calls DrawData; before it SetLive(true) when the window was not live.
    void TakeFrame();

    /// Calls SetLive(false) when the window was live.
    void LoseFrames();

    bool HasFailed = false; // gets no frames until the next stream
    bool IsAtWork = false;  // still has one: it may have asked the user a question

private:
    bool IsLive = false;
    cListener Session; // calls NewSession, LoseFrames ahead of it
};

/// No frame has come yet.
void InitDataWindows();

/// The loaded windows in the order in which they were opened.
const std::vector<cDataWindow*>& LoadedWindows();

/// Whether a loaded window needs the link.
bool IsLinkNeeded();

/// Calls TakeSample of each window tagged "D", in order: once for every decoded frame. A window that fails is reported
/// to the user once and then left out; the others go on.
void SampleDataWindows();

/// Calls NewRun of each window tagged "D", in order. Failures as with samples.
void BeginRun();

/// Calls DrawData of each window tagged "D", in order: once for each arrival of frames. Failures as with samples.
void DrawDataWindows();

/// A new stream begins: windows that failed get frames again.
void RetryDataWindows();

/// Calls LoseFrames of each window when no frame has come for a second.
void CheckLive();

/// Unloads each window of data, with frames or without, from the last to the first.
void CloseDForms();
