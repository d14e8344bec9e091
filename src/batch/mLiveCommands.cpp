// The command live: a recording played through a panel without its window.
#include "batch/mCommands.h"
#include "batch/mTabText.h"

#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "files/mBinIO.h"
#include "live/catch/cCatch.h"
#include "live/coach/cCoach.h"
#include "live/ergo/cErg.h"
#include "live/rower/cRower.h"
#include "platform/mHost.h"
#include "platform/plain/sSurface.h"
#include "records/mTargets.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace {
// The stroke numbers of all rows at a stroke's start.
void WriteStroke(TabText& Table, int Frame, const cRower& Panel)
{
    int Row = 0;
    for (const cData01real& Plot : Panel.Views()) {
        ++Row;
        for (const StrokeNumber& Each : Plot.StrokeNumbers()) {
            if (!Each.IsMade) continue;
            Table.Cell(Frame).Cell(gSampleTime).Cell(gStrokeCnt).Cell(gCycleTime).Cell(gRate).Cell(gRateAver);
            Table.Cell(Row).Cell(gFile.View1[Row].ID).Cell(Each.Key).Cell(Each.Value).EndLine();
        }
    }
}

// A line of a factor or figure that the catch panel shows.
void WriteCatchLine(TabText& Table, int Frame, const char* Kind, const char* Key, double Value,
                    const std::string& Colour = "")
{
    Table.Cell(Frame).Cell(gSampleTime).Cell(Kind).Cell(Key).Cell(Value).Cell(Colour);
}

// Left is the mark's place on a bar of this width.
constexpr double BarWidth = 1000;

void WriteFactor(TabText& Table, int Frame, const char* Kind, const FactorShown& Factor)
{
    WriteCatchLine(Table, Frame, Kind, "Last", Factor.Last, std::string(VerdictName(Factor.LastVerdict)));
    Table.Cell(Factor.Mark * BarWidth).EndLine();
    if (!Factor.Average) return;
    WriteCatchLine(Table, Frame, Kind, "Average", *Factor.Average, std::string(VerdictName(Factor.AverageVerdict)));
    Table.Cell("").EndLine();
}

// What a sample brought to the catch panel, in the order in which the panel forms it.
void WriteCatch(TabText& Table, int Frame, const cCatch& Panel)
{
    const CatchStroke& Stroke = Panel.Stroke();
    const std::pair<const char*, double> Figures[] = {
        {"Strokes", Stroke.StrokeN},       {"Rate", Stroke.Rate},
        {"RateAver", Stroke.RateAver},     {"Length", Stroke.Length},
        {"SeatTravel", Stroke.SeatTravel}, {"MaxHandle", Stroke.MaxHandleV},
        {"MaxSeat", Stroke.MaxSeatV}};
    for (const auto& [Key, Value] : Figures) {
        if (!Panel.Newest().Stroke) break;
        WriteCatchLine(Table, Frame, "N", Key, Value);
        Table.Cell("").EndLine();
    }
    if (Panel.Newest().CF) WriteFactor(Table, Frame, "CF", *Panel.CatchFactor());
    if (Panel.Newest().FF) WriteFactor(Table, Frame, "FF", *Panel.FinishFactor());
    if (Panel.Newest().RSF) WriteFactor(Table, Frame, "RSF", *Panel.StyleFactor());
}

// What a sample brought to the ergometer panel. Without a force channel the cells of forces are empty.
void WriteErg(TabText& Table, int Frame, const cErg& Panel)
{
    const auto Line = [&](const char* Kind, const char* Key, double Value, bool HasValue = true) {
        Table.Cell(Frame).Cell(gSampleTime).Cell(Kind).Cell(Key);
        (HasValue ? Table.Cell(Value) : Table.Cell("")).EndLine();
    };
    const ErgStroke& Stroke = Panel.Stroke();
    const std::pair<const char*, double> Motion[] = {{"Strokes", Stroke.StrokeCnt}, {"Cycle", Stroke.CycleTime},
                                                     {"Rate", Stroke.Rate},         {"RateAver", Stroke.RateAver},
                                                     {"Drive", Stroke.DriveTime},   {"Recovery", Stroke.RecovTime},
                                                     {"Length", Stroke.Length}};
    const std::pair<const char*, double> Forces[] = {{"MaxForce", Stroke.MaxForce},
                                                     {"MaxForceTime", Stroke.MaxForceT},
                                                     {"Work", Stroke.Work},
                                                     {"Power", Stroke.Power},
                                                     {"AverForce", Stroke.AverForce}};
    if (Panel.Newest().Stroke) {
        for (const auto& [Key, Value] : Motion)
            Line("N", Key, Value);
        for (const auto& [Key, Value] : Forces)
            Line("N", Key, Value, Panel.HasForce());
    }
    if (Panel.Newest().CF) Line("CF", "CF", Panel.CF());
}

