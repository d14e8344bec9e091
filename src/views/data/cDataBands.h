// The bands of the data view: one for each visible channel, and those of distance and rate that were asked for.
#pragma once

#include <cstddef>
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

class cDataBands
{
public:
    /// Shares a height out among the channels that are visible and the extra bands.
    void SetUp(double Height);

    std::span<const ViewBand> All() const { return Bands; }

    /// Upper end of a band.
    double TopOf(std::size_t Band) const { return Band == 0 ? 0 : Bands[Band - 1].Base; }

    /// Band at a height, null when there is none.
    const ViewBand* At(double Y) const;

    /// Name of a band and, for a sample of the store, its value there, with its unit.
    static std::string Text(const ViewBand& Band, int32_t Sample);

    /// Adds a band of the distance rowed between two samples, each time one more. False without the channel "Vs"
    /// (reported to the user).
    bool ShowDist(int32_t Start, int32_t Stop);

    /// Adds a band of the stroke rate over the whole store.
    void ShowRate();

    /// Whether there is a distance band.
    static bool HasDist() { return !gDist.empty(); }

    std::span<const RatePoint> Rates() const { return RateArr; }

    /// Removes the extra bands, when the store was replaced or cut.
    void DropExtra();

private:
    std::vector<ViewBand> Bands;
    std::vector<ViewBand::eKind> Extra;
    std::vector<RatePoint> RateArr;
};
