// Commands on derived variables: derive, live.
#include "batch/mCommands.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "files/mBinIO.h"
#include "live/catch/cCatch.h"
#include "live/ergo/cErg.h"
#include "live/rower/cRower.h"
#include "platform/mHost.h"
#include "platform/plain/sSurface.h"
#include "views/play/cData04play.h"
#include "views/report/cData03report.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace {
constexpr int Digits = 9;

// A table of texts, cells separated by tabs.
class TabText
{
public:
    explicit TabText(const char* Heads) : Whole(Heads) { Whole += '\n'; }

    TabText& Cell(const std::string& Words)
    {
        if (!IsLineStart) Whole += '\t';
        IsLineStart = false;
        Whole += Words;
        return *this;
    }
    TabText& Cell(double X) { return Cell(FormatGeneral(X, Digits)); }
    void EndLine()
    {
        Whole += '\n';
        IsLineStart = true;
    }
    const std::string& Text() const { return Whole; }

private:
    std::string Whole;
    bool IsLineStart = true;
};

// Runs the work on a row. A row that cannot be computed is reported and left out.
template <class Work>
void ForRow(const ViewRow& View, int Row, const Work& Do)
{
    Guard("Row " + FormatNum(Row, "0") + " (" + View.ID + ")", [&] {
        Do();
        return true;
    });
}

void DeriveReport(TabText& Table)
{
    for (int Row = 1; Row <= gFile.View3.UBound(); ++Row)
        ForRow(gFile.View3[Row], Row, [&] {
            cData03report Plot;
            Plot.InitViewID(Row);
            const std::string& ID = gFile.View3[Row].ID;
            for (std::size_t k = 0; k < Plot.Xs().size(); ++k) {
                Table.Cell(Row).Cell(ID).Cell("P").Cell(static_cast<double>(k));
                Table.Cell(Plot.Xs()[k]).Cell(Plot.Ys()[k]).EndLine();
            }
            if (!Plot.Visible()) return;
            for (const RowValue& Each : Plot.GetFuncs())
                Table.Cell(Row).Cell(ID).Cell("F").Cell(Each.Key).Cell("").Cell(Each.Value).EndLine();
        });
}

void DerivePlay(TabText& Table, int Sample)
{
    for (int Row = 1; Row <= gFile.View4.UBound(); ++Row)
        ForRow(gFile.View4[Row], Row, [&] {
            cData04play Plot;
            Plot.InitViewID(Row, Sample);
            for (std::size_t k = 0; k < Plot.Ys().size(); ++k) {
                const double Point = static_cast<double>(k);
                Table.Cell(Row).Cell(gFile.View4[Row].ID).Cell("P").Cell(Point);
                Table.Cell(Point + 0.5).Cell(Plot.Ys()[k]).EndLine();
            }
        });
}

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

bool PlayRower(const std::string& Path, TabText& Table)
{
    sSurface Screen(1000, 600);
    cRower Panel(Screen);
    Panel.Load();
    Panel.InitMode();
    Panel.Resize();
    return PlayThrough(Path, Panel, [&](int Frame) {
        if (Panel.NewStroke()) WriteStroke(Table, Frame, Panel);
    });
}

bool PlayCatch(const std::string& Path, TabText& Table)
{
    sSurface Screen(1000, 600);
    cCatch Panel(Screen);
    Panel.Load();
    cCatch::InitMode();
    Panel.Resize();
    return PlayThrough(Path, Panel, [&](int Frame) { WriteCatch(Table, Frame, Panel); });
}

bool PlayErg(const std::string& Path, TabText& Table)
{
    sSurface Screen(1000, 600);
    cErg Panel(Screen);
    Panel.Load();
    cErg::InitMode();
    Panel.Resize();
    return PlayThrough(Path, Panel, [&](int Frame) { WriteErg(Table, Frame, Panel); });
}

// A panel that can be played through, with the heads of its table.
struct PanelKind
{
    std::string_view Name;
    const char* Heads;
    bool (*Play)(const std::string& Path, TabText& Table);
};
constexpr PanelKind Panels[] = {{"rower", "Frame\tTime\tStroke\tCycle\tRate\tRateAver\tRow\tID\tKey\tValue", PlayRower},
                                {"catch", "Frame\tTime\tKind\tKey\tValue\tColour\tLeft", PlayCatch},
                                {"ergo", "Frame\tTime\tKind\tKey\tValue", PlayErg}};
} // namespace

bool DoDerive(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    const int Sample = FindDesc(gFile, Line.Files[1], DescKey::TestID);
    if (Sample < 1) {
        MsgBox("There is no sample " + Line.Files[1] + " in file: " + Line.Files[0], TitleError);
        return false;
    }
    TabText Table("Row\tID\tKind\tKey\tX\tY");
    if (Line.Text("--view", "3") == "3") {
        LoadSamplePattern(gFile.Desc[Sample]);
        DeriveReport(Table);
    } else {
        DerivePlay(Table, Sample);
    }
    return SaveText(Line.Files[2], Table.Text());
}

bool DoLive(const Args& Line)
{
    if (!LoadSession(Line.Files[0]) || !OpenScanFile(Line.Files[1])) return false;
    gIsCurves = gIsValue = gIsScore = gIsInd = gIsSound = gIsGrid = true;
    const std::string Name = Line.Text("--panel", "rower");
    const auto* Panel = std::ranges::find(Panels, Name, &PanelKind::Name);
    TabText Table(Panel->Heads);
    return Panel->Play(Line.Files[1], Table) && SaveText(Line.Files[2], Table.Text());
}
