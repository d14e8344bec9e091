// How the windows of the table are made, found and opened.
#include "core/shell/fWindows.h"

#include "acquisition/fADCsetup.h"
#include "acquisition/mComFast.h"
#include "base/mVersion.h"
#include "calibration/fCheckChans.h"
#include "calibration/fDoCalibr.h"
#include "calibration/fDoReZero.h"
#include "calibration/fTrackChans.h"
#include "core/mGlobData.h"
#include "core/mVideoFile.h"
#include "core/shell/fCommands.h"
#include "core/shell/fDigitising.h"
#include "core/shell/fFolders.h"
#include "core/shell/fPlayCommands.h"
#include "core/shell/frmMain.h"
#include "ergometer/fPMI.h"
#include "files/mRawLog.h"
#include "live/catch/fData01Catch.h"
#include "live/coach/fData01Coach.h"
#include "live/ergo/fData01RP3.h"
#include "live/rower/fData01real.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "records/fAthleteInp.h"
#include "records/fDataGrid.h"
#include "records/fOpts.h"
#include "records/fSession.h"
#include "records/fTargets.h"
#include "records/mTargets.h"
#include "video/f1Control.h"
#include "video/f1Video.h"
#include "video/f2Video.h"
#include "video/fAnthro.h"
#include "video/fVidDigit.h"
#include "views/data/fData02view.h"
#include "views/play/fData04play.h"
#include "views/play/mPlayLoad.h"
#include "views/report/cData03report.h"
#include "views/report/fData03report.h"
#include "views/samples/fSamples.h"
#include "views/samples/fSwap.h"
#include "widgets/qIcons.h"
#include "widgets/qPlace.h"

#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>

#include <algorithm>
#include <memory>

