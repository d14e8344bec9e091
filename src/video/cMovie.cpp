// What each command does, and the order in which the buttons send them.
#include "video/cMovie.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mVideoFile.h"
#include "platform/mHost.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int32_t Obeyed = 0;
constexpr int32_t Refused = 1;
constexpr double Milli = 1000;
constexpr double Inside = 0.001; // s into a picture, safely
constexpr int LookMs = 10;
constexpr int32_t LongestMs = 1 << 30;
} // namespace

cMovie::cMovie(std::unique_ptr<iMedia> InitClip) : Clip(std::move(InitClip)) {}

cMovie::~cMovie()
{
    Hold();
}

bool cMovie::VideoFileOpen(const std::string& Path)
{
    Send("close movie");
    Name = Path;
    std::erase(Name, '"');
    if (!Clip) return FileFailed(CantOpen, Name, TitleWarning, "this program was built without video");
    Send("open " + Name);
    if (LastRet != Obeyed) return FileFailed(CantOpen, Name, TitleWarning, Clip->Reason());
    Send("play movie");
    Send("pause movie");
    gPlayStep = 0.04;
    gVidMs = 40;
    gPlayTime = 0;
    gPlayFrame = 0;
    IsIndexed = false;
    TakeLength();
    if (OnShow) OnShow();
    return true;
}

// What the file says counts until the clip's pictures are known.
void cMovie::TakeLength()
{
    if (!IsOpen || IsIndexed) return;
    IsIndexed = Clip->IndexDone() >= 1;
    Send("status movie length");
    Length = Val(Reply);
    Frames = static_cast<int32_t>(Length) / gVidMs;
    if (!IsIndexed) return; // what is known by now may be ahead of the length above
    if (const ClipInfo Info = Clip->Info(); Info.IsCut) UpdateStatus(CutText(Name, Info.Frames));
}

void cMovie::Send(const std::string& Command)
{
    Reply.clear();
    LastRet = Serve(Command) ? Obeyed : Refused;
}

bool cMovie::Serve(const std::string& Command)
{
    constexpr std::string_view Open = "open ";
    constexpr std::string_view SeekTo = "seek movie to ";
    if (Command.starts_with(Open)) {
        IsOpen = Clip->Open(Command.substr(Open.size()));
        Place = 0;
        Show();
        return IsOpen;
    }
    if (Command == "close movie") {
        Hold();
        Seen.reset();
        if (Clip) Clip->Close();
        return std::exchange(IsOpen, false);
    }
    if (!IsOpen) return false;
    if (Command.starts_with(SeekTo)) return Seek(Command.substr(SeekTo.size()));
    if (Command == "play movie")
        Run();
    else if (Command == "pause movie")
        Hold();
    else if (Command == "status movie position")
        Reply = FormatNum(Position(), "0");
    else if (Command == "status movie length")
        Reply = FormatNum(Clip->Info().Duration * Milli, "0");
    else
        return false;
    return true;
}

// A place outside the clip is refused, and the movie stays where it is.
bool cMovie::Seek(const std::string& To)
{
    const double Wanted = Val(To);
    if (Wanted < 0 || Wanted > Length) return false;
    Hold();
    Place = Wanted;
    return true;
}

double cMovie::Position() const
{
    if (!IsRunning()) return Place;
    return std::min(Length, Place + static_cast<double>(gHost.Clock->Milliseconds() - Since));
}

void cMovie::Run()
{
    if (IsRunning() || !gHost.Clock) return;
    Since = gHost.Clock->Milliseconds();
    Timer = gHost.Clock->StartRepeating(LookMs, [this] { Tick(); });
}

void cMovie::Hold()
{
    if (!IsRunning()) return;
    Place = Position();
    gHost.Clock->StopTimer(std::exchange(Timer, 0));
}

void cMovie::Tick()
{
    TakeLength();
    if (Position() >= Length) Hold();
    Show();
    if (OnShow) OnShow();
}

void cMovie::Show()
{
    if (!IsOpen) return;
    if (auto Found = Clip->Frame(Clip->FrameAt(Position() / Milli + Inside))) {
        Seen = std::move(Found);
        Reason.clear();
        return;
    }
    Hold();
    const bool IsNew = Reason.empty();
    Reason = Clip->Reason();
    if (IsNew) FileFailed(CantRead, Name, TitleWarning, Reason);
}

void cMovie::Play()
{
    Send("play movie");
    RetValText = "RetVal=" + FormatNum(LastRet, "0");
    if (OnShow) OnShow();
}

void cMovie::Pause()
{
    TakeLength();
    Send("pause movie");
    Send("status movie position");
    SayPosition();
}

void cMovie::SayPosition()
{
    RetPosText = "RetPos=" + Reply;
    RetValText = "RetVal=" + FormatNum(LastRet, "0");
    Show();
    if (OnShow) OnShow();
}

// To First and then to the position, so that the picture is built anew on the way.
void cMovie::MoveTo(double Wanted, double First)
{
    SetPosText = "SetPos=" + FormatNum(Wanted, "0");
    if (First != Wanted) Send("seek movie to " + FormatNum(First, "0"));
    Send("seek movie to " + FormatNum(Wanted, "0"));
    const int32_t Sought = LastRet;
    Send("status movie position");
    LastRet = std::max(LastRet, Sought);
    SayPosition();
}

void cMovie::Next()
{
    TakeLength();
    Send("status movie position");
    const double Wanted = Val(Reply) + gVidMs;
    MoveTo(Wanted, Wanted);
}

void cMovie::Prev()
{
    TakeLength();
    Send("status movie position");
    const double Wanted = Val(Reply) - gVidMs;
    MoveTo(Wanted, Wanted - gVidMs);
}

void cMovie::GoCurTime()
{
    TakeLength();
    gPlayTime = gPlayFrame * gPlayStep;
    const double Wanted = CheckEnd(std::clamp<double>(gPlayTime * Milli, -LongestMs, LongestMs));
    MoveTo(Wanted, Wanted - gVidMs);
}

double cMovie::CheckEnd(double Wanted)
{
    if (Wanted <= 0) {
        gPlayFrame = Frames;
        return Length;
    }
    if (Wanted < Length) return Wanted;
    gPlayFrame = 1;
    return 0;
}
