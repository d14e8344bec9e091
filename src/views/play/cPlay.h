// The play view without its window: the rows of View4 as objects, and the play clock that moves them.
#pragma once

#include "views/play/cData04play.h"
#include "views/play/cFigure.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

/// What is played.
struct PlayData
{
    int16_t Mode = PlayTypical;
    int16_t Sample = 0;     // row of gFile.Desc; with PlayPrimary the one that the file belongs to, or 0
    std::string FileName{}; // of PlayPrimary, without folder
    std::string VideoFN{};  // path of the video beside it, empty without one
    double Duration = 0;    // s, of the video; 0 without one
    int Strokes = 0;        // in the video, 0 when they are not known
    int Frames = 0;         // pictures of the video
    double FrameTime = 0;   // s, of a picture of the video; 0 without one
};

/// A row of the view: its curve, or its figure with PlayTypical and PlayComplex.
struct PlayRow
{
    int Number = 0; // in View4
    cData04play Plot;
    std::optional<cFigure> Figure{};
};

class cPlay
{
public:
    /// Makes the objects of all rows on a clock at 0. PlayPrimary plays what gRaw holds, its time set to zero. A row
    /// that cannot be computed is left out and named in Notes. False for an unknown mode, or when the data cannot be
    /// played (reported to the user).
    bool InitData(const PlayData& Data);

    /// Makes the objects anew from the session's rows as they are now, the clock staying. False when the sample is
    /// gone.
    bool Renew();

    const PlayData& Data() const { return Played; }
    const std::string& Caption() const { return Title; }
    const std::vector<std::string>& Notes() const { return Told; }
    std::span<const PlayRow> Rows() const { return Objects; }

    /// Fits the rows into Area.
    void SetDrawScale(const PlotRect& Area, double Pixel);

    /// Moves all rows to the clock.
    void GoCurTime();

    /// Moves the rows on the sample store to a time, s, and those of a stored sample to a fraction of the cycle.
    void MovePrim(double Time);
    void CalcNorm(double Frac);

    /// Moves the clock by steps of gPlayStep, to the start, or to the last step. The sample store has ends; a cycle
    /// and a video begin again. False when an end stopped it.
    bool StepBy(int Steps);
    void ToStart();
    void ToEnd();

    /// Moves the clock by as many whole steps as fit into Seconds and what the calls before have left over. False when
    /// the end stopped it.
    bool Advance(double Seconds);

    /// Sets the clock, s.
    void SetTime(double Time);

    /// Sets the clock to a share of what the slider spans: the data, or the cycle in which the clock is.
    void SetShare(double Share);

    /// Seconds from the clock to a place on a row's plot; nothing outside of all plots of curves.
    std::optional<double> TimeAt(SurfacePlace Place) const;

    /// What txtCycle shows, and the place of the slider, 0 to 1.
    std::string TimeText() const;
    std::string ShareText() const;
    double Share() const { return SliderShare; }

    /// s from the video's clock to that of the data.
    double Correction() const { return Offset; }
    void SetCorrection(double Seconds);

    /// Whether the offset has a meaning: the clock of PlayComplex counts pictures.
    bool HasCorrection() const { return Played.Mode != PlayComplex; }

    /// Finds the offset in two steps: the video shows a catch now; this many seconds from the clock the data have it.
    void MatchVideo() { MatchTime = gPlayTime; }
    void MatchData(double Seconds);
    bool IsMatching() const { return MatchTime.has_value(); }
    void EndMatch() { MatchTime.reset(); }

    /// s that the clock runs through before it ends or begins again.
    double Length() const;

private:
    bool InitPrimary();
    void InitClock();
    void MakeObjects();
    void CheckArguments(const std::string& What, const ViewRow& Row);
    void MoveNorm(double Time);
    void MoveComplex();
    bool IsPrimary() const { return Played.Mode == PlayPrimary; }

    PlayData Played;
    std::string SampleID;
    std::string Title;
    std::vector<std::string> Told;
    std::vector<PlayRow> Objects;
    double CycleTime = 0;
    double LastTime = 0; // s, of the sample store
    double SampleStep = 0;
    double Offset = 0;
    double ShownTime = 0;
    double SliderShare = 0;
    double LeftOver = 0; // s that were too short for a step
    std::optional<double> MatchTime;
};
