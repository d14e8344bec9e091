// Body segments measured on a still picture: a known length gives the scale, two clicks give each segment.
#pragma once

#include "core/mGlobData.h"
#include "records/mAntro.h"

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// A length of the table of measurements, with the millimetres in its unit.
struct BodyLength
{
    const char* Name;
    float AntroRow::*Member;
    double Millimetres; // in a unit of the table
};

/// The lengths that can be measured, in the order in which clicks take them.
std::span<const BodyLength> BodyLengths();

/// Line 0 is the known length, line i the i-th of BodyLengths. Places are pixels of the picture.
class cAnthro
{
public:
    cAnthro();

    /// The known length in millimetres; 0 while it is not given: then nothing has a length.
    void SetKnown(double Millimetres) { Known = Millimetres; }

    /// The line that the next clicks measure.
    void Select(int Line);

    // The mouse: a press on an end drags it, elsewhere it places the next end; the second goes on to the next line.
    void Press(double X, double Y, double Reach);
    void Move(double X, double Y);
    void Release() { Dragged = nullptr; }

    /// Takes the last click back. False when there is none.
    bool Undo();

    /// Length of a line in millimetres, nothing while it is not measured.
    std::optional<double> Length(int Line) const;

    int Current() const { return CurLine; }

    /// What the next click places, as "Shank: first end".
    std::string NextName() const;

    /// The ends of a line, not placed as long as they were not clicked.
    const std::pair<VideoPoint, VideoPoint>& Ends(int Line) const;

    bool HasMeasured() const;

    /// Stores what was measured in the table of measurements, as today's of the rower: what was not measured stays as
    /// it was in the newest row. Saves the table. False when that failed, or when nothing is measured (reported to the
    /// user): the table is as it was.
    bool Store(const std::string& RowerID);

private:
    struct Step
    {
        int Line = 0;
        std::pair<VideoPoint, VideoPoint> Before;
    };

    double Known = 0;
    int CurLine = 0;
    std::vector<std::pair<VideoPoint, VideoPoint>> Lines;
    std::vector<Step> Steps;
    VideoPoint* Dragged = nullptr;
};
