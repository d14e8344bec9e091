// The rower's panel without its window: the recogniser of stroke starts, its stroke figures, and the curves.
#pragma once

#include "live/panel/cRunWatch.h"
#include "live/panel/cTraces.h"

#include <cstdint>
#include <span>
#include <string>

class cRower
{
public:
    explicit cRower(iSurface& Surface) : Traces(Surface) {}

    /// Opens the panel on samples of a source: makes a plot for each row of View1, arms the cycle clock, and takes the
    /// session's sampling period. Nothing is drawn.
    void Load(int16_t Source = SourceFrames);

    /// Counts the source's frames anew; the table is read from the raw file RawPath. False when that cannot be read
    /// (reported to the user).
    bool InitMode(const std::string& RawPath = "") const;

    /// Draws everything anew for the surface's size.
    void Resize() { Traces.Resize(); }

    /// Takes the newest sample: stroke starts, scores and points of the curves. Nothing is drawn.
    void TakeSample();

    /// Draws what was taken since the last drawing.
    void DrawData() { Traces.Draw(); }

    /// The logger was restarted: strokes, rates and scores begin anew with the newest sample, which is taken next.
    void NewRun();

    /// Closes the panel.
    void Unload() const;

    /// Whether the newest sample started a stroke.
    bool NewStroke() const { return IsNewStroke; }

    /// The plots in the order of View1.
    std::span<const cData01real> Views() const { return Traces.Views(); }

    // The labels.
    std::string TimeText() const;
    std::string RateText() const;
    std::string StrokesText() const;

private:
    static void LoadFactorSettings();
    static void FindSeat();
    bool CheckCycle();
    bool IsStart(double Key) const;
    void CountCycle();
    double SampleTime() const;
    double KeyValue() const;

    // The panel's own: the public ones are also those of selections and runs, which may be made beside it.
    struct CycleFigures
    {
        int16_t StrokeCnt = 0;
        double CycleTime = 0; // s
        double CycleSum = 0;  // s
        double Rate = 0;      // strokes per minute
    };

    cTraces Traces;
    int16_t Mode = SourceFrames;

    float KeyThresh = 0;
    int16_t KeyChan = 0; // the key channel that was loaded: a new session may have another before it is loaded here
    double KeyQ0 = 0;
    double KeyQ1 = 0;
    bool KeyBad = true;
    bool HasKeys = false; // a key value has come
    double KeyPrev = 0;
    double KeyPrev2 = 0;
    CycleFigures Figures;
    bool IsFirstCycle = true; // as gFirstCycle, which another panel may have cleared
    double LastCycleTime = 0; // s
    double Newest = 0;        // s, time of the newest sample
    bool IsNewStroke = false;
    cRunWatch Run;
};
