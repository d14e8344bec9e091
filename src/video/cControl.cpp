// Ticks and buttons of the animation control.
#include "video/cControl.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mVideoFile.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "video/cVideo.h"

#include <filesystem>
#include <utility>

namespace {
constexpr double UsualRate = 25;   // pictures a second of speed 1
constexpr int LongestTick = 60000; // ms
} // namespace

cControl::cControl() : TickMs(gVidMs) {}

cControl::~cControl()
{
    Stop();
}

void cControl::AddVideo(Played Video)
{
    mVideos.push_back(std::move(Video));
}

void cControl::RemoveVideo(const void* Window)
{
    std::erase_if(mVideos, [Window](const Played& Each) { return Each.Window == Window; });
}

void cControl::Run()
{
    if (Timer == 0 && gHost.Clock) Timer = gHost.Clock->StartRepeating(TickMs, [this] { Tick(); });
}

void cControl::Stop()
{
    if (Timer != 0) gHost.Clock->StopTimer(std::exchange(Timer, 0));
}

void cControl::Play(bool On)
{
    if (PlayMovie) PlayMovie(On);
    On ? Run() : Stop();
}

void cControl::DoCommand(int Index)
{
    switch (Index) {
    case VideoToStart:
        gPlayTime = 0;
        gPlayFrame = 0;
        break;
    case VideoPrev:
        gPlayFrame -= 1;
        break;
    case VideoPlay:
    case VideoPause:
        Play(Index == VideoPlay);
        break;
    case VideoNext:
        gPlayFrame += 1;
        break;
    case ControlCloseAll:
        return CloseAll();
    case ControlBound:
        BaundAndSave();
        break;
    default:
        break;
    }
    GoCurTime();
}

void cControl::Tick()
{
    gPlayTime += gPlayStep;
    gPlayFrame += 1;
    GoCurTime();
}

// A window may close another one.
void cControl::GoCurTime()
{
    for (std::size_t i = 0; i < mVideos.size(); ++i)
        if (mVideos[i].GoCurTime) mVideos[i].GoCurTime();
    const Played View = PlayView ? PlayView() : Played();
    if (View.GoCurTime) View.GoCurTime();
}

void cControl::CloseAll()
{
    Stop();
    for (const Played& Each : std::vector<Played>(mVideos))
        if (Each.Close) Each.Close();
    const Played View = PlayView ? PlayView() : Played();
    if (View.Close) View.Close();
}

void cControl::SetSpeed(const std::string& Text)
{
    const double Rate = Val(Text);
    if (!(Rate > 0)) return;
    mSpeed = Rate / UsualRate;
    SetFormsSpeed();
}

void cControl::SetFormsSpeed()
{
    TickMs = RoundWithin(gVidMs / mSpeed, 1, LongestTick);
    if (!IsRunning()) return;
    Stop();
    Run();
}

bool cControl::BaundAndSave()
{
    if (gVideoFN.empty()) {
        MsgBox("There is no video to bind to a sample: open one first.", TitleInformation);
        return false;
    }
    if (gCurSample < 1 || gCurSample > gFile.Desc.UBound()) {
        MsgBox("There is no sample to bind the video to: play one first.", TitleInformation);
        return false;
    }
    DescRow& Row = gFile.Desc[gCurSample];
    const DescRow Before = Row;
    Row.VideoFN = std::filesystem::path(gVideoFN).filename().string();
    Row.VideoStrN = gVideoStrokes;
    if (!WriteSession()) {
        Row = Before;
        return false;
    }
    UpdateStatus("The video " + Row.VideoFN + " belongs to " + Row.SampleID);
    return true;
}
