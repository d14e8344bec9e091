// Oars, lines and colours of the coach's table.
#include "live/coach/cCoach.h"

#include "base/mNumText.h"
#include "core/mSettings.h"
#include "processing/mViewRow.h"
#include "records/mTargets.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {
constexpr double NearPart = 0.03; // of the target, from where a value is near it

// Variables of one scull that carry half of what the targets ask of both.
constexpr int FirstHalved = VarAverForce;
constexpr int LastHalved = VarPower;

// A movement of an oar shorter than this is none of the crew's strokes.
constexpr double LeastStroke = 5; // degrees

// Boats whose oars the panel knows.
constexpr std::array<std::string_view, 3> SweepBoats = {"2-", "4-", "8+"};
constexpr std::array<std::string_view, 3> ScullBoats = {"1x", "2x", "4x"};

bool IsIn(std::string_view BoatType, std::span<const std::string_view> Boats)
{
    return std::ranges::find(Boats, BoatType) != Boats.end();
}
} // namespace

eVerdict TargetColor(double Value, double Target)
{
    const double Low = Target - Target * NearPart;
    const bool IsUp = Target > 0;
    if (IsUp ? Value >= Target : Value <= Target) return eVerdict::Green;
    return (IsUp ? Value >= Low : Value <= Low) ? eVerdict::Blue : eVerdict::Red;
}

void cCoach::Load(bool ShowsAlways)
{
    gDeltaT = gTimeStep;
    Display = mDisplayMode;
    Scull = mScullMode;
    MakeOars();
    ReadTargets(ShowsAlways);
    MakeRows();
    Strokes.Load();
    Starts = {};
    NewStroke = false;
}

void cCoach::InitMode()
{
    gFrameCnt = 0;
}

void cCoach::Unload()
{
    gDeltaT = gTimeStep;
}

void cCoach::MakeOars()
{
    HasSculls = IsIn(gFile.BoatType, ScullBoats);
    const bool IsKnown = HasSculls || IsIn(gFile.BoatType, SweepBoats);
    Oars.clear();
    for (int Seat = 1; IsKnown && Seat <= gFile.Crew.UBound(); ++Seat) {
        const auto Number = static_cast<int16_t>(Seat);
        if (HasSculls) {
            Oars.emplace_back().InitVars(Number, SideRightScull);
            Oars.emplace_back().InitVars(Number, SideLeftScull);
        } else {
            Oars.emplace_back().InitVars(Number, 0);
        }
    }
    Finishes.assign(Oars.size(), {});
}

void cCoach::ReadTargets(bool ShowsAlways)
{
    IsPlain = ShowsAlways;
    HasTargets = gIsTargVals >= 1;
    Heads.clear();
    Wanted.clear();
    Group = "No Targets available";
    if (!HasTargets) return;
    constexpr auto Fields = static_cast<std::size_t>(TargetRow::FieldCnt);
    const auto First = std::min(Fields, gTargets.Heads.size());
    Heads.assign(gTargets.Heads.begin() + static_cast<std::ptrdiff_t>(First), gTargets.Heads.end());
    Wanted = gTarget.Values;
    Group = gTarget.Fields[1];
}

// Each scull alone carries half of the force.
void cCoach::TakeTargets()
{
    Targets = Wanted;
    const bool IsHalved = HasSculls && Scull == ScullSeparate;
    for (int i = FirstHalved; IsHalved && i <= LastHalved && i < static_cast<int>(Targets.size()); ++i)
        Targets[static_cast<std::size_t>(i)] /= 2;
}

void cCoach::MakeRows()
{
    ++TableCnt;
    TakeTargets();
    Columns = HasTargets ? static_cast<int>(Heads.size()) : IsPlain ? static_cast<int>(OarVarCnt) : 0;
    Rows.clear();
    const bool IsSeparate = Scull == ScullSeparate;
    for (std::size_t Oar = 0; Oar < Oars.size(); Oar += HasSculls ? 2 : 1) {
        const int Seat = static_cast<int>(HasSculls ? Oar / 2 : Oar) + 1;
        if (!HasSculls || !IsSeparate) AddRow(Seat, Oar, HasSculls, "");
        if (HasSculls && IsSeparate) AddRow(Seat, Oar, false, " Right");
        if (HasSculls && IsSeparate) AddRow(Seat, Oar + 1, false, " Left");
    }
    Cells.assign(Rows.size() * static_cast<std::size_t>(Columns), {});
    Changed.clear();
    Changed.reserve(Cells.size());
    for (int Row = 0; Row < RowCount(); ++Row)
        for (int Column = 0; Column < Columns; ++Column)
            CellAt({Row, Column}).IsMissing = !Has(Rows[static_cast<std::size_t>(Row)], Column);
}

void cCoach::AddRow(int Seat, std::size_t First, bool IsPair, const char* Side)
{
    const int Colours = static_cast<int>(gRGB.size()) - 1;
    const int32_t Colour = gRGB[static_cast<std::size_t>((Seat - 1) % Colours + 1)];
    const std::string& Name = gFile.Crew[Seat].Name;
    Rows.push_back({(Name.empty() ? "Seat " + FormatNum(Seat, "0") : Name) + Side, PaperInk(Colour), First, IsPair});
}

void cCoach::NewRun()
{
    const double Step = gDeltaT;
    Load(IsPlain);
    if (gFrameCnt > 1) gDeltaT = Step; // measured already
}

