// The commands of the main window.
#include "core/shell/fCommands.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "base/mNumText.h"
#include "calibration/fAutoReZero.h"
#include "calibration/fCheckChans.h"
#include "calibration/fDoReZero.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "core/mVideoFile.h"
#include "core/shell/fWindows.h"
#include "core/shell/frmMain.h"
#include "files/mDump.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "records/mSession.h"
#include "video/f1Control.h"
#include "video/f1Video.h"
#include "views/data/mViewLoad.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace {
fCheckChans& ShowIndicators(frmMain& Main, const WindowArgs& Args = {})
{
    auto& Check = dynamic_cast<fCheckChans&>(*OpenWindow(Main, "fCheckChans", Args));
    OpenWindow(Main, "fTrackChans", {.OpensLink = false});
    Main.Activate(Check);
    return Check;
}

void TellPlaying(const std::string& Path)
{
    UpdateStatus("Playing Sample from file " + std::filesystem::path(Path).filename().string());
}

void AskAndView(frmMain& Main, const char* Title, const char* Ext, int16_t Mode)
{
    const std::string Path = ExecComDlg(Title, Ext, eFileMode::In, gCurDir);
    if (!Path.empty()) OpenWindow(Main, "fData02view", {.File = Path, .Mode = Mode});
}

// A recording that is played needs a window that shows it.
void Play(frmMain& Main, const std::string& Path)
{
    StartReplay(Path);
    if (!gReplaying) return;
    const auto& Windows = LoadedWindows();
    if (std::none_of(Windows.begin(), Windows.end(), [](const cDataWindow* Open) { return Open->Tag == DataTag; }))
        ShowIndicators(Main, {.OpensLink = false});
    TellPlaying(Path);
}

fDoReZero& ShowReZero(frmMain& Main, bool CalibratorMode)
{
    const WindowArgs Args{.Mode = CalibratorMode ? ReZeroCalibrator : ReZeroChannels, .OpensLink = false};
    return dynamic_cast<fDoReZero&>(*OpenWindow(Main, "fDoReZero", Args));
}
} // namespace

void FileNew(frmMain& Main)
{
    OpenWindow(Main, "fSession", {.Mode = SessionNew});
}

void FileOpen(frmMain& Main)
{
    const std::string Path = ExecComDlg("Load Settings from...", "txt", eFileMode::In, gCurDir);
    if (!Path.empty()) Main.OpenFile(Path);
}

void FileSave(frmMain&)
{
    if (gCurFile.empty()) return MsgBox("There is no session to save: open one first.", TitleInformation);
    if (!WriteSession()) return;
    UpdateStatus("Saved: " + gCurFile);
}

void FileSaveAs(frmMain& Main)
{
    if (gErgoMode != 0) {
        OpenWindow(Main, "fAthleteInp");
        return;
    }
    if (gCurFile.empty())
        return MsgBox("There is no session to save: open one, or make one with File, New.", TitleInformation);
    OpenWindow(Main, "fSession", {.Mode = SessionSaveAs});
}

void SetSession(frmMain& Main)
{
    if (gCurFile.empty())
        return MsgBox("There is no session to describe: open one, or make one with File, New.", TitleInformation);
    OpenWindow(Main, "fSession", {.Mode = SessionChange});
}

void FileExit(frmMain& Main)
{
    Main.close();
}

void CheckChannels(frmMain& Main)
{
    ShowIndicators(Main);
}

void DumpChannels(frmMain& Main)
{
    if (gDumping) {
        StopDump();
        return UpdateStatus("The dump is closed");
    }
    const std::string Path = ExecComDlg("Dump to...", "txt", eFileMode::Out);
    if (Path.empty()) return;
    ShowIndicators(Main, {.OpensLink = false}).SetDumpFN(Path);
    StartDump(Path);
}

void SetCalibrator(frmMain& Main)
{
    OpenWindow(Main, "fDoReZero", {.Mode = ReZeroCalibrator});
}

std::string AutoReZero(frmMain& Main)
{
    fAutoReZero View([&Main]() -> fDoReZero& { return ShowReZero(Main, false); });
    cAutoReZero Zeroing(View);
    Zeroing.Run();
    return Zeroing.Names();
}

