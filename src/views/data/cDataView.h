// A stretch of the sample store as stacked curves, a band for each visible channel, with a selection and a cursor on
// it.
#pragma once

#include "platform/iSurface.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// A point of the band "Rate".
struct RatePoint
{
    double Sample = 0; // position of the stroke's middle
    double Rate = 0;   // strokes per minute
};

/// Running distance in metres by sample; empty when no distance band was asked for.
extern std::vector<double> gDist;
extern int32_t gDistStart; // samples from which and to which it runs; 0 beyond them
extern int32_t gDistStop;

/// A band of the plot.
struct ViewBand
{
    enum class eKind
    {
        Channel,
        Dist,
        Rate
    };
    eKind Kind = eKind::Channel;
    int Chan = 0;
    double Min = 0; // of the values' scale
    double Max = 0;
    double Scale = 0; // drawing units for a unit of the value
    double Base = 0;  // y of Min: the lower end of the band
    double Zero = 0;  // y of 0
};

class cDataView
{
public:
    static constexpr int Steps = 400;    // a curve has one point more
    static constexpr int MaxXScale = 64; // samples for each of them

    explicit cDataView(iSurface& InitSurface) : Surface(InitSurface) {}

    int32_t FirstSample = 0; // at the left edge
    int32_t SelStart = 0;    // the selection, 0 and 0 for none
    int32_t SelStop = 0;
    int32_t Cursor = -1; // sample that was clicked, -1 when there is none

    /// Index of the last sample, -1 in an empty store.
    static int32_t LastSample();

    /// Whether a stretch is selected.
    bool HasSelection() const { return SelStart < SelStop; }

    /// Ends a selection that has no end with the last sample.
    void EndSelection()
    {
        if (SelStop == 0) SelStop = LastSample();
    }

    // Zoom. Each gives whether anything changed; gXScale is a setting.
    static bool ZoomOut();
    static bool ZoomIn();

    /// Zooms by one step and keeps the sample at X where it is.
    bool ZoomAt(double X, bool IsIn);

    /// Moves the view by a fraction of its width, within the store.
    void MoveView(double Frac);

    /// Puts Sample at the left edge, within the store.
    void ScrollTo(double Sample);

    // The scroll bar runs from 0 to ScrollMax over the whole store.
    static constexpr int ScrollMax = 10000;
    void Scroll(int Value);
    int ScrollValue() const;
    static int ScrollPage();

    /// Puts the end of the store at the right edge.
    void ScrollToEnd();

    /// Selects the samples between two places, within the store. False when they are one and the same.
    bool Select(double X1, double X2);

    /// Puts the cursor on the sample at a place. False when there is none.
    bool SetCursor(double X);

    /// Moves the cursor by points of the plot, from the middle of the view when there is none, and the view with it.
    void MoveCursor(int Points);

    /// Name and value of the band and time of the sample at a place, empty outside the plot.
    std::string PointerText(double X, double Y) const;

    /// Puts selection, cursor and left edge back into a store that has changed.
    void Clip();

    /// Sample at a place, by the stretch that each of the points stands for.
    int32_t RawXtoLog(double X) const;

    /// Place of a sample, beyond the plot when it is not in view.
    double LogToX(double Sample) const;

    /// Works the bands out for the surface's size and the channels that are visible.
    void SetUpPoly();

    /// Draws everything.
    void Draw();

    /// Band at a height, null when there is none.
    const ViewBand* BandAt(double Y) const;
    std::span<const ViewBand> Bands() const { return BandArr; }

    /// Name of a band and its value at a sample, with its unit.
    static std::string BandText(const ViewBand& Band, int32_t Sample);

    /// Adds a band of the distance rowed from SelStart to SelStop, each time one more. False without the channel "Vs"
    /// (told).
    bool ShowDist();

    /// Adds a band of the stroke rate over the whole store.
    void ShowRate();

    /// Whether there is a distance band.
    static bool HasDist() { return !gDist.empty(); }

    /// Takes the extra bands away, when the store was replaced or cut.
    void DropExtraBands();

private:
    double PointX(int k) const;
    double PointAt(double X) const;
    void AddBand(ViewBand::eKind Kind, int Chan, double Min, double Max);
    void DrawNothing(); // but why there is nothing
    void DrawGrid();
    void DrawSelection();
    void DrawRawData();
    void DrawRateBand(const ViewBand& Band);
    double TopOf(std::size_t Band) const { return Band == 0 ? 0 : BandArr[Band - 1].Base; }
    std::vector<std::size_t> LabelledBands() const;
    double NameTop(std::size_t Band) const;
    void DrawScale(const ViewBand& Band, double Top);
    void DrawLabels();
    void DrawTimes();
    void DrawCursor();

    iSurface& Surface;
    double Height = 0;
    double MarginX = 0; // these two have single precision, which decides on pixels
    double StepX = 1;
    std::vector<ViewBand> BandArr;
    std::vector<ViewBand::eKind> Extra;
    std::vector<RatePoint> RateArr;
    std::vector<SurfacePoint> PolyPts;
};
