// The commands of the main window.
#include "core/shell/fCommands.h"
#include "base/mVersion.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "base/mNumText.h"
#include "calibration/fCheckChans.h"
#include "calibration/fDoCalibr.h"
#include "calibration/fDoReZero.h"
#include "calibration/fTrackChans.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "core/shell/frmMain.h"
#include "files/mDump.h"
#include "files/mTextIO.h"
#include "live/rower/fData01real.h"
#include "platform/mHost.h"
#include "records/fTargets.h"
#include "records/mTargets.h"
#include "views/data/fData02view.h"
#include "views/report/fData03report.h"
#include "views/samples/fSamples.h"
#include "views/samples/fSwap.h"
#include "widgets/qIcons.h"
#include "widgets/qPlace.h"

#include <QMessageBox>
#include <QPointer>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace {
// The open window of a kind that takes frames.
template <class Window>
Window* FindOne()
{
    for (cDataWindow* Open : LoadedWindows())
        if (auto* Found = dynamic_cast<Window*>(Open); Found && Found->Tag == DataTag) return Found;
    return nullptr;
}

template <class Window>
Window& ShowOne(frmMain& Main)
{
    auto* One = FindOne<Window>();
    if (!One) Main.AddWindow(One = new Window);
    return *One;
}

// A window of which there is one, in the place where it was closed.
template <class Window>
void ShowPlaced(frmMain& Main, const char* Name, const char* Section, QSize Default, const char* Prefix = "")
{
    auto* Open = Main.findChild<QWidget*>(Name);
    if (!Open) {
        Main.AddWindow(Open = new Window);
        RestorePlace(*Open, Section, Default, Prefix);
    }
    Main.Activate(*Open);
}

fCheckChans& ShowIndicators(frmMain& Main)
{
    fCheckChans& Check = ShowOne<fCheckChans>(Main);
    ShowOne<fTrackChans>(Main).OnDump = [&Main] { DumpChannels(Main); };
    Main.Tile(Qt::Vertical);
    Main.Activate(Check);
    return Check;
}

// What there is to tell of the targets is told ahead of the window.
void ShowRower(frmMain& Main)
{
    if (!FindOne<fData01real>()) {
        InitTargets();
        auto& New = ShowOne<fData01real>(Main);
        RestorePlace(New, "fData01real", Main.AreaSize());
        New.OnRecorded = [&Main](const std::string& Path) { OpenDataView(Main, Path, DataRaw); };
    }
    Main.Activate(ShowOne<fData01real>(Main));
}

void TellPlaying(const std::string& Path)
{
    UpdateStatus("Playing Sample from file " + std::filesystem::path(Path).filename().string());
}

void AskAndView(frmMain& Main, const char* Title, const char* Ext, int16_t Mode)
{
    const std::string Path = ExecComDlg(Title, Ext, eFileMode::In, gCurDir);
    if (!Path.empty()) OpenDataView(Main, Path, Mode);
}

// A recording that is played wants a window to be seen in.
void Play(frmMain& Main, const std::string& Path)
{
    StartReplay(Path);
    if (!gReplaying) return;
    const auto& Windows = LoadedWindows();
    if (std::none_of(Windows.begin(), Windows.end(), [](const cDataWindow* Open) { return Open->Tag == DataTag; }))
        ShowIndicators(Main);
    TellPlaying(Path);
}

// Opens a report in a window of its own; the arguments are those of cReport::InitData.
void OpenReport(frmMain& Main, int Kind, int16_t Sample, int32_t First, int32_t Last)
{
    Guard("The report", [&] {
        auto Report = std::make_unique<fData03report>();
        Report->InitData(Kind, Sample, First, Last);
        fData03report* Shown = Report.release();
        Main.AddWindow(Shown);
        RestorePlace(*Shown, fData03report::Section, (Main.AreaSize() * 0.94).boundedTo({1400, 900}));
        return true;
    });
}

// A new window each time, since the two modes differ in what they write.
fDoReZero& ShowReZero(frmMain& Main, bool CalibratorMode)
{
    if (auto* Open = dynamic_cast<fDoReZero*>(Main.findChild<QWidget*>("fDoReZero"))) {
        Open->setObjectName({});
        Open->Unload();
    }
    auto* Window = new fDoReZero(CalibratorMode);
    Main.AddWindow(Window);
    return *Window;
}

// A wireless link takes a moment to be made.
void AwaitLink()
{
    constexpr int StepMs = 50, Steps = 100;
    for (int i = 0; i < Steps && gLinkWatch.State() == cLinkWatch::eState::Connecting; ++i)
        gHost.Clock->Wait(StepMs);
}
} // namespace

void FileOpen(frmMain& Main)
{
    const std::string Path = ExecComDlg("Load Settings from...", "txt", eFileMode::In, gCurDir);
    if (!Path.empty()) Main.OpenFile(Path);
}

