// Samples and their places, the selection, zoom and scrolling.
#include "views/data/cDataRange.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double MarginShare = 0.03; // of the width, left of the curves

double Single(double X)
{
    return static_cast<double>(static_cast<float>(X));
}
} // namespace

void cDataRange::SetWidth(double Width)
{
    MarginX = Single(MarginShare * Width);
    StepX = Single(std::max((Width - MarginX) / Steps, 1e-3));
}

int32_t cDataRange::LastSample()
{
    return gRaw.UBound();
}

bool cDataRange::ZoomOut()
{
    if (gXScale >= MaxXScale) return false;
    gXScale = static_cast<int16_t>(gXScale * 2);
    SaveSetting("gXScale");
    return true;
}

bool cDataRange::ZoomIn()
{
    if (gXScale < 2) return false;
    gXScale = static_cast<int16_t>(gXScale / 2);
    SaveSetting("gXScale");
    return true;
}

bool cDataRange::ZoomAt(double X, bool IsIn)
{
    const int32_t Sample = RawXtoLog(X);
    if (!(IsIn ? ZoomIn() : ZoomOut())) return false;
    ScrollTo(Sample - PointAt(X) * gXScale);
    return true;
}

void cDataRange::MoveView(double Frac)
{
    ScrollTo(FirstSample + std::trunc(Frac * Steps) * gXScale);
}

void cDataRange::ScrollTo(double Sample)
{
    FirstSample = static_cast<int32_t>(std::clamp<double>(std::trunc(Sample), 0, std::max(LastSample(), 0)));
}

void cDataRange::Scroll(int Value)
{
    ScrollTo(static_cast<double>(Value) / ScrollMax * LastSample());
}

int cDataRange::ScrollValue() const
{
    return static_cast<int>(RoundHalfEven(SafeDiv(static_cast<double>(FirstSample) * ScrollMax, LastSample())));
}

int cDataRange::ScrollPage()
{
    const double Page = ScrollMax * SafeDiv(static_cast<double>(gXScale) * Steps, LastSample());
    return static_cast<int>(std::clamp(Page, 1.0, static_cast<double>(ScrollMax)));
}

void cDataRange::ScrollToEnd()
{
    ScrollTo(LastSample() - static_cast<double>(gXScale) * Steps);
}

void cDataRange::Select(int32_t From, int32_t To)
{
    const int32_t Last = std::max(LastSample(), 0);
    Start = std::clamp(From, 0, Last);
    Stop = std::clamp(To, 0, Last);
    Open = false;
    if (Start >= Stop) ClearSelection();
}

bool cDataRange::SelectPlaces(double X1, double X2)
{
    const auto Within = [](int32_t Sample) { return std::clamp(Sample, 0, std::max(LastSample(), 0)); };
    const int32_t From = Within(RawXtoLog(std::min(X1, X2))), To = Within(RawXtoLog(std::max(X1, X2)));
    if (From == To) return false;
    Select(From, To);
    return true;
}

void cDataRange::SetStart(int32_t Sample)
{
    Start = Sample;
    Open = Stop <= Start;
    if (Open) Stop = 0;
}

void cDataRange::SetStop(int32_t Sample)
{
    Stop = std::max(Start, Sample);
    Start = std::min(Start, Sample);
    Open = Start == Stop;
    if (Open) Stop = 0;
}

void cDataRange::ClearSelection()
{
    Start = Stop = 0;
    Open = false;
}

void cDataRange::EndSelection()
{
    if (Stop == 0) Select(Start, LastSample());
}

bool cDataRange::SetCursor(double X)
{
    const int32_t Sample = RawXtoLog(X);
    if (Sample < 0 || Sample > LastSample()) return false;
    Cursor = Sample;
    return true;
}

void cDataRange::MoveCursor(int Points)
{
    const int32_t Last = std::max(LastSample(), 0);
    const int32_t From = Cursor < 0 ? FirstSample + Steps / 2 * gXScale : Cursor;
    Cursor = std::clamp(From + Points * gXScale, 0, Last);
    if (Cursor < FirstSample || Cursor > FirstSample + Steps * gXScale) ScrollTo(Cursor - Steps / 2.0 * gXScale);
}

void cDataRange::Clip()
{
    const int32_t Last = std::max(LastSample(), 0);
    if (!Open)
        Select(Start, Stop);
    else if (Start > Last)
        ClearSelection();
    if (Cursor > Last) Cursor = -1;
    FirstSample = std::clamp(FirstSample, 0, Last);
}

double cDataRange::PointX(int k) const
{
    return MarginX + std::trunc(Single(k * StepX));
}

double cDataRange::PointAt(double X) const
{
    return std::trunc(Single((X - MarginX) / StepX));
}

int32_t cDataRange::RawXtoLog(double X) const
{
    return static_cast<int32_t>(gXScale * PointAt(X)) + FirstSample;
}

double cDataRange::LogToX(double Sample) const
{
    return MarginX + (Sample - FirstSample) / gXScale * StepX;
}
