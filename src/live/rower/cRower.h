// The rower's panel without its window: the recogniser of stroke starts, the trace ring, the target curves and what
// keys and the playback control ask for.
#pragma once

#include "live/panel/cData01real.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// What the window has to do after a key or a playback command.
enum class eRowerWish
{
    None,
    StartLog,     // start a recording
    ToggleReplay, // hold the replay, or let it go on
    Close
};

class cRower
{
public:
    explicit cRower(iSurface& Surface) : Panel{&Surface} {}

    /// Opens the panel on samples of a source: makes a plot for each row of View1, arms the cycle clock, and takes the
    /// session's sampling period.
    void Load(int16_t Source = SourceFrames);

    /// Counts the source's frames anew; the table is read from the raw file RawPath. False when that cannot be read
    /// (told).
    bool InitMode(const std::string& RawPath = "") const;

    /// Draws everything anew for the surface's size.
    void Resize();

    /// Takes the newest sample.
    void DrawData();

    /// Playback control: codes 0, 1, 2, 4 and 5 show the sample at the play clock, 6 closes.
    eRowerWish DoAction(int Code);

    /// The space bar.
    eRowerWish PressSpace() const;

    /// Closes the panel.
    void Unload();

    /// Whether the newest sample started a stroke.
    bool NewStroke() const { return IsNewStroke; }

    /// The plots in the order of View1.
    std::span<const cData01real> Views() const { return Plots; }

    // The labels.
    std::string TimeText;
    std::string RateText;
    std::string StrokesText;

private:
    static void LoadFactorSettings();
    static void FindSeat();
    void InitTargCurves();
    void DrawTargets();
    void Restart();
    void Clear();
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
    };

    PlotSurface Panel;
    int16_t Mode = SourceFrames;
    std::vector<cData01real> Plots;

    std::vector<SurfacePoint> TargPts;
    int PrevIdx = 0; // places in the trace ring
    int CurIdx = 0;
    int NextIdx = 1;

    float KeyThresh = 0;
    int16_t KeyChan = 0; // the key channel that was loaded: a new session may have another before it is loaded here
    double KeyQ0 = 0;
    double KeyQ1 = 0;
    bool KeyBad = true;
    bool HasKeys = false; // a key value has come
    double KeyPrev = 0;
    double KeyPrev2 = 0;
    CycleFigures Figures;
    double LastCycleTime = 0; // s
    bool IsNewStroke = false;
    int32_t FramesSeen = 0; // gFrameCnt at the last sample
};
