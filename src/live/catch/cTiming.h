// When handle, seat and trunk turn, the three factors made of their turns, and the stroke figures: what the panels for
// feedback on timing measure, sample by sample.
#pragma once

#include "core/mGlobData.h"
#include "live/catch/cFactor.h"
#include "live/catch/cTurns.h"

#include <cstdint>
#include <optional>

/// Figures of the last counted stroke.
struct CatchStroke
{
    int32_t StrokeN = 0;
    double Rate = 0; // strokes per minute
    double RateAver = 0;
    double Length = 0;     // m, travel of the handle
    double SeatTravel = 0; // m
    double MaxHandleV = 0; // m/s
    double MaxSeatV = 0;
};

class cTiming
{
public:
    /// What a sample brought.
    struct News
    {
        bool Stroke = false; // a counted stroke's figures
        bool CF = false;
        bool FF = false;
        bool RSF = false;
        bool NewStroke = false; // a stroke starts, counted or the first
    };

    /// Reads the session's channels and the settings, and begins all figures with the sample that is taken next.
    void Load();

    /// Takes the ranges of the factors from the settings, for the strokes to come.
    void LoadRanges();

    /// Takes the newest sample: turns, factors and strokes.
    void TakeSample();

    const News& Newest() const { return New; }
    const CatchStroke& Stroke() const { return Shown; }
    const std::optional<FactorShown>& CatchFactor() const { return CF.Shown(); }
    const std::optional<FactorShown>& FinishFactor() const { return FF.Shown(); }
    const std::optional<FactorShown>& StyleFactor() const { return RSF.Shown(); }

    /// Whole seconds since the first sample.
    int32_t Elapsed() const;

    /// Moment in seconds at which the stroke that was recognised last began, between samples.
    double LastStrokeT() const { return StrokeT; }

private:
    // A channel as a line of its count.
    struct Signal
    {
        int16_t Chan = 0; // 0: there is none
        CalibrRow Row;

        void Load(int16_t Number);
        double Value() const;
    };

    bool TakeSignals();
    void CheckFactors();
    void CheckCatch();
    void CheckStyle();
    void CheckFinish();
    void CheckThreshold();
    void Start(double Time);
    void CountStroke();
    void MakeCatchFactor();
    void MakeFinishFactor();

    Signal HandleSignal;
    Signal SeatSignal;
    Signal TrunkSignal;
    double KeyThresh = 0;
    cTurns Handle;
    cTurns Seat;
    cTurns Trunk;
    bool HasSamples = false;
    bool IsFirstCycle = true; // as gFirstCycle, which another panel may have cleared
    double StartT = 0;        // s, the first sample
    double NewestT = 0;
    News New;

    // Turns of the running stroke, times in seconds.
    double SeatTurnT = 0;
    double HandleCatchT = 0;
    double TrunkTurnT = 0;
    double HandleFinishT = 0;
    double StrokeT = 0;
    bool SeatTurnNew = false;
    bool HandleCatchNew = false;
    bool TrunkTurnNew = false;
    bool HandleFinishNew = false;
    bool IsCatchKnown = false;
    double HandleAtCatch = 0; // m
    double SeatAtCatch = 0;
    double HandleAtFinish = 0;

    double MaxHandleV = 0; // m/s, of the running stroke
    double MaxSeatV = 0;
    double MaxSeatTravel = 0; // m
    double FinishPrevT = 0;   // s
    double RateSum = 0;
    CatchStroke Shown;

    double StyleTravel = 0; // m behind the catch, where the Rowing Style Factor is measured
    bool IsStyleArmed = false;
    std::optional<double> StyleMeasured; // not yet shown
    cTimeFactor CF;
    cTimeFactor FF;
    cStyleFactor RSF;
};
