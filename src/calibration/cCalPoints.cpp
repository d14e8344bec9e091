// Points added, dropped, cut and brought back.
#include "calibration/cCalPoints.h"

#include "core/mGlobData.h"
#include "core/mSettings.h"

#include <cmath>
#include <utility>

namespace {
// Leaves room at both ends, so that a range without extent can be drawn.
void Widen(double& Min, double& Max, double Part)
{
    const double Room = Max > Min ? (Max - Min) * Part : 1;
    Min -= Room;
    Max += Room;
}
} // namespace

std::span<const CalPoint> cCalPoints::ForTable() const
{
    return mStoredCnt > 2 ? std::span(mPoints).subspan(1, mStoredCnt - 2) : std::span<const CalPoint>();
}

void cCalPoints::SetLine(const CalLine& Line)
{
    mLine = std::isfinite(Line.Q0 + Line.Q1 + Line.R2) ? Line : CalLine{};
}

void cCalPoints::Add(const CalPoint& Point)
{
    mPoints.push_back(Point);
    mStoredCnt = mPoints.size();
    mSums.Add(Point);
    SetLine(mSums.Line());
    mExtremes.TakeP(Point.P);
    mModified = true;
}

void cCalPoints::Remember(const CalSource& Of)
{
    if (mPoints.empty()) return;
    mUndo = mPoints;
    mUndoOf = Of;
    mHasUndo = true;
}

void cCalPoints::DeleteAll(const CalSource& Of)
{
    Remember(Of);
    mPoints.clear();
    mStoredCnt = 0;
    mSums = {};
    mLine = {};
}

void cCalPoints::Replace(CalPoints Points, const CalLine& Line, const CalSource& Of)
{
    Remember(Of);
    mPoints = std::move(Points);
    mStoredCnt = mPoints.empty() ? 0 : mPoints.size() - 1;
    mModified = false;
    SetLine(Line);
}

void cCalPoints::Recalculate()
{
    mSums = SumsOf(mPoints);
    SetLine(mSums.Line());
    for (const CalPoint& Point : mPoints)
        mExtremes.TakeP(Point.P);
}

void cCalPoints::KeepWithin(double Min, double Max, const CalSource& Of)
{
    Remember(Of);
    mPoints.resize(mStoredCnt);
    std::erase_if(mPoints, [=](const CalPoint& Point) { return Point.P < Min || Point.P > Max; });
    mStoredCnt = mPoints.size();
    Recalculate();
}

void cCalPoints::Undo(CalSource& Of)
{
    if (!mHasUndo) return;
    std::swap(mPoints, mUndo);
    if (mUndoOf.Chan != Of.Chan) std::swap(Of, mUndoOf);
    mStoredCnt = mPoints.size();
    mModified = true;
    Recalculate();
}

void cCalPoints::TakeAxes(const CalibrRow* Channel)
{
    if (fAutoAxes && !mPoints.empty()) {
        constexpr double Margin = 0.05;
        mAxes = FindMinMax(mPoints);
        Widen(mAxes.MinP, mAxes.MaxP, Margin);
        Widen(mAxes.MinL, mAxes.MaxL, Margin);
        return;
    }
    mAxes = {Channel ? Channel->Min : 0, Channel ? Channel->Max : 0, 0, FullScale};
    if (mAxes.MaxP <= mAxes.MinP) Widen(mAxes.MinP, mAxes.MaxP, 0);
}

void cCalPoints::BeginAxes(const CalibrRow* Channel)
{
    if (fAutoAxes && !mPoints.empty()) mExtremes = FindMinMax(mPoints);
    TakeAxes(Channel);
}
