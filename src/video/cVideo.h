// The clock of a video window: where a clip stands, what moves it on, and the picture that is seen there.
#pragma once

#include "platform/iMedia.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

/// What the buttons under a video do, by their number.
enum eVideoAction
{
    VideoToStart,
    VideoPrev,
    VideoPlay,
    VideoPause,
    VideoNext,
    VideoToEnd,
    VideoClose
};

// What DoStep takes besides -1 and 1.
inline constexpr int StepToStart = 0;
inline constexpr int StepToEnd = 2;

/// Moves gPlayTime and gPlayFrame, which all windows that play share. A picture is known by its number: number N is
/// the same one whether it is stepped to, sought or played through. Times are those of the clip's constant rate; where
/// its time stamps stray from one, they are the time stamps.
class cVideo
{
public:
    /// Clip: null in a program that reads no video; it opens none then.
    explicit cVideo(std::unique_ptr<iMedia> Clip);
    ~cVideo();
    cVideo(const cVideo&) = delete;
    cVideo& operator=(const cVideo&) = delete;

    /// Called when another picture is to be seen, or the clock has moved.
    std::function<void()> OnShow;

    /// Called ahead of a step away from a still that is digitised, and when the next one stands.
    std::function<void()> OnLeaveStill;
    std::function<void()> OnStill;

    /// Opens a clip and goes to its start. False when it cannot be rendered (reported to the user): none is open then.
    bool VideoFileOpen(const std::string& Path);

    /// Takes a still picture in place of a clip, and digitising begins.
    void TakeStill(const std::string& Path, std::shared_ptr<const Picture> Still);

    /// A button by its number, eVideoAction; any other does nothing. VideoClose only stops.
    void DoAction(int Code);

    /// 1 or -1: a picture on or back, StepToStart, StepToEnd; any other stays where it is.
    void DoStep(int By);

    /// Shows the picture of gPlayFrame.
    void GoCurTime();

    /// Shows picture Number, as the slider does.
    void GoFrame(int32_t Number);

    /// Takes the shared clock from the position.
    void SetMPos();

    /// Follows a clip that runs: shows the picture at the position; the clip begins again at its end.
    void DrawData();

    /// Keeps gPlayTime inside the clip: past the end it becomes the start, ahead of the start the end.
    void CheckEnd();

    /// Runs at Rate times the clip's own speed.
    void SetPlaybackRate(double Rate);

    /// Whether the index was completed since the last call: length, step and number of pictures are final now.
    bool TakeIndex();

    /// Share of the clip's index that is made, 0 to 1.
    double IndexDone() const;

    /// When a picture is seen, s from the first on.
    double TimeOf(int32_t Number) const;

    /// The picture to be seen, null when there is none.
    const std::shared_ptr<const Picture>& Shown() const { return Seen; }

    /// Number of the picture that is seen.
    int32_t ShownNumber() const { return SeenNumber; }

    /// Why the picture of that number is not seen, in words; empty when it is.
    const std::string& Trouble() const { return Reason; }

    /// Whether the file ends before it should: Pictures are those that are left of it. Known with the index.
    bool IsCut() const { return Info.IsCut; }

    /// "0.00" of the clock, or with three places after GoCurTime.
    const std::string& Elapsed() const { return ElapsedText; }

    bool IsOpen() const { return HasClip; }
    bool IsRunning() const { return Running; }
    bool IsDigit() const { return mDigit; }
    void SetDigit(bool On) { mDigit = On; }

    const std::string& VideoFN() const { return mVideoFN; }
    const std::string& VideoTitle() const { return mVideoTitle; }
    double Duration() const { return mDuration; }
    double FrameTime() const { return Step; }        // s, of a picture
    int32_t Frames() const { return mFrames; }       // the highest frame number
    int32_t Pictures() const { return Info.Frames; } // that decode
    int Width() const { return Info.Width; }
    int Height() const { return Info.Height; }

private:
    void TakeInfo();
    void FindRate();
    void NameFile(const std::string& Path);
    int32_t NumberAt(double Time) const;
    double Position() const;
    void SetPosition(double Time);
    void Run();
    void Hold();
    void StandAt(int32_t Number);
    double End() const;
    void Show(int32_t Number);
    void FailToShow();
    void ShowElapsed(const char* Format);

    std::unique_ptr<iMedia> Clip;
    std::string mVideoFN;
    std::string mVideoTitle;
    double mStart = 0;    // s
    double mDuration = 0; // s, to two places
    int32_t mFrames = 0;
    bool mDigit = false;

    ClipInfo Info;
    bool HasClip = false;
    bool IsIndexed = false;
    double Step = 0;      // s, of a picture
    bool IsSteady = true; // time stamps are those of a constant rate
    double Place = 0;     // s, where the clip stands, or stood when it began to run
    int64_t Since = 0;    // ms, when it began to run
    double Rate = 1;
    bool Running = false;
    int Timer = 0;
    std::shared_ptr<const Picture> Seen;
    int32_t SeenNumber = -1;
    std::string Reason;
    bool IsReported = false; // that no picture came
    std::string ElapsedText;
};
