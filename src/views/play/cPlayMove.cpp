// The play clock, and how the rows follow it.
#include "views/play/cPlay.h"

#include "base/mError.h"
#include "base/mNumText.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double Slack = 1e-9; // of a step or a cycle, for sums of steps

// The number of the picture at a time.
int32_t FrameAt(double Time)
{
    constexpr int32_t Many = 1 << 30;
    return RoundWithin(SafeDiv(Time, gPlayStep), -Many, Many);
}
} // namespace

void cPlay::GoCurTime()
{
    if (Played.Mode == PlayPrimary)
        MovePrim(gPlayTime);
    else if (Played.Mode == PlayTypical)
        MoveNorm(gPlayTime);
    else
        MoveComplex();
}

void cPlay::MovePrim(double Time)
{
    const int32_t Former = gPlayIdx;
    FindTimeIdx(Time + Offset);
    const int32_t Shift = gPlayIdx - Former;
    for (PlayRow& Each : Objects)
        Each.Plot.CalcPrim(Shift);
    ShownTime = Time;
    SliderShare = SafeDiv(Time, LastTime);
}

void cPlay::MoveNorm(double Time)
{
    const double T = Offset + Time;
    const double InCycle = T - std::trunc(SafeDiv(T, CycleTime)) * CycleTime;
    CalcNorm(SafeDiv(InCycle, CycleTime));
}

void cPlay::MoveComplex()
{
    CalcNorm(SafeDiv(gPlayFrame * gPlayStep, CycleTime));
}

// Times ahead of the first cycle count back from its end.
void cPlay::CalcNorm(double Frac)
{
    SliderShare = Frac - std::floor(Frac);
    ShownTime = SliderShare * CycleTime;
    for (PlayRow& Each : Objects) {
        Each.Plot.CalcNorm(Frac);
        if (Each.Figure) Each.Figure->CalcAnim(Frac);
    }
}

double cPlay::Length() const
{
    if (IsPrimary()) return LastTime;
    return Played.Mode == PlayTypical && Played.Duration > 0 ? Played.Duration : CycleTime;
}

bool cPlay::StepBy(int Steps)
{
    const double Time = gPlayTime + Steps * gPlayStep;
    const double Whole = Length();
    if (IsPrimary() && (Time < 0 || Time > Whole)) {
        SetTime(std::clamp(Time, 0.0, Whole));
        return false;
    }
    if (IsPrimary() || (Time > -Slack * gPlayStep && Time < Whole - Slack * gPlayStep)) {
        gPlayTime = Time;
        gPlayFrame += Steps;
        GoCurTime();
    } else {
        SetTime(Time);
    }
    return true;
}

void cPlay::ToStart()
{
    LeftOver = 0;
    gPlayTime = 0;
    gPlayFrame = 0;
    GoCurTime();
}

void cPlay::ToEnd()
{
    SetTime(IsPrimary() ? LastTime : Length() - gPlayStep);
}

bool cPlay::Advance(double Seconds)
{
    if (!(gPlayStep > 0)) return false;
    LeftOver += Seconds;
    const int Steps = RoundWithin(std::floor(LeftOver / gPlayStep), 0, 1 << 20);
    LeftOver -= Steps * gPlayStep;
    return Steps == 0 || StepBy(Steps);
}

// Beyond the ends of its length a cycle, or a video, begins again.
void cPlay::SetTime(double Time)
{
    const double Whole = Length();
    if (IsPrimary())
        gPlayTime = std::clamp(Time, 0.0, Whole);
    else
        gPlayTime = Whole > 0 ? Time - std::floor(Time / Whole + Slack) * Whole : 0;
    if (gPlayTime < 0) gPlayTime = 0;
    gPlayFrame = FrameAt(gPlayTime);
    GoCurTime();
}

void cPlay::SetShare(double Share)
{
    if (IsPrimary()) return SetTime(Share * LastTime);
    // The last place of the slider is the cycle's end, not the beginning of the next one.
    SetTime(gPlayTime + (std::min(Share, 1 - 1e-6) - SliderShare) * CycleTime);
}

std::optional<double> cPlay::TimeAt(SurfacePlace Place) const
{
    for (const PlayRow& Each : Objects) {
        const PlotRect& Frame = Each.Plot.Rect();
        const bool IsInside =
            Place.X >= Frame.Left && Place.X <= Frame.Right && Place.Y >= Frame.Top && Place.Y <= Frame.Bottom;
        if (!IsInside || Each.Figure) continue;
        const double Share = (Place.X - Frame.Left) / Frame.Width();
        const double Seconds = Each.Plot.LeftTime() + Share * (Each.Plot.RightTime() - Each.Plot.LeftTime());
        if (IsPrimary()) return Seconds;
        return Seconds * SafeDiv(CycleTime, Each.Plot.PointStep() * Each.Plot.PointCount());
    }
    return {};
}

std::string cPlay::TimeText() const
{
    return FormatNum(ShownTime, "0.00");
}

std::string cPlay::ShareText() const
{
    return FormatNum(SliderShare, "0%");
}

void cPlay::SetCorrection(double Seconds)
{
    Offset = Seconds;
    GoCurTime();
}

// Of equal places in all cycles the nearest is meant.
void cPlay::MatchData(double Seconds)
{
    if (!MatchTime) return;
    double Found = gPlayTime + Offset + Seconds - *MatchTime;
    if (!IsPrimary() && CycleTime > 0) Found -= RoundHalfEven(Found / CycleTime) * CycleTime;
    MatchTime.reset();
    SetCorrection(RoundHalfEven(Found * 100) / 100);
}
