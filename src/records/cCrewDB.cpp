// Reading, making, filling and writing the rowers' database.
#include "records/cCrewDB.h"

#include "base/mSafeSave.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "core/mTextRows.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "records/mGridKinds.h"

#include <algorithm>
#include <filesystem>

namespace {
constexpr const char* CantOpenDB = "Can't open Rower's Database file: ";
constexpr std::string_view Keyword = "Crew";
constexpr std::size_t PlaceColumns = 2; // seat and side
constexpr int Name = 2;

bool Failed(const std::string& Reason = "")
{
    return FileFailed(CantOpenDB, gRowersDBFN, TitleError, Reason);
}
} // namespace

bool cCrewDB::Read()
{
    if (gRowersDBFN.empty() && !AskForFile()) return false;
    std::error_code Error;
    if (!std::filesystem::exists(gRowersDBFN, Error) && !Make()) return false;
    const auto Bytes = ReadWhole(gRowersDBFN);
    if (!Bytes) return Failed();
    return Parse(*Bytes) || Failed("its first line is not \"Crew\"");
}

bool cCrewDB::AskForFile() const
{
    if (!AskYesNo("No rowers' database is set up. Choose its file, or name a new one?", TitleInformation)) return false;
    const std::string Path = ExecComDlg("Rowers' Database", "txt", eFileMode::Out, gBaseFolder);
    if (Path.empty()) return false;
    gRowersDBFN = Path;
    SaveSetting("gRowersDBFN");
    return true;
}

bool cCrewDB::Make() const
{
    if (!AskYesNo(CantOpenDB + gRowersDBFN + "\n\nThere is no such file. Make an empty database of that name?",
                  TitleWarning))
        return false;
    std::string Text;
    AppendRows<CrewRow>(Text, Keyword, CrewFields(), {});
    return SaveWhole(gRowersDBFN, Text) || Failed();
}

bool cCrewDB::Parse(const std::string& Bytes)
{
    const std::string Text = DecodeText(Bytes, Encoding, TextPage());
    LineReader Lines(Text);
    std::string_view Line;
    if (!Lines.Take(Line) || Line != Keyword) return false;
    ReadCrewRows(Lines, Table);
    IsRead = true;
    HasChanges = false;
    return true;
}

int cCrewDB::Export(const cGrid& Crew)
{
    int Taken = 0;
    for (const GridRow& Row : Crew.Rows()) {
        const std::string& Rower = Row.Cells[Name];
        if (Rower.empty()) continue;
        const auto Found =
            std::find_if(Table.begin(), Table.end(), [&](const CrewRow& Each) { return Each.Name == Rower; });
        if (Found != Table.end() &&
            !AskYesNo("The name " + Rower + " already exists in Database. Rewrite it?", TitleWarning))
            continue;
        (Found != Table.end() ? *Found : Table.Grow()) = CrewFromTexts(Row.Cells);
        HasChanges = true;
        ++Taken;
    }
    return Taken;
}

GridRow cCrewDB::Rower(int Index, const GridRow& Place) const
{
    GridRow Row{CrewTexts(Table[Index]), Place.Origin};
    std::copy_n(Place.Cells.begin(), PlaceColumns, Row.Cells.begin());
    return Row;
}

bool cCrewDB::Write()
{
    if (!HasChanges) return true;
    std::string Text;
    AppendRows(Text, Keyword, CrewFields(), Table);
    if (!BackupFile(gRowersDBFN)) return false;
    WholeFile New(gRowersDBFN);
    New.Append(EncodeText(Text, Encoding, TextPage()));
    if (!New.Commit()) return Failed(New.Failure());
    HasChanges = false;
    return true;
}
