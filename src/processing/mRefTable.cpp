// Reference tables: their files, and values between and beyond their rows.
#include "processing/mRefTable.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "platform/mHost.h"
#include "processing/mProcFuncs.h"
#include "processing/mRefZero.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>

std::vector<RefTable> gRefTabs(1);
int16_t gRefCnt = 0;

namespace {
// Rows at an end of a table that carry its extrapolation.
constexpr int EndRows = 7;

// Takes the text up to a separator off the front of Text.
std::string_view TakeUpTo(std::string_view& Text, char Separator)
{
    const std::size_t End = std::min(Text.find(Separator), Text.size());
    const std::string_view Part = Text.substr(0, End);
    Text.remove_prefix(std::min(End + 1, Text.size()));
    return Part;
}

// The head line: the number of the last row and the name. False when there is no number.
bool ReadHead(std::string_view Line, RefTable& Table)
{
    const auto Last = LeadingNumber(TakeUpTo(Line, '\t'));
    if (!Last) return false;
    Table.Cnt = static_cast<int16_t>(RoundHalfEven(std::clamp<double>(*Last, 0, RefTable::MaxRow)));
    std::string_view Name = TakeUpTo(Line, '\t');
    if (Name.ends_with('\r')) Name.remove_suffix(1);
    Table.Name = Name;
    return true;
}

// A line of the table into row Index; its own row number is ignored. False when a number is missing.
bool ReadRow(std::string_view Line, RefTable& Table, std::size_t Index)
{
    TakeUpTo(Line, '\t');
    const auto N = LeadingNumber(TakeUpTo(Line, '\t'));
    const auto X = LeadingNumber(TakeUpTo(Line, '\t'));
    const auto Y = LeadingNumber(TakeUpTo(Line, '\t'));
    if (!N || !X || !Y) return false;
    Table.N[Index] = *N;
    Table.X[Index] = *X;
    Table.Y[Index] = *Y;
    return true;
}

// False when there is no table in Text (reported to the user).
bool TakeTable(const std::optional<std::string>& Text, const std::string& Path, RefTable& Table)
{
    RefTable Read;
    if (!Text || !ParseRefTable(*Text, Read)) return FileFailed("Can't open reference table: ", Path, TitleError);
    Table = std::move(Read);
    return true;
}
} // namespace

RefTableSet ReadRefTables(RowArray<CalibrRow>& Rows, const std::string& Folder, const ComingRefFile* Coming)
{
    RefTableSet Read;
    for (CalibrRow& Row : Rows) {
        if (Row.ProcMode != ApproxRefTable) continue;
        Read.Cnt = ToInt16(Read.Cnt + 1);
        // A table that cannot be read keeps its number, so that no channel comes to use the table of another.
        RefTable& Table = Read.Tables.emplace_back();
        const std::string Path = Folder + Row.SensorID + ".ref";
        const bool IsComing = Coming && Coming->Path == Path;
        if (!TakeTable(IsComing ? Coming->Text : ReadWhole(Path), Path, Table)) continue;
        Row.Threshold = Read.Cnt;
        Row.RefTabFN = Row.SensorID;
        if (Row.Log0 != 0) ShiftRefTable(Row, Table);
    }
    return Read;
}

void Publish(RefTableSet&& Read)
{
    gRefTabs = std::move(Read.Tables);
    gRefCnt = Read.Cnt;
}

void LoadRefTables(const ComingRefFile* Coming)
{
    RowArray<CalibrRow> Rows = gFile.Calibr;
    Publish(ReadRefTables(Rows, gCurDir, Coming));
    std::swap_ranges(Rows.begin(), Rows.end(), gFile.Calibr.begin()); // rows keep their places in memory
}

bool ParseRefTable(std::string_view Text, RefTable& Table)
{
    TakeUpTo(Text, '\n');
    if (!ReadHead(TakeUpTo(Text, '\n'), Table)) return false;
    TakeUpTo(Text, '\n');
    std::size_t Rows = 0;
    while (!Text.empty() && Rows <= RefTable::MaxRow)
        if (ReadRow(TakeUpTo(Text, '\n'), Table, Rows)) ++Rows;
    if (Rows == 0) return false;
    Table.Cnt = std::min(Table.Cnt, static_cast<int16_t>(Rows - 1));
    return true;
}

int16_t ReadRefTable(const std::string& Path, RefTable& Table)
{
    return TakeTable(ReadWhole(Path), Path, Table) ? gRefCnt : int16_t{0};
}

std::string RefTableText(const RefTable& Table)
{
    std::string Text =
        "Reference Table\r\n" + FormatNum(Table.Cnt, "00") + "\t" + Table.Name + "\t\r\nN\tCnt\tX\tY\r\n";
    for (int Row = 0; Row <= Table.Cnt; ++Row) {
        const auto i = static_cast<std::size_t>(Row);
        Text += FormatNum(Row, "0") + "\t" + FormatNum(Table.N[i], "0") + "\t" + FormatNum(Table.X[i], "0.000") + "\t" +
                FormatNum(Table.Y[i], "0.000000") + "\r\n";
    }
    return Text;
}

bool WriteRefTable(const std::string& Path, const RefTable& Table)
{
    return SaveWhole(Path, RefTableText(Table)) || FileFailed(CantOpen, Path, TitleError);
}

double RefLookup(int Tab, double V)
{
    return Tab < 1 || Tab > gRefCnt ? 0 : RefLookup(gRefTabs[static_cast<std::size_t>(Tab)], V);
}

double RefLookup(const RefTable& Table, double V)
{
    const auto Last = static_cast<std::size_t>(Table.Cnt);
    const auto [Lo, Hi] = std::minmax(Table.X[0], Table.X[Last]);
    if (V < Lo || V > Hi) return RefExtrapolate(Table, V);
    for (std::size_t i = 1; i <= Last; ++i) {
        const double P = Table.X[i - 1];
        const double Q = Table.X[i];
        if ((P <= V && V < Q) || (Q <= V && V < P))
            return (V - P) / (Q - P) * (Table.Y[i] - Table.Y[i - 1]) + Table.Y[i - 1];
    }
    return 0;
}

double RefExtrapolate(const RefTable& Table, double V)
{
    if (Table.Cnt + 1 < EndRows) return 0;
    const auto Last = static_cast<std::size_t>(Table.Cnt);
    const bool AtLowEnd = Table.X[0] <= Table.X[Last] ? V < Table.X[0] : V > Table.X[0];
    const std::size_t First = AtLowEnd ? 0 : Last + 1 - EndRows;
    return PolyFitAt(std::span(Table.X).subspan(First, EndRows), std::span(Table.Y).subspan(First, EndRows), V);
}
