// Limits, colours and averages of factors.
#include "live/catch/cFactor.h"

#include "base/mError.h"

namespace {
constexpr double RateOfRange = 20; // strokes per minute at which a range holds as it is set
} // namespace

FactorRange FactorRange::AtRate(double Rate, double Slope) const
{
    const double Shift = (Rate - RateOfRange) * Slope;
    return {Low + Shift, High + Shift, Margin};
}

void cTimeFactor::Load(const FactorRange& InitRange, double InitSlope)
{
    *this = {};
    SetRange(InitRange, InitSlope);
}

void cTimeFactor::SetRange(const FactorRange& NewRange, double NewSlope)
{
    Range = NewRange;
    Slope = NewSlope;
}

void cTimeFactor::Take(double Value, double Rate, double RateAver)
{
    const FactorRange Now = Range.AtRate(Rate, Slope);
    FactorShown Shown;
    Shown.Last = Value;
    Shown.LastVerdict = Value < Now.Low ? eVerdict::Blue : Value > Now.High ? eVerdict::Red : eVerdict::Green;
    Shown.Mark = SafeDiv(Value - Now.BarLow(), Now.BarHigh() - Now.BarLow());
    Sum += Value;
    ++Cnt;
    Shown.Average = Sum / Cnt;
    const FactorRange Mean = Range.AtRate(RateAver, Slope);
    const bool IsGood = *Shown.Average >= Mean.Low && *Shown.Average <= Mean.High;
    Shown.AverageVerdict = IsGood ? eVerdict::Green : eVerdict::Red;
    OnPanel = Shown;
}

void cStyleFactor::Load(const FactorRange& InitRange)
{
    *this = {};
    SetRange(InitRange);
}

eVerdict cStyleFactor::Verdict(double Value) const
{
    return Value < Range.Low ? eVerdict::Red : Value > Range.High ? eVerdict::Blue : eVerdict::Green;
}

// The sum grows with every factor shown behind the first stroke, the count with every stroke: a stroke without a factor
// lowers the average.
void cStyleFactor::Take(double Value, int32_t StrokeN)
{
    FactorShown Shown;
    Shown.Last = Value;
    Shown.LastVerdict = Verdict(Value);
    Shown.Mark = SafeDiv(Range.BarHigh() - Value, Range.BarHigh() - Range.BarLow());
    if (StrokeN > 0) {
        Sum += Value;
        Shown.Average = Sum / StrokeN;
        Shown.AverageVerdict = Verdict(*Shown.Average);
    }
    OnPanel = Shown;
}
