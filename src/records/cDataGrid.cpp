// Filling, storing and saving; rows from elsewhere as steps.
#include "records/cDataGrid.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "records/mAntro.h"
#include "records/mGridStore.h"

#include <cctype>
#include <filesystem>
#include <set>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {
bool IsAntro(const GridKind& Kind)
{
    return std::string(Kind.Name) == "Antro";
}

// Columns of the crew, and where their values come from.
constexpr std::pair<const char*, float AntroRow::*> Measured[] = {
    {"Height (m)", &AntroRow::Height},
    {"Weight (kg)", &AntroRow::Weight},
    {"Foot (mm)", &AntroRow::Foot},
    {"Shank (mm)", &AntroRow::Shank},
    {"Thigh (mm)", &AntroRow::Thigh},
    {"Trunk (mm)", &AntroRow::Trunk},
    {"Trunk Flex(mm)", &AntroRow::TrunkBend},
    {"Head (mm)", &AntroRow::Head},
    {"Upper Arm (mm)", &AntroRow::UpArm},
    {"Fore Arm (mm)", &AntroRow::ForeArm},
    {"Wrist (mm)", &AntroRow::Wrist},
    {"Shoulders Width (mm)", &AntroRow::ShouldW},
    {"Ankle Flexion (mm)", &AntroRow::AnkleFlex},
    {"Ankle Extension (mm)", &AntroRow::AnkleExt},
    {"Hips to seat (mm)", &AntroRow::HipSeat},
};

// Why the file at Path, which could not be read, is none to be read.
std::string WhyUnread(const std::string& Path)
{
    std::error_code Error;
    static_cast<void>(std::filesystem::file_size(Path, Error)); // fails for a folder, too
    if (Error) return SystemReason(Error.value());
    return access(Path.c_str(), R_OK) == 0 ? "it is too large" : "you have no permission to read it";
}
} // namespace

cDataGrid::cDataGrid(const GridKind& InitKind) : Kind(InitKind) {}

bool cDataGrid::Load()
{
    if (IsAntro(Kind) && !LoadAntro()) return false;
    Storing = Kind.Load(gFile, Grid);
    Loaded = Present = Grid.Rows();
    return true;
}

bool cDataGrid::IsStale() const
{
    cGrid Now;
    Kind.Load(gFile, Now);
    return !IsSameTable(Now.Rows(), Present);
}

bool cDataGrid::Store(const std::function<bool()>& Writing) const
{
    return StoreGrid(Kind, Grid, Loaded, Storing, Writing);
}

bool cDataGrid::Write()
{
    if (IsAntro(Kind)) return SaveAntro();
    return WriteSession();
}

bool cDataGrid::Save()
{
    if (IsStale() && !AskYesNo("The table was changed elsewhere since this window was opened. Replace it with what is "
                               "shown here?",
                               TitleWarning))
        return false;
    if (!Store([this] { return Write(); })) return false;
    TakeStored();
    return Crew.Write();
}

// The session has the grid's rows. Of several copies of a row the first is the one that it had.
void cDataGrid::TakeStored()
{
    Grid.SetSaved();
    cGrid Now;
    Kind.Load(gFile, Now);
    Present = Now.Rows();
    for (auto Row = Grid.Rows().rbegin(); Row != Grid.Rows().rend(); ++Row)
        if (Row->Origin > 0) At(Loaded, Row->Origin - 1).Cells = Row->Cells;
}

bool cDataGrid::SaveAs(const std::string& Path)
{
    const std::string Former = gCurFile;
    const bool IsDone = Store([&] {
        SetCurFile(Path);
        SetSessID(Path, gFile);
        return WriteDataFile(Path, gFile, SectionFilter::Non);
    });
    if (!IsDone) SetCurFile(Former);
    if (IsDone) TakeStored();
    return IsDone;
}

std::optional<GridStep> cDataGrid::Import(const std::string& Path,
                                          const std::function<bool(const std::string& Question)>& IsEmptyWanted) const
{
    if (!IsCsvName(Path)) {
        auto Rows = RowsOfSession(Kind, Path, IsEmptyWanted);
        if (!Rows) return {};
        return ReplaceRows(Grid, std::move(*Rows));
    }
    const auto Bytes = ReadWhole(Path);
    if (!Bytes) {
        FileFailed(CantOpen, Path, TitleWarning, WhyUnread(Path));
        return {};
    }
    ReadTable Read = RowsFromCsv(Grid, *Bytes);
    if (!Read.Reason.empty()) {
        MsgBox(Read.Reason + ".\nNothing was read from the file: " + Path, TitleWarning);
        return {};
    }
    if (!Read.Note.empty()) MsgBox(Read.Note, TitleInformation);
    return ReplaceRows(Grid, std::move(Read.Rows));
}

std::optional<GridStep> cDataGrid::ReadIDs(const std::string& Path, int& Taken) const
{
    DataFile Other;
    std::set<std::string> Sections;
    if (!ReadOtherFile(Path, Other, Sections)) return {};
    if (!Sections.contains("Calibr")) {
        FileFailed("There is no table Calibr in file: ", Path, TitleWarning);
        return {};
    }
    return ::ReadIDs(Grid, Other.Calibr, Taken);
}

std::string cDataGrid::Remark(int Row, int Column)
{
    if (SameVersion != Grid.Version()) {
        FirstSame.assign(Grid.Columns().size(), {});
        for (int i = 0; i < Grid.ColumnCount(); ++i)
            if (At(Grid.Columns(), i).IsKey) At(FirstSame, i) = FirstWithSame(Grid, i);
        SameVersion = Grid.Version();
    }
    const std::vector<int>& Same = At(FirstSame, Column);
    if (Same.empty() || At(Same, Row) == Row) return {};
    return "Row " + FormatNum(At(Same, Row) + 1, "0") + " has the same: what looks for it finds that one.";
}

bool cDataGrid::Export(const std::string& Path) const
{
    WholeFile New(Path);
    New.Append(GridToCsv(Grid));
    return New.Commit() || FileFailed(CantWrite, Path, TitleWarning, New.Failure());
}

bool IsCsvName(const std::string& Path)
{
    std::string Extension = std::filesystem::path(Path).extension().string();
    for (char& C : Extension)
        C = static_cast<char>(std::tolower(static_cast<unsigned char>(C)));
    return Extension == ".csv";
}

GridEdit TakeNewestAntro(const cGrid& Crew, const std::vector<int>& Rows)
{
    std::vector<CellChange> Changes;
    std::string Missing;
    for (const int Row : Rows) {
        const std::string RowerID = Crew.Cell(Row, Crew.FindColumn("Rower ID"));
        const AntroRow* Newest = RowerID.empty() ? nullptr : NewestAntro(RowerID);
        if (!Newest) {
            Missing += (Missing.empty() ? "row " : ", row ") + FormatNum(Row + 1, "0") + " (" +
                       (RowerID.empty() ? "no Rower ID" : RowerID) + ")";
            continue;
        }
        for (const auto& [Head, Value] : Measured)
            if (Newest->*Value != 0) Changes.push_back({Row, Crew.FindColumn(Head), FormatShortest(Newest->*Value)});
    }
    return {ChangeCells(Crew, Changes), Missing.empty() ? Missing : "No measurements: " + Missing};
}
