// The coach's panel without its window: a table of stroke variables of each oar or seat against the crew's targets, and
// the stroke clock.
#pragma once

#include "live/coach/cCoachClock.h"
#include "live/coach/cOarVars.h"
#include "live/coach/cStrokeTimes.h"
#include "live/panel/cRunWatch.h"
#include "live/panel/mVerdict.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// What stands in a cell of the table.
struct CoachCell
{
    bool HasValue = false;
    double Value = 0;
    std::optional<eVerdict> Verdict; // against the target; none without one
    bool IsStale = false;            // two strokes have been rowed without it
    bool IsMissing = false;          // the variable cannot be formed

    bool operator==(const CoachCell&) const = default;
};

/// Line and column of a cell, from 0.
struct CoachPlace
{
    int Row = 0;
    int Column = 0;
};

/// A value against its target: green when the target is reached, blue within the last 3 percent to it, else red. A
/// target of 0 or below is reached by going further down.
eVerdict TargetColor(double Value, double Target);

class cCoach
{
public:
    /// Opens the panel on gFile: its oars, and the columns that the targets have. Without targets there are no columns,
    /// or with ShowsAlways the seven variables. Nothing of what was rowed before remains.
    void Load(bool ShowsAlways = false);

    /// Counts the frames of the source anew.
    static void InitMode();

    /// Takes the newest sample. Allocates nothing.
    void TakeSample();

    /// The logger was restarted: all figures begin anew with the newest sample, which is taken next.
    void NewRun();

    /// Closes the panel.
    static void Unload();

    /// What the cells show: an eDisplay. What was rowed is shown in the new way at once.
    void SetDisplayMode(int16_t NewMode);

    /// How the oars of a sculler are shown: an eScull. The table has other lines then.
    void SetScullMode(int16_t NewMode);

    /// Whether the boat is sculled, so that the mode matters.
    bool IsScull() const { return HasSculls; }

    const cCoachClock& Clock() const { return Strokes; }

    /// Whether the newest sample started a stroke of the clock.
    bool IsStart() const { return NewStroke; }

    /// Whether the oars have gone on for two strokes without the clock.
    bool IsClockStale() const;

    /// Changes whenever the lines and columns were made anew.
    int TableNumber() const { return TableCnt; }

    int RowCount() const { return static_cast<int>(Rows.size()); }
    int ColumnCount() const { return Columns; }
    CoachCell Cell(CoachPlace Place) const;

    /// Cells that took another value with the newest sample, line by line.
    std::span<const CoachPlace> Changes() const { return Changed; }

    // The texts of the table.
    const std::string& RowName(int Row) const { return Rows[static_cast<std::size_t>(Row)].Name; }
    const std::string& Head(int Column) const { return Heads[static_cast<std::size_t>(Column)]; }
    std::string TargetText(int Column) const;
    const std::string& TargetGroup() const { return Group; }
    static std::string Text(const CoachCell& Cell);

    /// What a cell means, in words.
    std::string Meaning(CoachPlace Place) const;

    /// What stands in the place of the table, or of its values, when there are none; "" when there are.
    std::string Note() const;

    /// Colour of a line's name, 0x00BBGGRR, dark enough to be read on a light ground.
    int32_t RowInk(int Row) const { return Rows[static_cast<std::size_t>(Row)].Ink; }

private:
    // A line: one oar, or both sculls of a seat.
    struct Line
    {
        std::string Name;
        int32_t Ink = 0;
        std::size_t First = 0; // oar
        bool IsPair = false;   // the next oar belongs to it, too
    };

    void MakeOars();
    void MakeRows();
    void AddRow(int Seat, std::size_t First, bool IsPair, const char* Side);
    void TakeTargets();
    void ReadTargets(bool ShowsAlways);
    void TakeRow(int Row);
    bool IsFinished(const Line& Of) const;
    bool Has(const Line& Of, int Column) const;
    double ValueOf(const Line& Of, int Column) const;
    bool IsStale(const Line& Of) const;
    CoachCell& CellAt(CoachPlace Place);

    std::vector<cOarVars> Oars;
    std::vector<cStrokeTimes> Finishes; // of each oar
    std::vector<Line> Rows;
    std::vector<CoachCell> Cells; // line by line
    std::vector<CoachPlace> Changed;
    int Columns = 0;
    int TableCnt = 0; // tables made so far
    bool HasTargets = false;
    bool IsPlain = false; // the variables are shown without targets, too
    std::vector<std::string> Heads;
    std::vector<double> Wanted;  // the row of the targets, as it stands in the file
    std::vector<double> Targets; // of one line
    std::string Group;

    int16_t Display = 0; // eDisplay
    int16_t Scull = 0;   // eScull
    bool HasSculls = false;
    cCoachClock Strokes;
    cStrokeTimes Starts; // of the clock
    bool NewStroke = false;
    cRunWatch Run;
};
