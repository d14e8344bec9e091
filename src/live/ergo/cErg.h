// The ergometer panel without its window: strokes of the handle, the Catch Factor by turns between samples, the timing
// of handle and seat, and the curves.
#pragma once

#include "live/catch/cTiming.h"
#include "live/ergo/cErgStrokes.h"
#include "live/panel/cRunWatch.h"
#include "live/panel/cTraces.h"

#include <cstdint>
#include <optional>
#include <string>

/// A signal's turn from backward to forward: where a straight line through two velocities, each in the middle of its
/// sample step, is 0.
class cForwardTurn
{
public:
    /// The first sample only fills the history, at rest.
    void Begin(double Time, double X);

    /// Takes the next sample. Gives the moment in seconds of a turn that it shows.
    std::optional<double> Take(double Time, double X);

private:
    double PrevTime = 0;
    double PrevX = 0;
    double PrevStep = 0; // s
    double PrevV = 0;
};

class cErg
{
public:
    /// What a sample brought.
    struct News
    {
        bool Stroke = false; // a stroke has ended
        bool CF = false;     // a Catch Factor was formed
    };

    explicit cErg(iSurface& Surface) : Traces(Surface) {}

    /// Opens the panel: reads the session's channels and the settings, makes a plot for each row of View1, and begins
    /// all figures. Nothing is drawn.
    void Load();

    /// Counts the frames of the source anew.
    static void InitMode();

    /// Draws everything anew for the surface's size.
    void Resize() { Traces.Resize(); }

    /// Takes the newest sample: strokes, turns and points of the curves. Nothing is drawn.
    void TakeSample();

    /// Draws what was taken since the last drawing.
    void DrawData() { Traces.Draw(); }

    /// The logger was restarted: all figures begin anew with the newest sample, which is taken next.
    void NewRun();

    /// Closes the panel.
    static void Unload();

    const News& Newest() const { return New; }

    /// The stroke that ended last.
    const ErgStroke& Stroke() const { return Strokes.Last(); }

    /// The last whole stroke; nothing before the first.
    const std::optional<ErgStroke>& WholeStroke() const { return Whole; }

    /// The Catch Factor that was formed last, ms, whatever it is.
    double CF() const { return Factor; }

    /// The last one that can be the timing of a catch; nothing before the first.
    const std::optional<double>& CatchFactor() const { return ShownFactor; }

    /// Whether the session has a channel H1: without it there are no forces, work and power.
    bool HasForce() const { return Force.Chan > 0; }

    /// The timing of handle and seat, as the catch panel forms it.
    const cTiming& HandleTiming() const { return Timing; }

    /// Time of the newest sample, as the label shows it.
    std::string TimeText() const;

private:
    // A channel as a line of its count, and its turns.
    struct Signal
    {
        int16_t Chan = 0; // 0: there is none
        double Q0 = 0;
        double Q1 = 0;
        cForwardTurn Turn;
        std::optional<double> TurnT; // s, until it has made a Catch Factor

        void Load(int16_t Number);
        double Value() const;
        void Take(double Time, bool IsFirst);
    };

    bool CheckCycle();
    void CheckCatch();
    void Publish() const;

    cTraces Traces;
    cTiming Timing;
    cRunWatch Run;
    cErgStrokes Strokes;
    std::optional<ErgStroke> Whole;
    Signal Handle;
    Signal Seat;
    Signal Force; // has no turns that count
    bool HasSamples = false;
    double Clock = 0; // s, time of the newest sample
    double Factor = 0;
    std::optional<double> ShownFactor;
    News New;
};
