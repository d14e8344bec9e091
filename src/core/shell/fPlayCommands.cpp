// Which sample and which video are played.
#include "core/shell/fPlayCommands.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mVideoFile.h"
#include "core/shell/frmMain.h"
#include "platform/mHost.h"
#include "video/f1Video.h"
#include "video/f2Video.h"

#include <filesystem>

namespace {
constexpr const char* NoStrokes = "Can not play without known Number of Strokes in the Video File";

void AskAndPlay(frmMain& Main, const WindowArgs& Args, const char* Title)
{
    if (gFile.Desc.UBound() < 1)
        return MsgBox("The session has no stored sample to play. Process a recording in the data view first.",
                      TitleInformation);
    UpdateStatus(Title);
    OpenWindow(Main, "dSamples", Args);
}

// False when the user does not say (reported to the user).
bool AskStrokes(const std::string& Path, int Known)
{
    const std::string Answer = InputBox("How many strokes does the video show?\n" + Path, "Strokes in the Video",
                                        FormatNum(Known > 0 ? Known : 1, "0"));
    gVideoStrokes = static_cast<int16_t>(RoundWithin(Val(Answer), 0, INT16_MAX));
    if (gVideoStrokes >= 1) return true;
    MsgBox(NoStrokes, TitleWarning);
    return false;
}

// The video that was bound to the sample, or one that the user chooses; empty when none is.
std::string VideoOf(const DescRow& Sample)
{
    std::error_code Error;
    const std::string Bound = gCurDir + Sample.VideoFN;
    if (!Sample.VideoFN.empty() && std::filesystem::exists(Bound, Error)) return Bound;
    const std::string Title = Sample.VideoFN.empty() ? "Video File to Play" : "Where is " + Sample.VideoFN + "?";
    return ExecComDlg(Title, "avi", eFileMode::In, gVideoDir.empty() ? gCurDir : gVideoDir);
}

// Null when it cannot be opened (reported to the user), or when nobody says which one it is.
QWidget* OpenVideo(frmMain& Main, const WindowArgs& Args, const DescRow& Sample)
{
    const std::string Path = Args.File.empty() ? VideoOf(Sample) : Args.File;
    if (Path.empty()) return nullptr;
    gVideoStrokes = Args.File.empty() ? Sample.VideoStrN : gVideoStrokes;
    if (gVideoStrokes < 1 && !AskStrokes(Path, Sample.VideoStrN)) return nullptr;
    for (const char* Other : {"f1Video", "f2Video"})
        if (QWidget* const Open = FindOpen(Main, Other)) (Open->isWindow() ? Open : Open->parentWidget())->close();
    QWidget* const Video = OpenWindow(Main, Args.Kind, {.File = Path});
    if (Video) gVideoFN = Path;
    return Video;
}
} // namespace

void PlayPrimaryFile(frmMain& Main)
{
    const std::string Path = ExecComDlg("Primary File to Play", "qvn", eFileMode::In, gCurDir);
    if (!Path.empty()) OpenWindow(Main, "fData04play", {.File = Path, .Mode = PlayPrimary});
}

void PlayTypicalData(frmMain& Main)
{
    AskAndPlay(Main, {.Mode = PlayTypical}, "Playing Typical Data");
}

void PlayAnimation(frmMain& Main)
{
    AskAndPlay(Main, {.Mode = PlayComplex}, "Data Animation");
}

void PlayNorm(frmMain& Main)
{
    const std::string Path = ExecComDlg("Video File to Play", "wmv", eFileMode::In, gVideoDir);
    if (Path.empty() || !AskStrokes(Path, 0)) return;
    AskAndPlay(Main, {.File = Path, .Kind = "f2Video", .Mode = PlayTypical}, "Playing Typical Data");
}

void PlayLoad(frmMain& Main)
{
    AskAndPlay(Main, {.Kind = "f1Video", .Mode = PlayTypical}, "Playing Typical Data");
}

void PlaySample(frmMain& Main, const WindowArgs& Args, int16_t Sample)
{
    QWidget* const Video = Args.Kind.empty() ? nullptr : OpenVideo(Main, Args, gFile.Desc[Sample]);
    if (!Args.Kind.empty() && !Video) return;
    QWidget* const View = OpenWindow(Main, "fData04play", {.Mode = Args.Mode, .Sample = Sample});
    if (!Video || !View) return;
    Main.PlaceBeside({Video, View}, Qt::Horizontal);
    Main.Activate(*View);
}

// Of two kinds of windows the one that knows its pictures comes first.
void TakeVideo(const frmMain& Main, PlayData& Data)
{
    if (const auto* const Video = dynamic_cast<f1Video*>(FindOpen(Main, "f1Video")); Video && Video->Video.IsOpen()) {
        Data.VideoFN = Video->Video.VideoFN();
        Data.Duration = Video->Video.Duration();
        Data.Frames = Video->Video.Pictures();
        Data.FrameTime = Video->Video.FrameTime();
    } else if (const auto* const Movie = dynamic_cast<f2Video*>(FindOpen(Main, "f2Video"))) {
        Data.VideoFN = Movie->Movie.VideoFN();
        Data.Duration = Movie->Movie.LengthMs() / 1000;
        Data.Frames = Movie->Movie.FrameCnt();
        Data.FrameTime = static_cast<double>(gVidMs) / 1000;
    }
    Data.Strokes = gVideoStrokes;
}
