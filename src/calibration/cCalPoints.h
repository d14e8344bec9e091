// The points of a calibration with what follows from them: running line, extremes, axes, undo.
#pragma once

#include "calibration/mCalPoints.h"

#include <cstdint>
#include <string>

struct CalibrRow;

/// Whose points they are.
struct CalSource
{
    int16_t Chan = 0;
    std::string SensID;
};

class cCalPoints
{
public:
    const CalPoints& All() const { return mPoints; }
    bool IsEmpty() const { return mPoints.empty(); }

    /// Those that are stored in a file: of points that were loaded all but the last.
    std::span<const CalPoint> Stored() const { return std::span(mPoints).first(mStoredCnt); }

    /// Those that a reference table is made from: of the stored ones neither the first nor the last.
    std::span<const CalPoint> ForTable() const;

    /// The line as it runs; one that overflowed is none.
    const CalLine& Line() const { return mLine; }
    void SetLine(const CalLine& Line);

    /// Physical values of all points taken since the axes were taken, dropped ones included.
    const CalRange& Extremes() const { return mExtremes; }

    const CalRange& Axes() const { return mAxes; }

    /// Whether points came since the last save.
    bool IsModified() const { return mModified; }
    void SetSaved() { mModified = false; }

    void Add(const CalPoint& Point);

    /// Drops all points; the extremes stay.
    void DeleteAll(const CalSource& Of);

    /// Takes the points and the line of a file in place of the present ones. Those saved count as saved.
    void Replace(CalPoints Points, const CalLine& Line, const CalSource& Of);

    /// Takes line and extremes from the points.
    void Recalculate();

    /// Drops the points outside a range of physical values.
    void KeepWithin(double Min, double Max, const CalSource& Of);

    bool CanUndo() const { return mHasUndo; }

    /// Exchanges the points for those before they were last dropped, replaced or cut, and Of for where those are from.
    void Undo(CalSource& Of);

    /// Takes the axes from the points, or from the limits of Channel where they are not automatic. Nothing for Channel:
    /// the session has none.
    void TakeAxes(const CalibrRow* Channel);

    /// TakeAxes; with automatic axes the extremes begin anew with the points that are there.
    void BeginAxes(const CalibrRow* Channel);

private:
    void Remember(const CalSource& Of);

    CalPoints mPoints;
    std::size_t mStoredCnt = 0;
    CalSums mSums;
    CalLine mLine;
    CalRange mExtremes;
    CalRange mAxes;
    bool mModified = false;
    CalPoints mUndo;
    CalSource mUndoOf;
    bool mHasUndo = false;
};
