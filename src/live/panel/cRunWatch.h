// Whether the frames that come belong to a run that a live panel has not seen yet.
#pragma once

#include "core/mGlobData.h"

#include <utility>

class cRunWatch
{
public:
    /// Looks at the newest frame: true for the first frames of a panel, whose link may have been opened behind it, and
    /// when frames are counted anew, for a replay or another link. Strokes of the run before are none of this one.
    bool IsNewRun()
    {
        const int32_t Before = std::exchange(FramesSeen, gFrameCnt);
        return gFrameCnt < Before || (Before == 0 && gFrameCnt > 0);
    }

private:
    int32_t FramesSeen = 0; // gFrameCnt at the last frame
};
