// The catch training panel without its window: when handle, seat and trunk turn, the three factors made of their turns,
// the stroke figures, and the curves.
#pragma once

#include "live/catch/cFactor.h"
#include "live/catch/cTurns.h"
#include "live/panel/cRunWatch.h"
#include "live/panel/cTraces.h"

#include <cstdint>
#include <optional>

/// What the panel shows of the last counted stroke.
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

class cCatch
{
public:
    /// What a sample brought to the panel.
    struct News
    {
        bool Stroke = false; // a counted stroke's figures
        bool CF = false;
        bool FF = false;
        bool RSF = false;
        bool NewStroke = false; // a stroke starts, counted or the first
    };

    explicit cCatch(iSurface& Surface) : Traces(Surface) {}

    /// Opens the panel: reads its settings, makes a plot for each row of View1, and begins all figures. Nothing is
    /// drawn.
    void Load();

    /// Counts the frames of the source anew.
    static void InitMode();

    /// Draws everything anew for the surface's size.
    void Resize() { Traces.Resize(); }

    /// Takes the newest sample: turns, factors, strokes and points of the curves. Nothing is drawn.
    void TakeSample();

    /// Draws what was taken since the last drawing.
    void DrawData() { Traces.Draw(); }

    /// The logger was restarted: all figures begin anew with the newest sample, which is taken next.
    void NewRun();

    /// Closes the panel.
    static void Unload();

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

    void LoadFactors();
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

    cTraces Traces;
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
    cRunWatch Run;
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
