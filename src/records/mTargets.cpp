// The two files of targets, and the choice of the row that fits the session.
#include "records/mTargets.h"

#include "base/mCodePage.h"
#include "base/mError.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <utility>

TargetRow gTarget;
TargetTable gTargets;
std::vector<CurveRow> gCurves;

namespace {
constexpr const char* TargetsName = "Targets.ini";
constexpr const char* CurvesName = "Curves.ini";
constexpr const char* TitleTargets = "Warninng";
constexpr std::string_view TargetsMark = "Targets";
constexpr std::string_view CurvesMark = "Curves";
constexpr std::string_view EndMark = "End";

using Cells = std::vector<std::string>;

Cells SplitTabs(std::string_view Line)
{
    Cells Row;
    for (;;) {
        const auto Tab = Line.find('\t');
        Row.emplace_back(Line.substr(0, Tab));
        if (Tab == std::string_view::npos) return Row;
        Line.remove_prefix(Tab + 1);
    }
}

// The lines of a table between its first line and its end, split into cells; none when the first line is another one.
std::vector<Cells> TableLines(std::string_view Text, std::string_view Mark)
{
    std::vector<Cells> Lines;
    if (!Text.starts_with(Mark)) return Lines;
    for (auto Break = Text.find('\n'); Break != std::string_view::npos; Break = Text.find('\n')) {
        Text.remove_prefix(Break + 1);
        std::string_view Line = Text.substr(0, Text.find('\n'));
        if (Line.ends_with('\r')) Line.remove_suffix(1);
        if (Text.empty() || Line.starts_with(EndMark)) break;
        Lines.push_back(SplitTabs(Line));
    }
    return Lines;
}

std::optional<std::vector<Cells>> ReadTable(const std::string& Path, std::string_view Mark, TextEncoding& Encoding)
{
    const auto Bytes = ReadWhole(Path);
    if (!Bytes) return {};
    return TableLines(DecodeText(*Bytes, Encoding, TextPage()), Mark);
}

TargetRow TargetFromCells(const Cells& Row)
{
    TargetRow Target;
    for (std::size_t i = 0; i < Row.size(); ++i) {
        if (i < Target.Fields.size())
            Target.Fields[i] = Row[i];
        else
            Target.Values.push_back(Val(Row[i]));
    }
    return Target;
}

Cells CellsOf(const TargetRow& Target)
{
    Cells Row(Target.Fields.begin(), Target.Fields.end());
    for (const double Value : Target.Values)
        Row.push_back(FormatNum(Value, "0.00"));
    return Row;
}

void AppendLine(std::string& Text, const Cells& Row)
{
    for (std::size_t i = 0; i < Row.size(); ++i)
        Text.append(i == 0 ? "" : "\t").append(Row[i]);
    Text += "\r\n";
}

std::string Lower(std::string Text)
{
    for (char& C : Text)
        C = static_cast<char>(std::tolower(static_cast<unsigned char>(C)));
    return Text;
}

bool Matches(const TargetRow& Row)
{
    const auto& [ID, Group, Sex, Weight, Boats, Age] = Row.Fields;
    return Sex == gFile.Sex && Weight == gFile.Category && Age == gFile.AgeGroup &&
           Lower(Boats).find(Lower(gFile.BoatType)) != std::string::npos;
}

// Index of the row that fits the session, -1 when none does. The table's last row is a pattern for new rows and is
// never chosen.
int FindTarget(const std::vector<TargetRow>& Rows)
{
    for (int i = static_cast<int>(Rows.size()) - 2; i >= 0; --i)
        if (Matches(At(Rows, i))) return i;
    return -1;
}

bool ChooseTarget()
{
    const int Found = FindTarget(gTargets.Rows);
    if (Found < 0) return false;
    gTarget = At(gTargets.Rows, Found);
    gTarget.Fields[4] = gFile.BoatType;
    return true;
}

std::vector<TargetRow> TargetsFromGrid(const cGrid& Grid)
{
    std::vector<TargetRow> Rows;
    Rows.reserve(static_cast<std::size_t>(Grid.RowCount()));
    for (int Row = 0; Row < Grid.RowCount(); ++Row)
        Rows.push_back(TargetFromCells(Grid.Row(Row)));
    return Rows;
}
bool ReadTargets(const std::string& Path)
{
    TargetTable Table;
    const auto Lines = ReadTable(Path, TargetsMark, Table.Encoding);
    if (!Lines) return FileFailed(CantOpen, Path, TitleError);
    if (!Lines->empty()) Table.Heads = Lines->front();
    for (std::size_t i = 1; i < Lines->size(); ++i)
        Table.Rows.push_back(TargetFromCells((*Lines)[i]));
    gTargets = std::move(Table);
    return true;
}

void ReportNoTarget()
{
    MsgBox("No Targets were found for the category " + gFile.Sex + gFile.Category + gFile.BoatType + gFile.AgeGroup,
           TitleTargets);
}
} // namespace

