// Stepping, running and what is seen.
#include "video/cVideo.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mVideoFile.h"
#include "platform/mHost.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <utility>

namespace {
constexpr double Inside = 0.001;   // s into a picture, safely
constexpr double Unrounded = 1e-9; // s, sums of steps differ by less
constexpr int32_t ManyFrames = 1 << 30;
constexpr double Milli = 1000;

int32_t RoundedShare(double Whole, double Part)
{
    return Part > 0 ? RoundWithin(Whole / Part, 0, ManyFrames) : 0;
}
} // namespace

cVideo::cVideo(std::unique_ptr<iMedia> InitClip) : Clip(std::move(InitClip)) {}

cVideo::~cVideo()
{
    Hold();
}

void cVideo::NameFile(const std::string& Path)
{
    const std::filesystem::path Name(Path);
    mVideoFN = Path;
    mVideoTitle = Name.stem().string();
    gVideoDir = Name.has_parent_path() ? Name.parent_path().string() + "/" : "";
}

bool cVideo::VideoFileOpen(const std::string& Path)
{
    Hold();
    HasClip = false;
    Seen.reset();
    SeenNumber = -1;
    Reason.clear();
    mDigit = false;
    if (!Clip) return FileFailed(CantOpen, Path, TitleWarning, "this program was built without video");
    HasClip = Clip->Open(Path);
    if (!HasClip) return FileFailed(CantOpen, Path, TitleWarning, Clip->Reason());
    NameFile(Path);
    IsIndexed = false;
    IsSteady = true;
    mStart = 0;
    Rate = 1;
    TakeInfo();
    TakeIndex();
    DoAction(VideoToStart);
    return true;
}

void cVideo::TakeStill(const std::string& Path, std::shared_ptr<const Picture> Still)
{
    Hold();
    if (Clip) Clip->Close();
    NameFile(Path);
    HasClip = false;
    Info = {};
    Info.Width = Still->Width;
    Info.Height = Still->Height;
    Info.Frames = 1;
    mDuration = 0;
    mFrames = 0;
    gPlayTime = 0;
    gPlayFrame = 0;
    mDigit = true;
    Seen = std::move(Still);
    SeenNumber = 0;
    if (OnShow) OnShow();
}

void cVideo::TakeInfo()
{
    Info = Clip->Info();
    mDuration = RoundHalfEven(Info.Duration * 100) / 100;
    // A clock that another window has set since goes on by its own steps.
    if (!IsIndexed || gPlayStep == Step) gPlayStep = Info.Step;
    Step = Info.Step;
    mFrames = RoundedShare(mDuration, Step);
}

bool cVideo::TakeIndex()
{
    if (!HasClip || IsIndexed || Clip->IndexDone() < 1) return false;
    IsIndexed = true;
    TakeInfo();
    FindRate();
    if (Info.IsCut) UpdateStatus(CutText(mVideoFN, Info.Frames));
    return true;
}

// A time stamp nearer to another number than to its own.
void cVideo::FindRate()
{
    IsSteady = true;
    for (int32_t i = 0; IsSteady && i < Info.Frames; ++i)
        IsSteady = RoundedShare(Clip->TimeOf(i), Step) == i;
}

double cVideo::IndexDone() const
{
    return HasClip ? Clip->IndexDone() : 1;
}

double cVideo::TimeOf(int32_t Number) const
{
    if (IsSteady) return Number * Step;
    return Number < Info.Frames ? Clip->TimeOf(Number) : mDuration + (Number - Info.Frames) * Step;
}

int32_t cVideo::NumberAt(double Time) const
{
    if (IsSteady) return RoundedShare(Time, Step);
    return Time < mDuration ? Clip->FrameAt(Time + Inside) : Info.Frames;
}

double cVideo::Position() const
{
    if (!Running) return Place;
    return Place + static_cast<double>(gHost.Clock->Milliseconds() - Since) / Milli * Rate;
}

void cVideo::SetPosition(double Time)
{
    Place = Time;
    if (Running) Since = gHost.Clock->Milliseconds();
}

void cVideo::SetPlaybackRate(double NewRate)
{
    if (!HasClip || !(NewRate > 0)) return;
    SetPosition(Position());
    Rate = NewRate;
}

// Twice as often as pictures follow each other, so that none is later than half its time.
void cVideo::Run()
{
    if (Running || !gHost.Clock) return;
    Running = true;
    Since = gHost.Clock->Milliseconds();
    const int Interval = RoundWithin(Step * Milli / 2, 2, 20);
    Timer = gHost.Clock->StartRepeating(Interval, [this] { DrawData(); });
}

void cVideo::Hold()
{
    if (!Running) return;
    Place = Position();
    Running = false;
    gHost.Clock->StopTimer(Timer);
}