void FileSave(frmMain& Main)
{
    if (gCurFile.empty()) return MsgBox("There is no session to save: open one first.", TitleInformation);
    if (!WriteSession()) return;
    if (auto* Corrections = dynamic_cast<fSwap*>(Main.findChild<QWidget*>("fSwap"))) Corrections->SetSaved();
    UpdateStatus("Saved: " + gCurFile);
}

void FileExit(frmMain& Main)
{
    Main.close();
}

void CheckChannels(frmMain& Main)
{
    if (OpenLink()) SendRun();
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
    ShowIndicators(Main).SetDumpFN(Path);
    StartDump(Path);
}

void DoCalibration(frmMain& Main)
{
    if (OpenLink()) SendRun();
    auto* Window = Main.findChild<QWidget*>("fDoCalibr");
    if (!Window) Main.AddWindow(Window = new fDoCalibr);
    Main.Tile(Qt::Vertical);
    Main.Activate(*Window);
}

void ReZeroChannels(frmMain& Main)
{
    if (OpenLink()) SendRun();
    ShowReZero(Main, false);
    Main.Tile(Qt::Vertical);
}

void SetCalibrator(frmMain& Main)
{
    if (OpenLink()) SendRun();
    ShowReZero(Main, true);
    Main.Tile(Qt::Vertical);
}

std::string AutoReZero(frmMain& Main)
{
    constexpr int WaitMs = 1000; // for frames to arrive
    std::string Names;
    if (!OpenLink()) return Names;
    SendRun();
    AwaitLink();
    for (const int Group : {0, 2}) {
        QPointer<fDoReZero> Window = &ShowReZero(Main, false);
        Window->ChooseGroup(Group);
        Window->StartData();
        gHost.Clock->Wait(WaitMs);
        if (!Window || Window->Tag != DataTag) return Names; // closed in the meantime, though perhaps not gone yet
        cReZero& Zeros = Window->Zeros();
        const bool IsDone = Zeros.Rows().empty() || (Zeros.ReZero() && Zeros.SaveData());
        Window->ShowRows();
        if (!IsDone) return Names;
        for (const ReZeroRow& Row : Zeros.Rows())
            Names += (Names.empty() ? "" : ", ") + Row.Name;
        Window->Unload();
    }
    return Names;
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

void ViewTypical(frmMain& Main)
{
    auto* Chooser = new dSamples(&Main);
    Chooser->OnChosen = [&Main](int16_t Sample) { OpenReport(Main, ReportStored, Sample, 0, 0); };
    Chooser->open();
}

// One view at a time, since it shows the one sample store; the former one may ask to stay.
void OpenDataView(frmMain& Main, const std::string& FileName, int16_t Mode)
{
    if (auto* Open = Main.findChild<QWidget*>("fData02view")) {
        QWidget* Frame = Open->parentWidget();
        if (!Frame->close()) return;
        Open->setObjectName({});
    }
    auto View = std::make_unique<fData02view>();
    if (!View->InitData(FileName, Mode)) return;
    View->OnPlot = [&Main](int Kind, int32_t First, int32_t Last) { OpenReport(Main, Kind, 0, First, Last); };
    fData02view* Shown = View.release();
    Main.AddWindow(Shown);
    RestorePlace(*Shown, "fData02view", Main.AreaSize());
    Main.Activate(*Shown);
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

void CorrectVars(frmMain& Main)
{
    ShowPlaced<fSwap>(Main, "fSwap", "fSwap", {460, 340});
}

void EditTargets(frmMain& Main)
{
    ShowPlaced<fTargets>(Main, "fTargets", fTargets::Section, {900, 420}, fTargets::Prefix);
}

void SampleRower(frmMain& Main)
{
    gSampleName = "Sample # " + FormatNum(gFile.SampleCnt, "0");
    if (OpenLink()) SendRun();
    ShowRower(Main);
    UpdateStatus(gSampleName);
}

void LogChannels(frmMain&)
{
    StartLog();
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
    ShowRower(Main);
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

void ToggleLog(frmMain&)
{
    if (gLogging)
        StopAll();
    else
        StartLog();
}

void ShowHelp(frmMain&)
{
    MsgBox("Unable to display Help Contents. There is no Help associated with this project.", TitleInformation);
}

void ShowAbout(frmMain& Main)
{
    auto* Box = new QMessageBox(&Main);
    Box->setObjectName("frmAbout");
    Box->setAttribute(Qt::WA_DeleteOnClose);
    Box->setWindowTitle("About Skarvelin");
    Box->setIconPixmap(ProgramIcon().pixmap(64));
    Box->setText(QString("<h2>Skarvelin</h2><p>Version %1</p>").arg(Version()));
    Box->setInformativeText("Shows a rowing crew what it does: live channels, recordings, strokes and typical strokes."
                            "<br><br>GNU General Public License, version 3 or later.");
    Box->open();
}
