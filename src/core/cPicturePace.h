// When the next picture of a live window may be shown: at once after a rest, otherwise a period behind the last one.
#pragma once

#include <cstdint>
#include <optional>

class cPicturePace
{
public:
    /// Milliseconds from Now, the time in milliseconds of any one clock, until a picture is due by gPictureRate.
    int Wait(int64_t Now) const;

    /// A picture was shown at Now.
    void Shown(int64_t Now) { Last = Now; }

private:
    std::optional<int64_t> Last;
};