void cCoach::TakeSample()
{
    if (Run.IsNewRun()) NewRun();
    Changed.clear();
    NewStroke = Strokes.Take();
    if (NewStroke) Starts.Add(gData[0]);
    for (std::size_t i = 0; i < Oars.size(); ++i) {
        const int32_t Before = Oars[i].StrokeCnt();
        Oars[i].CalcData();
        if (Oars[i].StrokeCnt() != Before && Oars[i].GetLastVal(VarTotal) >= LeastStroke) Finishes[i].Add(gData[0]);
    }
    for (int Row = 0; Row < RowCount(); ++Row)
        if (IsFinished(Rows[static_cast<std::size_t>(Row)])) TakeRow(Row);
}

bool cCoach::IsFinished(const Line& Of) const
{
    return Oars[Of.First].IsFinish() && (!Of.IsPair || Oars[Of.First + 1].IsFinish());
}

void cCoach::TakeRow(int Row)
{
    const Line& Of = Rows[static_cast<std::size_t>(Row)];
    for (int Column = 0; Column < Columns; ++Column) {
        CoachCell& Cell = CellAt({Row, Column});
        const double Value = ValueOf(Of, Column);
        if (Cell.IsMissing || (Cell.HasValue && Cell.Value == Value)) continue;
        Cell.HasValue = true;
        Cell.Value = Value;
        const auto Index = static_cast<std::size_t>(Column);
        if (HasTargets && Index < Targets.size()) Cell.Verdict = TargetColor(Value, Targets[Index]);
        Changed.push_back({Row, Column});
    }
}

// Of two sculls angles are a mean; forces, work and power a sum.
double cCoach::ValueOf(const Line& Of, int Column) const
{
    const auto ValueOfOar = [&](const cOarVars& Oar) {
        return Display == DisplayAverage ? Oar.GetAverVal(Column) : Oar.GetLastVal(Column);
    };
    if (!Of.IsPair) return ValueOfOar(Oars[Of.First]);
    const double Sum = ValueOfOar(Oars[Of.First]) + ValueOfOar(Oars[Of.First + 1]);
    return Column <= VarTotal ? Sum / 2 : Sum;
}

bool cCoach::Has(const Line& Of, int Column) const
{
    return Oars[Of.First].Has(Column) && (!Of.IsPair || Oars[Of.First + 1].Has(Column));
}

void cCoach::SetDisplayMode(int16_t NewMode)
{
    Display = NewMode;
    for (int Row = 0; Row < RowCount(); ++Row) {
        const Line& Of = Rows[static_cast<std::size_t>(Row)];
        if (Columns > 0 && Oars[Of.First].StrokeCnt() > 0 && (!Of.IsPair || Oars[Of.First + 1].StrokeCnt() > 0))
            TakeRow(Row);
    }
}

void cCoach::SetScullMode(int16_t NewMode)
{
    Scull = NewMode;
    MakeRows();
    SetDisplayMode(Display);
}

bool cCoach::IsStale(const Line& Of) const
{
    double Taken = Oars[Of.First].FinishTime();
    if (Of.IsPair) Taken = std::min(Taken, Oars[Of.First + 1].FinishTime());
    return Starts.HasPassed(Taken) ||
           std::ranges::any_of(Finishes, [&](const cStrokeTimes& Other) { return Other.HasPassed(Taken); });
}

bool cCoach::IsClockStale() const
{
    return std::ranges::any_of(Finishes, [&](const cStrokeTimes& Oar) { return Oar.HasPassed(Starts.Newest()); });
}

CoachCell& cCoach::CellAt(CoachPlace Place)
{
    return Cells[static_cast<std::size_t>(Place.Row * Columns + Place.Column)];
}

CoachCell cCoach::Cell(CoachPlace Place) const
{
    CoachCell Shown = Cells[static_cast<std::size_t>(Place.Row * Columns + Place.Column)];
    Shown.IsStale = Shown.HasValue && IsStale(Rows[static_cast<std::size_t>(Place.Row)]);
    return Shown;
}

std::string cCoach::TargetText(int Column) const
{
    const auto Index = static_cast<std::size_t>(Column);
    return HasTargets && Index < Targets.size() ? FormatNum(Targets[Index], "0.0") : "";
}

std::string cCoach::Text(const CoachCell& Cell)
{
    return Cell.HasValue ? FormatNum(Cell.Value, "0.0") : "";
}

std::string cCoach::Meaning(CoachPlace Place) const
{
    const Line& Of = Rows[static_cast<std::size_t>(Place.Row)];
    const CoachCell Shown = Cell(Place);
    if (Shown.IsMissing) {
        const std::string First = Oars[Of.First].Missing(Place.Column);
        return "Empty: the session has " + (First.empty() ? Oars[Of.First + 1].Missing(Place.Column) : First);
    }
    if (!Shown.HasValue) return "No stroke yet";
    if (Shown.IsStale) return "Old: nothing has come for two strokes";
    if (!Shown.Verdict) return "";
    constexpr std::array<const char*, 3> Words = {"reached", "within 3 %", "not reached"};
    return "Target " + TargetText(Place.Column) + ": " + Words[static_cast<std::size_t>(*Shown.Verdict)];
}

std::string cCoach::Note() const
{
    const bool IsKnown = HasSculls || IsIn(gFile.BoatType, SweepBoats);
    if (!IsKnown)
        return "Time and rate only are shown for the boat type " +
               (gFile.BoatType.empty() ? "of this session, which is empty" : "\"" + gFile.BoatType + "\"") + ".";
    if (Oars.empty()) return "Time and rate only are shown: the session has no crew.";
    if (Columns == 0)
        return "No targets are in use, so that no variables are shown. They are switched on in SetUp, Globals.";
    return "";
}
