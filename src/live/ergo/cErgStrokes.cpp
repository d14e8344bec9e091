// Extremes of the handle with two samples on either side, and sums over the drive.
#include "live/ergo/cErgStrokes.h"

#include "base/mError.h"

#include <algorithm>

double ErgStroke::MeanForce() const
{
    return SafeDiv(Work, Length);
}

bool cErgStrokes::Take(double Time, double Key, double Force)
{
    if (!HasSamples) {
        HasSamples = true;
        K.fill(Key);
        PrevForce = Force;
        PrevTime = Time;
        return false;
    }
    if (Key > K[0]) Drive(Time, Key, Force);
    const bool IsCatch = K[3] > K[2] && K[2] >= K[1] && K[1] < K[0] && K[0] < Key;
    const bool IsFinish = K[3] < K[2] && K[2] <= K[1] && K[1] > K[0] && K[0] > Key;
    if (IsCatch) Catch(Time);
    if (IsFinish) Finish(Time);
    std::copy_backward(K.begin(), K.end() - 1, K.end());
    K[0] = Key;
    PrevForce = Force;
    PrevTime = Time;
    return IsFinish;
}

// The handle's velocity is taken per sample step, so that work is also the sum of power.
void cErgStrokes::Drive(double Time, double Key, double Force)
{
    if (Force > Now.MaxForce) {
        Now.MaxForce = Force;
        Now.MaxForceT = Time;
    }
    const double MeanForce = (Force + PrevForce) / 2;
    Now.WorkSum += (Key - K[0]) * MeanForce;
    Now.ImpulseSum += (Time - PrevTime) * MeanForce;
}

void cErgStrokes::Catch(double Time)
{
    CatchT = Time;
    CatchKey = K[1];
    HasCatch = true;
}

void cErgStrokes::Finish(double Time)
{
    ErgStroke New;
    New.StrokeCnt = ToInt16(int64_t{Ended.StrokeCnt} + 1);
    New.CycleTime = Time - FinishPrevT;
    Sum += New.CycleTime;
    New.Rate = SafeDiv(60, New.CycleTime);
    New.RateAver = SafeDiv(New.StrokeCnt * 60, Sum);
    New.DriveTime = Time - CatchT;
    New.Length = K[1] - CatchKey;
    New.RecovTime = New.CycleTime - New.DriveTime;
    New.MaxForce = Now.MaxForce;
    New.MaxForceT = Now.MaxForceT - CatchT;
    New.Work = Now.WorkSum;
    New.Power = SafeDiv(New.Work, New.CycleTime);
    New.AverForce = SafeDiv(New.Work, New.DriveTime);
    New.Impulse = Now.ImpulseSum;
    New.IsWhole = HasFinish && HasCatch;
    Ended = New;
    Now = {};
    FinishPrevT = Time;
    HasFinish = true;
    HasCatch = false;
}
