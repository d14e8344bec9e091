// The numbers of a live row's strokes: collected sample by sample, made at a stroke's end, drawn with the marks of the
// row's stroke model.
#pragma once

#include "core/mGlobData.h"
#include "live/panel/cStrokeModel.h"
#include "live/panel/cStrokeStats.h"
#include "platform/iSurface.h"

#include <span>
#include <string>
#include <vector>

/// A key of the row's functions with its value for the stroke that ended.
struct StrokeNumber
{
    std::string Key;
    double Value = 0;
    bool IsMade = true; // false for a score that could not be given
};

/// How a row writes its numbers.
struct NumberPen
{
    int32_t Colour = 0;
    int Width = 1;
    SurfacePlace At; // the first number; the others stand below it
};

class cStrokeNumbers
{
public:
    /// Reads keys, targets and marks of a row of View1. What it leaves out or names wrongly costs it numbers only.
    void Init(const ViewRow& View);

    /// Whether the row has keys.
    bool HasKeys() const { return !Numbers.empty(); }

    /// Takes a sample: the row's x, its result y, its first argument a, and the time in seconds.
    void Take(double X, double Y, double A, double Time);

    /// The stroke has ended with the sample taken last, whose x is X. Switched off, the values are not made and the
    /// extremes run on. Allocates nothing but texts.
    void EndStroke(double X);

    /// The numbers that the last EndStroke made, in the order of the row's keys; none while they are switched off.
    std::span<const StrokeNumber> Made() const;

    /// Draws them with their marks.
    void Draw(iSurface& Surface, const NumberPen& Pen) const;

private:
    void ReadModel(const ViewRow& View);
    void SetFuncs(double X);
    void CheckModel();
    void DrawMarks(iSurface& Surface, const NumberPen& Pen) const;
    void DrawForceMark(iSurface& Surface, const NumberPen& Pen, int Key, double Score, int32_t& Ink) const;
    void DrawNumbers(iSurface& Surface, const NumberPen& Pen) const;

    std::vector<StrokeNumber> Numbers;
    std::vector<ModelTarget> Targets; // of the keys behind the first
    bool IsMod = false;
    bool IsAcceleration = false; // the model, instead of force
    bool HasStroke = false;      // the last stroke's numbers were made
    std::string MarkText;        // of the acceleration model; empty for a stroke that it could not measure
    int MarkDiam = 0;            // the radius of marks
    int MarkFont = 0;
    int MarkX = 0;
    int MarkY = 0;
    cStrokeStats Stats;
    cStrokeModel Model;
};