namespace {
template <class Window>
QWidget* Make(frmMain&, const WindowArgs&)
{
    return new Window;
}

QWidget* MakeTracks(frmMain& Main, const WindowArgs&)
{
    auto* Tracks = new fTrackChans;
    Tracks->OnDump = [&Main] { DumpChannels(Main); };
    return Tracks;
}

QWidget* MakeReZero(frmMain&, const WindowArgs& Args)
{
    return new fDoReZero(Args.Mode == ReZeroCalibrator);
}

template <class Panel>
QWidget* MakePanel(frmMain& Main, const WindowArgs&)
{
    auto* Made = new Panel;
    Made->OnRecorded = [&Main](const std::string& Path) {
        OpenWindow(Main, "fData02view", {.File = Path, .Mode = DataRaw});
    };
    return Made;
}

// Closes the window as its frame's button does. False when it stays; else its name is free at once.
bool Close(QWidget& Window)
{
    QWidget* Frame = Window.isWindow() ? &Window : Window.parentWidget();
    if (!Frame->close()) return false;
    Window.setObjectName({});
    return true;
}

// The data view and the play view of a recording show what gRaw holds: one of them closes when the other is opened.
// False when it stays.
bool CloseOther(const frmMain& Main, const char* Name)
{
    QWidget* const Other = FindOpen(Main, Name);
    const auto* const Played = dynamic_cast<fData04play*>(Other);
    if (!Other || (Played && !Played->PlaysSamples())) return true;
    return Close(*Other);
}

QWidget* MakeDataView(frmMain& Main, const WindowArgs& Args)
{
    if (!CloseOther(Main, "fData04play")) return nullptr;
    auto View = std::make_unique<fData02view>();
    if (!View->InitData(Args.File, static_cast<int16_t>(Args.Mode))) return nullptr;
    View->OnPlot = [&Main](int Kind, int32_t First, int32_t Last) {
        OpenWindow(Main, "fData03report", {.Mode = Kind, .First = First, .Last = Last});
    };
    return View.release();
}

QWidget* MakeReport(frmMain& Main, const WindowArgs& Args)
{
    auto Report = std::make_unique<fData03report>();
    Report->OnChoose = [&Main] { OpenWindow(Main, "dSamples"); };
    Report->InitData(Args.Mode, Args.Sample, Args.First, Args.Last);
    return Report.release();
}

// A video that is open is played with it.
QWidget* MakePlayView(frmMain& Main, const WindowArgs& Args)
{
    PlayData Data{.Mode = static_cast<int16_t>(Args.Mode), .Sample = Args.Sample};
    if (Data.Mode == PlayPrimary && !(CloseOther(Main, "fData02view") && LoadPrimary(Args.File, Data))) return nullptr;
    TakeVideo(Main, Data);
    auto View = std::make_unique<fData04play>();
    if (!View->InitData(Data) && Data.Mode == PlayPrimary) return nullptr;
    gCurSample = Data.Sample;
    return View.release();
}

QWidget* MakeGrid(frmMain& Main, const WindowArgs& Args)
{
    const GridKind* Kind = FindGridKind(Args.Kind);
    if (!Kind) return nullptr;
    if (gCurFile.empty() && Args.Kind != "Antro") {
        MsgBox(std::string(Kind->Caption) + " belong to a session: open one first.", TitleInformation);
        return nullptr;
    }
    auto Rows = std::make_unique<cDataGrid>(*Kind);
    if (!Rows->Load()) return nullptr;
    auto* Grid = new fDataGrid(std::move(Rows));
    Grid->OnSample = [&Main](int16_t Sample) {
        OpenWindow(Main, "fData03report", {.Mode = ReportStored, .Sample = Sample});
    };
    return Grid;
}

// For the report, or for the play view in the mode given.
QWidget* MakeSamples(frmMain& Main, const WindowArgs& Args)
{
    auto* Chooser = new dSamples(&Main);
    Chooser->OnChosen = [&Main, Args](int16_t Sample) {
        if (Args.Mode == 0)
            OpenWindow(Main, "fData03report", {.Mode = ReportStored, .Sample = Sample});
        else
            PlaySample(Main, Args, Sample);
    };
    return Chooser;
}

// The play view goes along with the movie that it drives, and closes with the videos.
QWidget* MakeControl(frmMain& Main, const WindowArgs&)
{
    auto* Panel = new f1Control;
    Panel->Control.PlayView = [&Main]() -> Played {
        auto* const View = dynamic_cast<fData04play*>(FindOpen(Main, "fData04play"));
        if (!View) return {};
        return {View,
                [&Main, View] {
                    View->GoCurTime();
                    if (auto* const Movie = dynamic_cast<f2Video*>(FindOpen(Main, "f2Video"))) Movie->GoCurTime();
                },
                [View] { View->Unload(); }};
    };
    Panel->Control.PlayMovie = [&Main](bool Runs) {
        if (auto* const Player = dynamic_cast<f2Video*>(FindOpen(Main, "f2Video")))
            Runs ? Player->Movie.Play() : Player->Movie.Pause();
    };
    return Panel;
}

QWidget* MakeSession(frmMain& Main, const WindowArgs& Args)
{
    auto* Session = new fSession(&Main, TemplateFolders(Plain(QCoreApplication::applicationDirPath())));
    Session->MayReplace = [&Main] { return Main.EndForSession(); };
    Session->InitMode(static_cast<int16_t>(Args.Mode));
    return Session;
}

QWidget* MakeAthlete(frmMain& Main, const WindowArgs&)
{
    auto* Athlete = new fAthleteInp(&Main);
    Athlete->MayReplace = [&Main] { return Main.EndForSession(); };
    return Athlete;
}

// A file that cannot be shown leaves no window.
template <class Window>
QWidget* MakeVideo(frmMain&, const WindowArgs& Args)
{
    auto Made = std::make_unique<Window>();
    return Made->VideoFileOpen(Args.File) ? Made.release() : nullptr;
}

// Frames stop during the set-up: a recording would have a hole.
QWidget* MakeSetUp(frmMain& Main, const WindowArgs&)
{
    if (!gLogging) return new fADCsetup(&Main);
    MsgBox("A recording is running, and the logger sends no frames while it is set up. End the recording first.",
           TitleWarning);
    return nullptr;
}

QWidget* MakeClip(frmMain& Main, const WindowArgs& Args)
{
    auto Video = std::make_unique<f1Video>();
    LinkDigitising(Main, *Video);
    if (!Args.File.empty() && !Video->VideoFileOpen(Args.File)) return nullptr;
    return Video.release();
}

QWidget* MakeVidDigit(frmMain&, const WindowArgs& Args)
{
    auto* Video = dynamic_cast<f1Video*>(Args.Owner);
    return Video ? new fVidDigit(*Video, Args.Mode) : nullptr;
}

QWidget* MakeAnthro(frmMain&, const WindowArgs& Args)
{
    auto* Video = dynamic_cast<f1Video*>(Args.Owner);
    return Video ? new fAnthro(*Video) : nullptr;
}

QWidget* MakeOptions(frmMain& Main, const WindowArgs&)
{
    return new fOpts(&Main);
}

QWidget* MakeAbout(frmMain& Main, const WindowArgs&)
{
    auto* Box = new QMessageBox(&Main);
    Box->setAttribute(Qt::WA_DeleteOnClose);
    Box->setWindowTitle("About Skarvelin");
    Box->setIconPixmap(ProgramIcon().pixmap(64));
    Box->setText(QString("<h2>Skarvelin</h2><p>Version %1</p>").arg(Version()));
    Box->setInformativeText("Shows a rowing crew what it does: live channels, recordings, strokes and typical strokes."
                            "<br><br>GNU General Public License, version 3 or later.");
    return Box;
}

using enum eCount;
using enum ePlace;

constexpr WindowKind Windows[] = {
    {"fCheckChans", "The channel indicator", Make<fCheckChans>, One, Tiled, NeedsLink},
    {"fTrackChans", "The channel indicator", MakeTracks, One, Tiled, NeedsLink},
    {"fDoCalibr", "The calibration workbench", Make<fDoCalibr>, One, Tiled, NeedsLink},
    {"fDoReZero", "Re-zeroing", MakeReZero, OneAnew, Tiled, NeedsLink},
    {"fData01real", "The rower's panel", MakePanel<fData01real>, One, Kept, NeedsLink | NeedsTargets, "fData01real"},
    {"fData01Catch", "The catch training panel", MakePanel<fData01Catch>, One, Kept, NeedsLink | NeedsTargets,
     "fData01Catch"},
    {"fData01Coach", "The coach's panel", MakePanel<fData01Coach>, One, Kept, NeedsLink | NeedsTargets, "fData01Coach"},
    {"fData01RP3", "The ergometer panel", MakePanel<fData01RP3>, One, Kept, NeedsTargets, "fData01RP3"},
    {"fPMI", "The performance monitor", Make<fPMI>, One, Kept, NeedsNothing, "fPMI", "", {860, 560}},
    {"fData02view", "The data view", MakeDataView, OneAnew, Kept, NeedsNothing, "fData02view"},
    {"fData03report", "The report", MakeReport, Many, Kept, NeedsNothing, fData03report::Section, "", {1400, 900}},
    {"fData04play", "The play view", MakePlayView, OneAnew, Kept, NeedsNothing, fData04play::Section},
    {"f1Video", "The video", MakeClip, Many, Kept, NeedsNothing, f1Video::Section, "", {900, 720}},
    {"fVidDigit", "Digitising", MakeVidDigit, OneAnew, Kept, NeedsNothing, fVidDigit::Section, "", {480, 620}},
    {"fAnthro", "Anthropometry", MakeAnthro, OneAnew, Kept, NeedsNothing, fAnthro::Section, "", {320, 480}},
    {"fSwap", "Correct Vars", Make<fSwap>, One, Kept, NeedsNothing, "fSwap", "", {460, 340}},
    {"fTargets",
     "The targets",
     Make<fTargets>,
     One,
     Kept,
     NeedsNothing,
     fTargets::Section,
     fTargets::Prefix,
     {900, 420}},
    {"f1Control", "The animation control", MakeControl, One, Kept, NeedsNothing, f1Control::Section, "", {520, 160}},
    {"f2Video", "The MPEG player", MakeVideo<f2Video>, OneAnew, Kept, NeedsNothing, f2Video::Section, "", {720, 560}},
    {"fSession", "The session dialog", MakeSession, One, Dialog, NeedsNothing},
    {"fAthleteInp", "The athlete dialog", MakeAthlete, One, Dialog, NeedsNothing},
    {"fDataGrid", "The record grid", MakeGrid, OneAKind, Kept, NeedsNothing, fDataGrid::Section, "", {1000, 560}},
    {"fOpts", "The Main Options", MakeOptions, One, Dialog, NeedsNothing},
    {"dSamples", "The choice of a sample", MakeSamples, One, Dialog, NeedsNothing},
    {"fADCsetup", "The logger set-up", MakeSetUp, One, Dialog, NeedsNothing},
    {"frmAbout", "About Skarvelin", MakeAbout, One, Dialog, NeedsNothing},
};

std::string ObjectName(const WindowKind& Row, const WindowArgs& Args)
{
    return Row.Count == OneAKind ? Row.Name + ("_" + Args.Kind) : Row.Name;
}

bool MeetNeeds(const WindowKind& Row, const WindowArgs& Args)
{
    if ((Row.Needs & NeedsSession) && gCurFile.empty()) {
        MsgBox(std::string(Row.Title) + " shows a session: open one first.", TitleInformation);
        return false;
    }
    if ((Row.Needs & NeedsLink) && Args.OpensLink && OpenLink()) SendRun();
    return true;
}

// The whole area, or the window's own size with some of the area to be seen around it.
QSize Default(const WindowKind& Row, QSize Area)
{
    constexpr double Most = 0.94;
    return Row.Size.isEmpty() ? Area : Row.Size.boundedTo(Area * Most);
}

void Show(frmMain& Main, const WindowKind& Row, const WindowArgs& Args, QWidget& Window)
{
    if (Row.Place == Dialog) return dynamic_cast<QDialog&>(Window).open();
    Main.AddWindow(&Window);
    if (!Row.Section) return;
    const std::string Prefix = Row.Count == OneAKind ? Args.Kind + "_" + Row.Prefix : Row.Prefix;
    RestorePlace(Window, Row.Section, Default(Row, Main.AreaSize()), Prefix);
}

QWidget* MakeAndShow(frmMain& Main, const WindowKind& Row, const WindowArgs& Args)
{
    if ((Row.Needs & NeedsTargets) && Args.ChoosesTargets) InitTargets(); // what it reports stands ahead of the window
    QWidget* Made = nullptr;
    Guard(Row.Title, [&] { return (Made = Row.Make(Main, Args)) != nullptr; });
    if (!Made) return nullptr;
    Made->setObjectName(Shown(ObjectName(Row, Args)));
    Show(Main, Row, Args, *Made);
    return Made;
}
} // namespace