void AskAutoReZero(frmMain& Main)
{
    if (!AskYesNo("The horizontal angles and the handle forces will be zeroed at their present counts, and the session "
                  "saved. Are all these sensors unloaded and at rest?",
                  TitleWarning))
        return;
    const std::string Names = AutoReZero(Main);
    MsgBox(Names.empty() ? "No channel was zeroed." : "Zeroed and saved: " + Names, TitleInformation);
}

void ViewRawFile(frmMain& Main)
{
    AskAndView(Main, "Raw Files to Load", "qvn", DataRaw);
}

void ViewPrimaryFile(frmMain& Main)
{
    AskAndView(Main, "Primary Files to Load", "1*", DataPrimary);
}

void ViewLoggerFile(frmMain& Main)
{
    AskAndView(Main, "Skarvelin Data Files", "qvn", DataLogger);
}

void ViewScannedFile(frmMain& Main)
{
    AskAndView(Main, "Skarvelin Data Files", "qvn", DataScanned);
}

void SampleRower(frmMain& Main)
{
    gSampleName = "Sample # " + FormatNum(gFile.SampleCnt, "0");
    OpenWindow(Main, "fData01real");
    UpdateStatus(gSampleName);
}

void SampleCatch(frmMain& Main)
{
    OpenWindow(Main, "fData01Catch");
}

void SampleAllPanels(frmMain& Main)
{
    SampleRower(Main);
    std::vector<QWidget*> Panels;
    for (const char* Name : {"fData01real", "fData01Coach", "fData01Catch"})
        if (QWidget* Panel = OpenWindow(Main, Name, {.OpensLink = false, .ChoosesTargets = false}))
            Panels.push_back(Panel);
    Main.PlaceBeside(Panels);
}

void LogChannels(frmMain&)
{
    StartRecording();
}

void ReadLog(frmMain& Main)
{
    Play(Main, gRawFN);
}

void PlayRawRower(frmMain& Main)
{
    const std::string Path = ExecComDlg("Raw File to Play", "*", eFileMode::In, gCurDir);
    if (Path.empty()) return;
    StartReplay(Path);
    if (!gReplaying) return;
    gReplaying = false; // held until the panel is there to be played on
    OpenWindow(Main, "fData01real", {.OpensLink = false});
    constexpr int32_t Minute = 60000; // ms
    SetReplayInterval(RoundWithin(gDeltaT * 1000 / 10, 1, Minute));
    gReplaying = true;
    TellPlaying(Path);
}

void PlayRawCoach(frmMain& Main)
{
    const std::string Path = ExecComDlg("Raw File to Play", "qvn", eFileMode::In, gCurDir);
    if (!Path.empty()) Play(Main, Path);
}

// The one control drives all videos.
void PlayVideo(frmMain& Main)
{
    const std::string Path = ExecComDlg("Video File to Open", "avi", eFileMode::In, gVideoDir);
    auto* Video = Path.empty() ? nullptr : dynamic_cast<f1Video*>(OpenWindow(Main, "f1Video", {.File = Path}));
    if (!Video) return;
    gVideoFN = Path;
    auto& Panel = dynamic_cast<f1Control&>(*OpenWindow(Main, "f1Control"));
    Panel.Control.AddVideo({Video, [Video] { Video->GoCurTime(); }, [Video] { Video->Unload(); }});
    Video->OnClosed = [&Main, Video] {
        if (auto* Open = dynamic_cast<f1Control*>(FindOpen(Main, "f1Control"))) Open->Control.RemoveVideo(Video);
    };
    Main.Activate(*Video);
}

void PlayMPEG(frmMain& Main)
{
    const std::string Path = ExecComDlg("Video File to Open", "mp4", eFileMode::In, gVideoDir);
    if (!Path.empty()) OpenWindow(Main, "f2Video", {.File = Path});
}

void ToggleLog(frmMain&)
{
    if (gLogging)
        StopAll();
    else
        StartRecording();
}

void ShowHelp(frmMain&)
{
    MsgBox("Unable to display Help Contents. There is no Help associated with this project.", TitleInformation);
}
