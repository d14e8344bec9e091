// Key values, starts and rates.
#include "live/coach/cCoachClock.h"

#include "base/mError.h"
#include "core/mGlobData.h"

#include <algorithm>

void cCoachClock::Load()
{
    *this = {};
    if (gKeyChan < 1 || gKeyChan > gFile.ChanCnt || gKeyChan > LastDataChan) return;
    Chan = gKeyChan;
    Q0 = gKeyQ0;
    Q1 = gKeyQ1;
}

bool cCoachClock::Take()
{
    if (Chan == 0 || gData[0] <= 0) return false;
    const double X = Q1 * gData[static_cast<std::size_t>(Chan)] + Q0;
    if (!HasSamples) {
        StartT = gData[0];
        Keys.fill(X);
        HasSamples = true;
        return false;
    }
    Time = gData[0] - StartT;
    const auto [K0, K1, K2, K3] = Keys;
    const bool IsStart = K3 < K2 && K2 <= K1 && K1 > K0 && K0 > X;
    if (IsStart) {
        ++Strokes;
        Rate = SafeDiv(60, Time - LastT);
        RateSum += Rate;
        LastT = Time;
    }
    std::copy_backward(Keys.begin(), Keys.end() - 1, Keys.end());
    Keys[0] = X;
    return IsStart;
}

double cCoachClock::RateAver() const
{
    return SafeDiv(RateSum, Strokes);
}