void InitTargets()
{
    LoadSetting("gIsTargVals");
    LoadSetting("gIsTargCurves");
    if (gIsTargVals >= 1 && !(LoadTargets() && ChooseTarget())) {
        ReportNoTarget();
        gIsTargVals = 0;
        // The settings get the switch of the curves: with curves on, the targets are searched again next time.
        gHost.Settings->SaveSetting("Models", "gIsTargVals", FormatNum(gIsTargCurves, "0"));
    }
    if (gIsTargCurves > 0 && !LoadCurves()) {
        MsgBox("No Curves were loaded", TitleTargets);
        gIsTargCurves = 0;
        SaveSetting("gIsTargCurves");
    }
}

bool UseTargets(const std::string& Path)
{
    if (!ReadTargets(Path)) return false;
    gIsTargVals = ChooseTarget() ? 1 : 0;
    if (gIsTargVals == 0) ReportNoTarget();
    return true;
}

bool LoadTargets()
{
    return ReadTargets(gAppDir + TargetsName);
}

bool SaveTargets()
{
    std::string Text(TargetsMark);
    Text += "\r\n";
    AppendLine(Text, gTargets.Heads);
    for (const TargetRow& Row : gTargets.Rows)
        AppendLine(Text, CellsOf(Row));
    Text.append(EndMark).append("\r\n");
    const std::string Path = gAppDir + TargetsName;
    return SaveWhole(Path, EncodeText(Text, gTargets.Encoding, TextPage())) || FileFailed(CantOpen, Path, TitleError);
}

bool LoadCurves()
{
    TextEncoding Encoding;
    const auto Lines = ReadTable(gAppDir + CurvesName, CurvesMark, Encoding);
    if (!Lines) return FileFailed(CantOpen, gAppDir + CurvesName, TitleError);
    gCurves.clear();
    for (const Cells& Row : *Lines) {
        CurveRow Curve{Row.front(), {}};
        std::transform(Row.begin() + 1, Row.end(), std::back_inserter(Curve.Values), Val);
        gCurves.push_back(std::move(Curve));
    }
    return true;
}

cGrid TargetsToGrid()
{
    cGrid Grid(gTargets.Heads);
    for (const TargetRow& Row : gTargets.Rows)
        Grid.Append(CellsOf(Row));
    Grid.SetCurrent(0);
    return Grid;
}

std::string TargetCell(int Column, const std::string& Typed)
{
    std::string Text = Typed;
    if (Column >= TargetRow::FieldCnt) {
        std::replace(Text.begin(), Text.end(), ',', '.');
        return FormatNum(Val(Text), "0.00");
    }
    std::replace_if(
        Text.begin(), Text.end(), [](char C) { return C == '\t' || C == '\r' || C == '\n'; }, ' ');
    return Text;
}

std::string TargetChoice(const cGrid& Grid)
{
    if (gCurFile.empty()) return "No session is open.";
    const std::string Category = gFile.Sex + " " + gFile.Category + " " + gFile.BoatType + " " + gFile.AgeGroup;
    const auto Rows = TargetsFromGrid(Grid);
    const int Found = FindTarget(Rows);
    if (Found < 0) return "No row fits the open session (" + Category + ").";
    return "The open session (" + Category + ") takes row " + FormatNum(Found + 1, "0") + ", " +
           At(Rows, Found).Fields[1] + ".";
}

bool StoreTargets(const cGrid& Grid)
{
    std::vector<TargetRow> Rows = TargetsFromGrid(Grid);
    for (std::size_t i = 0; i < Rows.size(); ++i)
        if (Rows[i].Fields[0].starts_with(EndMark)) {
            MsgBox("Row " + FormatNum(static_cast<double>(i + 1), "0") + ": the identifier \"" + Rows[i].Fields[0] +
                       "\" would end the table, as the file's last line does. Choose another one.",
                   TitleWarning);
            return false;
        }
    std::swap(gTargets.Rows, Rows);
    if (BackupFile(gAppDir + TargetsName) && SaveTargets()) return true;
    std::swap(gTargets.Rows, Rows);
    return false;
}
