// The strip over a scanned recording: rate and speed of every stroke, and the strokes that are selected.
#pragma once

#include "platform/iSurface.h"

#include <string>

class cDataNav
{
public:
    explicit cDataNav(iSurface& InitSurface) : Surface(InitSurface) {}

    // The selected rows of gScanRows, 0 and 0 for none.
    int FirstRow = 0;
    int LastRow = 0;

    int Cursor = 0; // row that was clicked, 0 when there is none

    bool HasSelection() const { return FirstRow >= 1 && FirstRow < LastRow; }

    /// Whether there is a start without a stop.
    bool IsOpen() const { return FirstRow >= 1 && LastRow == 0; }

    /// Row of gScanRows at a place, 1 at its left end; 0 without rows.
    int RowAt(double X) const;

    /// Selects the rows between two places.
    void Select(double X1, double X2);

    /// Sets the start or the stop at the cursor, the other way round when they lie so. A stop that does not lie behind
    /// a new start is dropped: the selection is open.
    void SetStart();
    void SetStop();

    /// Selects all rows.
    void SelectAll();

    /// Puts a selection that lies beyond the table back into it.
    void Clip();

    /// Draws everything.
    void Draw();

    /// Duration, strokes, rate, speed and distance of the selected rows; what the strip shows when there are none.
    std::string Caption() const;

    /// Number, time, rate, speed and distance of a row, empty for 0.
    static std::string RowText(int Row);

private:
    void DrawRows();
    double RowToX(int Row) const;
    void DrawScale();
    void DrawTitles();

    iSurface& Surface;
};
