// Reading of sessions and of comma-separated tables.
#include "records/mGridImport.h"

#include "base/mCodePage.h"
#include "base/mCsv.h"
#include "base/mError.h"
#include "base/mNumText.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <algorithm>
#include <limits>
#include <set>

namespace {
constexpr const char* HowToSave = ": save it as CSV in UTF-8 with commas between the columns";

std::vector<GridRow> WithoutOrigin(std::vector<GridRow> Rows)
{
    for (GridRow& Each : Rows)
        Each.Origin = 0;
    return Rows;
}

// The first letter, which may be several bytes.
std::string_view FirstLetter(std::string_view Text)
{
    std::size_t Length = std::min<std::size_t>(1, Text.size());
    while (Length < Text.size() && (static_cast<unsigned char>(Text[Length]) & 0xC0U) == 0x80)
        ++Length;
    return Text.substr(0, Length);
}

// The cells of a record that belong to the columns of a grid.
class cHeads
{
public:
    // What is wrong with the heads, empty when nothing is.
    std::string Find(const cGrid& Grid, const CsvRecord& Heads)
    {
        Count = Heads.Cells.size();
        for (const GridColumn& Column : Grid.Columns()) {
            const auto& Cells = Heads.Cells;
            const auto Found = std::find(Cells.begin(), Cells.end(), Column.Head);
            if (Found == Cells.end()) return Missing(Heads, Column.Head);
            if (std::find(Found + 1, Cells.end(), Column.Head) != Cells.end())
                return "The column \"" + Column.Head + "\" is there twice";
            Places.push_back(static_cast<std::size_t>(Found - Cells.begin()));
        }
        for (const std::string& Head : Heads.Cells)
            if (Grid.FindColumn(Head) < 0) Unknown += (Unknown.empty() ? "\"" : ", \"") + Head + "\"";
        return {};
    }

    std::size_t Count = 0;           // of cells in a record
    std::vector<std::size_t> Places; // by column
    std::string Unknown;             // heads of no column

private:
    static std::string Missing(const CsvRecord& Heads, const std::string& Head)
    {
        const auto Holds = [&](const char* Separator) {
            return Heads.Cells.size() == 1 && Heads.Cells[0].find(Separator) != std::string::npos;
        };
        if (Holds(";")) return std::string("Its columns are separated by semicolons") + HowToSave;
        if (Holds("\t")) return std::string("Its columns are separated by tabs") + HowToSave;
        return "The column \"" + Head + "\" is missing in its first line";
    }
};

// Takes a record into a row. Gives why it cannot, empty when it can.
std::string TakeRecord(const cGrid& Grid, const cHeads& Heads, const CsvRecord& Record, int Number, GridRow& Row)
{
    const std::string Line = "Line " + FormatNum(Record.Line, "0");
    if (Record.Cells.size() != Heads.Count)
        return Line + " has " + FormatNum(static_cast<double>(Record.Cells.size()), "0") + " cells, the first line " +
               FormatNum(static_cast<double>(Heads.Count), "0");
    for (int i = 0; i < Grid.ColumnCount(); ++i) {
        const GridColumn& Column = At(Grid.Columns(), i);
        std::string Text = Record.Cells[At(Heads.Places, i)];
        if (Column.Kind == eCell::RowNumber) {
            if (Text != FormatNum(Number, "0"))
                return Line + ", " + Column.Head + ": " + FormatNum(Number, "0") + " is expected, not \"" + Text +
                       "\": in another order the rows would be other channels";
            Text.clear();
        } else if (const std::string Reason = Grid.Take(i, Text, eFrom::File); !Reason.empty())
            return Line + ", " + Column.Head + ": " + Reason;
        Row.Cells.push_back(std::move(Text));
    }
    return {};
}

// The text of a file in UTF-8, without its byte order mark; nothing when it is not UTF-8.
std::optional<std::string> Utf8Text(const std::string& Bytes)
{
    constexpr std::string_view Mark = "\xEF\xBB\xBF";
    TextEncoding Encoding{};
    std::string Text = DecodeText(Bytes, Encoding, LegacyPage::Latin);
    if (Encoding == TextEncoding::Legacy || Text.find('\0') != std::string::npos) return {};
    if (Text.starts_with(Mark)) Text.erase(0, Mark.size());
    return Text;
}
} // namespace