// The length is rounded: the last picture of a fast clip may stand behind it.
double cVideo::End() const
{
    return Info.Frames > 0 ? std::max(mDuration, TimeOf(std::min(Info.Frames - 1, mFrames)) + Inside) : mDuration;
}

void cVideo::CheckEnd()
{
    if (gPlayTime > End()) {
        gPlayTime = mStart;
        gPlayFrame = 0;
    } else if (gPlayTime < mStart) {
        gPlayTime = mDuration;
        gPlayFrame = mFrames;
    }
}

void cVideo::DoAction(int Code)
{
    if (!HasClip || Code < VideoToStart || Code > VideoClose) return;
    constexpr std::pair<int, int> Steps[] = {
        {VideoToStart, StepToStart}, {VideoPrev, -1}, {VideoNext, 1}, {VideoToEnd, StepToEnd}};
    for (const auto& [Action, By] : Steps)
        if (Action == Code) DoStep(By);
    if (Code == VideoPlay) {
        if (mDigit && OnLeaveStill) OnLeaveStill();
        mDigit = false;
        const double Now = Position();
        if (Now < mStart || RoundHalfEven(Now) == RoundHalfEven(mDuration)) SetPosition(mStart);
        Run();
    } else if (Code == VideoPause || Code == VideoClose)
        Hold();
    SetMPos();
}

void cVideo::DoStep(int By)
{
    if (mDigit && OnLeaveStill) OnLeaveStill();
    Hold();
    if (By == 1 || By == -1) {
        gPlayFrame += By;
        gPlayTime = IsSteady || gPlayFrame < 0 ? gPlayTime + By * Step : TimeOf(gPlayFrame);
        // Many steps on end at the time that the number stands for.
        if (std::abs(gPlayTime - gPlayFrame * Step) < Unrounded) gPlayTime = gPlayFrame * Step;
    } else if (By == StepToStart) {
        gPlayTime = 0;
        gPlayFrame = 0;
    } else if (By == StepToEnd) {
        gPlayTime = mDuration;
        gPlayFrame = mFrames;
    }
    StandAt(-1);
}

// Takes the shared clock, which may be past the ends, as the position, and shows that picture, or without one that of
// gPlayFrame.
void cVideo::StandAt(int32_t Number)
{
    CheckEnd();
    Place = gPlayTime;
    Show(Number < 0 ? gPlayFrame : Number);
    if (mDigit && OnStill) OnStill();
}

// A clock whose steps are not this clip's pictures gives a time.
void cVideo::GoCurTime()
{
    if (!HasClip) return;
    if (mDigit && OnLeaveStill) OnLeaveStill();
    Hold();
    const bool IsOwnStep = gPlayStep == Step;
    gPlayTime = (IsOwnStep && gPlayFrame >= 0 ? TimeOf(gPlayFrame) : gPlayFrame * gPlayStep) + Inside;
    StandAt(IsOwnStep || gPlayTime > End() ? -1 : Clip->FrameAt(gPlayTime));
    ShowElapsed("0.000");
}

void cVideo::GoFrame(int32_t Number)
{
    if (!HasClip) return;
    if (mDigit && OnLeaveStill) OnLeaveStill();
    Hold();
    gPlayFrame = Number;
    gPlayTime = TimeOf(Number);
    StandAt(-1);
    ShowElapsed("0.00");
}

void cVideo::SetMPos()
{
    if (!HasClip) return;
    gPlayTime = Position();
    gPlayFrame = NumberAt(gPlayTime);
    ShowElapsed("0.00");
}

// The position of a clip that runs is that of the picture that is seen.
void cVideo::DrawData()
{
    TakeIndex();
    if (!HasClip || !Running) return;
    if (Position() >= mDuration) SetPosition(mStart);
    const int32_t Number = Clip->FrameAt(Position());
    if (Number == SeenNumber) return;
    gPlayTime = TimeOf(Number);
    gPlayFrame = Number;
    Show(Number);
    ShowElapsed("0.00");
}

void cVideo::Show(int32_t Number)
{
    const int32_t Last = std::max(Info.Frames, 1) - 1;
    const int32_t Wanted = std::clamp(Number, 0, IsIndexed ? Last : ManyFrames);
    auto Found = Clip->Frame(Wanted);
    SeenNumber = Wanted;
    if (!Found) return FailToShow();
    Seen = std::move(Found);
    Reason = Clip->Reason();
    IsReported = false;
}

// The clip stops, the picture before stays, and the user reads why, once until pictures come again.
void cVideo::FailToShow()
{
    Hold();
    Reason = Clip->Reason();
    if (!std::exchange(IsReported, true)) FileFailed(CantRead, mVideoFN, TitleWarning, Reason);
}

void cVideo::ShowElapsed(const char* Format)
{
    ElapsedText = FormatNum(gPlayTime, Format);
    if (OnShow) OnShow();
}
