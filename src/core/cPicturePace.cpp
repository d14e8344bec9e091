// The period between pictures.
#include "core/cPicturePace.h"

#include "core/mSettings.h"

#include <algorithm>

int cPicturePace::Wait(int64_t Now) const
{
    const int64_t Period = 1000 / std::clamp<int>(gPictureRate, 1, 250);
    // A clock that was set back costs one period.
    return Last ? static_cast<int>(std::clamp<int64_t>(*Last + Period - Now, 0, Period)) : 0;
}
