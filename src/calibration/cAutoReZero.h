// Automatic re-zeroing: the horizontal angles and then the handle forces, by the counts of the next seconds.
#pragma once

#include "calibration/cReZero.h"

#include <string>

class cAutoReZero
{
public:
    /// The window that shows a pass and takes the frames for it.
    class iView
    {
    public:
        virtual ~iView() = default;

        /// Shows a group of channels with their data started.
        virtual void Begin(eReZeroGroup Group) = 0;

        /// The rows of the pass; nothing when the window was closed or no longer takes frames.
        virtual cReZero* Rows() = 0;

        /// Shows the rows as they stand now.
        virtual void Show() = 0;

        /// Closes the window of a pass that is done.
        virtual void End() = 0;
    };

    explicit cAutoReZero(iView& InitView) : View(InitView) {}

    /// Opens the link and zeroes both groups, each by the last counts of a second; saves the session after each. A
    /// group without channels is passed over. False when it ended early: without a link or counts, with a window that
    /// was closed, or when the session could not be saved (all but the closed window reported to the user).
    bool Run();

    /// The channels that were zeroed and saved, separated by commas.
    const std::string& Names() const { return Zeroed; }

private:
    bool ZeroGroup(eReZeroGroup Group);

    iView& View;
    std::string Zeroed;
};