std::span<const WindowKind> AllWindows()
{
    return Windows;
}

const WindowKind* FindWindow(const std::string& Name)
{
    const auto* Found =
        std::find_if(std::begin(Windows), std::end(Windows), [&](const WindowKind& Row) { return Row.Name == Name; });
    return Found == std::end(Windows) ? nullptr : Found;
}

QWidget* FindOpen(const frmMain& Main, const std::string& Name)
{
    for (QWidget* Window : Main.findChildren<QWidget*>(Shown(Name))) {
        const QWidget* Frame = Window->isWindow() ? Window : Window->parentWidget();
        if (!Frame->isHidden()) return Window;
    }
    return nullptr;
}

QWidget* OpenWindow(frmMain& Main, const std::string& Name, const WindowArgs& Args)
{
    const WindowKind* Row = FindWindow(Name);
    if (!Row || !MeetNeeds(*Row, Args)) return nullptr;
    QWidget* Window = Row->Count == Many ? nullptr : FindOpen(Main, ObjectName(*Row, Args));
    if (Window && Row->Count == OneAnew) {
        if (!Close(*Window)) return nullptr;
        Window = nullptr;
    }
    if (!Window) Window = MakeAndShow(Main, *Row, Args);
    if (!Window) return nullptr;
    CloseUnusedLink(); // which learns now that the link is used: the window may be closed again before the next tick
    if (Row->Place == Tiled) Main.Tile(Qt::Vertical);
    if (Row->Place != Dialog) Main.Activate(*Window);
    return Window;
}
