// What the mouse does in the data view: dragging selects, a click sets the cursor, the wheel zooms at the pointer.
#pragma once

#include "views/data/cDataNav.h"
#include "views/data/cDataPlot.h"

class cDataMouse
{
public:
    /// The button goes down.
    void Press(double X) { DragFrom = X; }

    /// The pointer moves with the button held: gives whether another stretch is selected.
    bool Drag(cDataRange& Range, double X) const { return IsDrag(X) && Range.SelectPlaces(DragFrom, X); }
    bool Drag(cDataNav& Nav, double X) const;

    /// Whether the pointer is so far from where the button went down that this is no click.
    bool IsDrag(double X) const;

    /// The wheel turns, in eighths of a degree. Gives whether the view has zoomed or moved.
    bool Turn(cDataRange& Range, double X, int Sideways, int Upward);

private:
    double DragFrom = 0;
    int WheelTurn = 0; // towards the next notch, eighths of a degree
};
