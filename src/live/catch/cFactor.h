// A factor of the catch panel: its good range, which may follow the stroke rate, its place on the bar, its average.
#pragma once

#include "live/panel/mVerdict.h"

#include <cstdint>
#include <optional>

/// The range that is good, and how far the bar reaches beyond it.
struct FactorRange
{
    double Low = 0; // in the factor's unit
    double High = 0;
    double Margin = 0; // width of either outer zone of the bar, in good ranges

    /// The range at a stroke rate: both limits move by Slope for each stroke per minute above 20.
    FactorRange AtRate(double Rate, double Slope) const;

    double BarLow() const { return Low - (High - Low) * Margin; }
    double BarHigh() const { return High + (High - Low) * Margin; }
};

/// What stands on the panel of a factor.
struct FactorShown
{
    double Last = 0;
    eVerdict LastVerdict = eVerdict::Green;
    double Mark = 0; // place on the bar, 0 its left end and 1 its right end
    std::optional<double> Average;
    eVerdict AverageVerdict = eVerdict::Green;
};

/// A factor in milliseconds, Catch Factor or Finish Factor: below the range blue, above it red, on the average red on
/// either side. Range holds at a rate of 20.
class cTimeFactor
{
public:
    void Load(const FactorRange& InitRange, double InitSlope);

    /// Another range for the strokes to come; what was counted stays.
    void SetRange(const FactorRange& NewRange, double NewSlope);

    /// Takes the factor of a stroke at the rate of that stroke and the mean rate.
    void Take(double Value, double Rate, double RateAver);

    /// Nothing until a factor was taken.
    const std::optional<FactorShown>& Shown() const { return OnPanel; }

private:
    FactorRange Range;
    double Slope = 0;
    double Sum = 0;
    int32_t Cnt = 0;
    std::optional<FactorShown> OnPanel;
};

/// The Rowing Style Factor in percent: below the range red, above it blue; its bar runs from high to low.
class cStyleFactor
{
public:
    void Load(const FactorRange& InitRange);

    /// Another range for the strokes to come; what was counted stays.
    void SetRange(const FactorRange& NewRange) { Range = NewRange; }

    /// Takes the factor of a stroke. The average is formed over all StrokeN strokes that were counted, none: no
    /// average.
    void Take(double Value, int32_t StrokeN);

    const std::optional<FactorShown>& Shown() const { return OnPanel; }

private:
    eVerdict Verdict(double Value) const;

    FactorRange Range;
    double Sum = 0;
    std::optional<FactorShown> OnPanel;
};