// What a sample brought to the coach's panel: its clock, then the labels of the table.
void WriteCoach(TabText& Table, int Frame, const cCoach& Panel)
{
    const cCoachClock& Clock = Panel.Clock();
    const std::pair<const char*, double> Figures[] = {{"Elapsed", Clock.Elapsed()},
                                                      {"Strokes", Clock.StrokeN()},
                                                      {"Rate", Clock.RateNow()},
                                                      {"RateAver", Clock.RateAver()}};
    for (const auto& [Key, Value] : Figures)
        if (Panel.IsStart())
            Table.Cell(Frame).Cell(gSampleTime).Cell("S").Cell(0).Cell(Key).Cell(Value).Cell("").EndLine();
    for (const CoachPlace& Place : Panel.Changes()) {
        const CoachCell Cell = Panel.Cell(Place);
        Table.Cell(Frame).Cell(gSampleTime).Cell("V").Cell(Place.Row + 1).Cell(Place.Column).Cell(Cell.Value);
        Table.Cell(Cell.Verdict ? std::string(VerdictName(*Cell.Verdict)) : "").EndLine();
    }
}

// Frames as a replay takes them: one that the decoder refuses is passed over. Write adds what a frame brought.
template <class Kind, class Writer>
bool PlayThrough(const std::string& Path, Kind& Panel, const Writer& Write)
{
    CreateData();
    int Frame = -1;
    while (const auto Taken = gScanFile.Take()) {
        if (!DecodeLive(FrameSource::Replay, *Taken, gScanStream)) {
            gScanFile.Left.AddBroken(gScanFile.FrameAt(), static_cast<int64_t>(Taken->Bytes.size()));
            continue;
        }
        gScanFile.Left.AddFrame(gSampleTime);
        Panel.TakeSample();
        Write(++Frame);
    }
    if (Frame < 0) ReportNoFrames(Path);
    return CloseScanFile();
}

bool PlayRower(const Args& Line, TabText& Table)
{
    sSurface Screen(1000, 600);
    cRower Panel(Screen);
    Panel.Load();
    Panel.InitMode();
    Panel.Resize();
    return PlayThrough(Line.Files[1], Panel, [&](int Frame) {
        if (Panel.NewStroke()) WriteStroke(Table, Frame, Panel);
    });
}

bool PlayCatch(const Args& Line, TabText& Table)
{
    sSurface Screen(1000, 600);
    cCatch Panel(Screen);
    Panel.Load();
    cCatch::InitMode();
    Panel.Resize();
    return PlayThrough(Line.Files[1], Panel, [&](int Frame) { WriteCatch(Table, Frame, Panel); });
}

bool PlayErg(const Args& Line, TabText& Table)
{
    sSurface Screen(1000, 600);
    cErg Panel(Screen);
    Panel.Load();
    cErg::InitMode();
    Panel.Resize();
    return PlayThrough(Line.Files[1], Panel, [&](int Frame) { WriteErg(Table, Frame, Panel); });
}

bool PlayCoach(const Args& Line, TabText& Table)
{
    const std::string Targets = Line.Text("--targets", "");
    gIsTargVals = 0;
    if (!Targets.empty() && !UseTargets(Targets)) return false;
    if (Line.Has("--average")) mDisplayMode = DisplayAverage;
    if (Line.Has("--separate")) mScullMode = ScullSeparate;
    cCoach Panel;
    Panel.Load(true);
    cCoach::InitMode();
    return PlayThrough(Line.Files[1], Panel, [&](int Frame) { WriteCoach(Table, Frame, Panel); });
}

constexpr const char* CoachName = "coach";

// A panel that can be played through, with the heads of its table.
struct PanelKind
{
    std::string_view Name;
    const char* Heads;
    bool (*Play)(const Args& Line, TabText& Table);
};
constexpr PanelKind Panels[] = {{"rower", "Frame\tTime\tStroke\tCycle\tRate\tRateAver\tRow\tID\tKey\tValue", PlayRower},
                                {"catch", "Frame\tTime\tKind\tKey\tValue\tColour\tLeft", PlayCatch},
                                {"ergo", "Frame\tTime\tKind\tKey\tValue", PlayErg},
                                {CoachName, "Frame\tTime\tKind\tRow\tKey\tValue\tColour", PlayCoach}};
} // namespace

bool DoLive(const Args& Line)
{
    if (!LoadSession(Line.Files[0]) || !OpenScanFile(Line.Files[1])) return false;
    gIsCurves = gIsValue = gIsScore = gIsInd = gIsSound = gIsGrid = true;
    const std::string Name = Line.Text("--panel", "rower");
    const auto* Panel = std::ranges::find(Panels, Name, &PanelKind::Name);
    TabText Table(Panel->Heads);
    return Panel->Play(Line, Table) && SaveText(Line.Files[2], Table.Text());
}

std::string LiveObjection(const Args& Line)
{
    for (const char* Name : {"--targets", "--average", "--separate"})
        if (Line.Has(Name) && Line.Text("--panel", "rower") != CoachName)
            return std::string(Name) + " belongs to --panel " + CoachName;
    return "";
}