std::optional<std::vector<GridRow>> RowsOfSession(const GridKind& Kind, const std::string& Path,
                                                  const std::function<bool(const std::string& Question)>& IsEmptyWanted)
{
    if (IsBesideFile(Kind) || !Kind.Section) {
        MsgBox("Nothing was copied: the table \"" + std::string(Kind.Caption) +
                   "\" cannot be taken from another session.",
               TitleInformation);
        return {};
    }
    DataFile Other;
    std::set<std::string> Sections;
    if (!ReadOtherFile(Path, Other, Sections)) return {};
    if (!Sections.contains(Kind.Section) &&
        !IsEmptyWanted("There is no table " + std::string(Kind.Section) + " in file: " + Path))
        return {};
    cGrid Rows;
    Kind.Load(Other, Rows);
    return WithoutOrigin(Rows.Rows());
}

std::string GridToCsv(const cGrid& Grid)
{
    std::string Text;
    std::vector<std::string> Cells;
    for (const GridColumn& Column : Grid.Columns())
        Cells.push_back(Column.Head);
    AppendCsv(Text, Cells);
    for (int Row = 0; Row < Grid.RowCount(); ++Row) {
        for (int Column = 0; Column < Grid.ColumnCount(); ++Column)
            At(Cells, Column) = Grid.Cell(Row, Column);
        AppendCsv(Text, Cells);
    }
    return Text;
}

ReadTable RowsFromCsv(const cGrid& Grid, const std::string& Bytes)
{
    const auto Text = Utf8Text(Bytes);
    if (!Text) return {.Reason = std::string("It is not text in UTF-8") + HowToSave};
    std::vector<CsvRecord> Records;
    cHeads Heads;
    if (std::string Wrong = ParseCsv(*Text, Records); !Wrong.empty()) return {.Reason = std::move(Wrong)};
    if (Records.empty()) return {.Reason = "It has no line with the names of the columns"};
    if (std::string Wrong = Heads.Find(Grid, Records[0]); !Wrong.empty()) return {.Reason = std::move(Wrong)};
    constexpr auto Most = static_cast<std::size_t>(std::numeric_limits<int16_t>::max());
    if (Records.size() > Most)
        return {.Reason =
                    "It has more rows than a session can number, " + FormatNum(static_cast<double>(Most - 1), "0")};
    ReadTable Read;
    for (std::size_t i = 1; i < Records.size(); ++i) {
        Read.Rows.emplace_back();
        if (std::string Wrong = TakeRecord(Grid, Heads, Records[i], static_cast<int>(i), Read.Rows.back());
            !Wrong.empty())
            return {.Reason = std::move(Wrong)};
    }
    if (!Heads.Unknown.empty()) Read.Note = "Left out, since the table has no such columns: " + Heads.Unknown;
    return Read;
}

GridStep ReadIDs(const cGrid& Grid, const RowArray<CalibrRow>& Other, int& Taken)
{
    const int SensorID = Grid.FindColumn("Sensor ID"), ParamID = Grid.FindColumn("ParamID");
    const int Q0 = Grid.FindColumn("Q0"), Q1 = Grid.FindColumn("Q1");
    std::vector<CellChange> Changes;
    Taken = 0;
    for (int Row = 0; Row < Grid.RowCount(); ++Row) {
        const std::string Sensor = Grid.Cell(Row, SensorID), Param = Grid.Cell(Row, ParamID);
        const CalibrRow* Found = nullptr;
        for (const CalibrRow& Each : Other)
            if (!Sensor.empty() && Each.SensorID == Sensor && FirstLetter(Each.ParamID) == FirstLetter(Param))
                Found = &Each;
        if (!Found) continue;
        ++Taken;
        Changes.push_back({Row, Q0, FormatShortest(Found->Q0)});
        Changes.push_back({Row, Q1, FormatShortest(Found->Q1)});
    }
    return ChangeCells(Grid, Changes);
}
