// Which samples the data view shows and which are selected: places on the plot, zoom, scrolling, selection, cursor.
#pragma once

#include <cstdint>

class cDataRange
{
public:
    static constexpr int Steps = 400;    // a curve has one point more
    static constexpr int MaxXScale = 64; // samples for each of them

    int32_t FirstSample = 0; // at the left edge
    int32_t Cursor = -1;     // sample that was clicked, -1 when there is none

    /// Index of the last sample, -1 in an empty store.
    static int32_t LastSample();

    /// The width of the plot, from which places are counted.
    void SetWidth(double Width);

    // The selection. A start without a stop is open: nothing is selected until it has one.
    int32_t SelStart() const { return Start; }
    int32_t SelStop() const { return Stop; }

    /// Whether a stretch is selected.
    bool HasSelection() const { return Start < Stop; }

    /// Whether there is a start without a stop.
    bool IsOpen() const { return Open; }

    /// Selects a stretch, within the store; an empty one is no selection.
    void Select(int32_t From, int32_t To);

    /// Selects the samples between two places, within the store. False, with nothing changed, when they are one and the
    /// same.
    bool SelectPlaces(double X1, double X2);

    /// Sets the start. A stop that does not lie behind it is dropped: the selection is open.
    void SetStart(int32_t Sample);

    /// Sets the stop, or the start when it lies ahead of that. Without a start the selection begins with the store.
    void SetStop(int32_t Sample);

    void ClearSelection();

    /// Selects to the last sample when there is no stop.
    void EndSelection();

    // Zoom. Each gives whether anything changed; gXScale is a setting.
    static bool ZoomOut();
    static bool ZoomIn();

    /// Zooms by one step and keeps the sample at X where it is.
    bool ZoomAt(double X, bool IsIn);

    /// Moves the view by a fraction of its width, within the store.
    void MoveView(double Frac);

    /// Puts Sample at the left edge, within the store.
    void ScrollTo(double Sample);

    /// Puts the end of the store at the right edge.
    void ScrollToEnd();

    // The scroll bar runs from 0 to ScrollMax over the whole store.
    static constexpr int ScrollMax = 10000;
    void Scroll(int Value);
    int ScrollValue() const;
    static int ScrollPage();

    /// Puts the cursor on the sample at a place. False when there is none.
    bool SetCursor(double X);

    /// Moves the cursor by points of the plot, from the middle of the view when there is none, and the view with it.
    void MoveCursor(int Points);

    /// Puts selection, cursor and left edge back into a store that has changed.
    void Clip();

    /// Sample at a place, by the stretch that each of the points stands for.
    int32_t RawXtoLog(double X) const;

    /// Place of a sample, beyond the plot when it is not in view.
    double LogToX(double Sample) const;

    /// Place of point k of the plot.
    double PointX(int k) const;

    /// Left edge of the plot.
    double Margin() const { return MarginX; }

private:
    double PointAt(double X) const;

    int32_t Start = 0; // 0 and 0 for no selection
    int32_t Stop = 0;
    bool Open = false;
    double MarginX = 0; // these two have single precision, which decides on pixels
    double StepX = 1;
};
