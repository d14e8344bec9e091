// Rows of sample values, as long as the sample's description says.
#include "files/mTextSamples.h"

#include "core/mNumText.h"

namespace {
// Fields of a row ahead of its values.
constexpr std::size_t HeadSize = 4;

// Highest index of the values of a sample, -1 when the sample is unknown.
int DataCount(const DataFile& File, const std::string& SampleID)
{
    const int Index = FindDesc(File, SampleID, DescKey::TestID);
    return Index < 0 ? -1 : File.Desc[Index].DataCount;
}

// A row of Cells. False when it is to be dropped.
bool FillRow(DataRow& Row, const DataFile& File, const LineFields& Cells)
{
    SetFields<DataRow>(Row, DataFields(), Cells.Closed);
    const int Count = DataCount(File, Row.SampleID);
    if (Count < 0 || Cells.Closed.size() < HeadSize + static_cast<std::size_t>(Count) + 1) return false;
    for (int i = 0; i <= Count; ++i)
        Row.Values.push_back(Val(Cells.Closed[HeadSize + static_cast<std::size_t>(i)]));
    Row.SessID = gSessID;
    return true;
}
} // namespace

void ReadSampleRows(LineReader& Lines, const DataFile& File, RowArray<DataRow>& Rows)
{
    LineFields Cells;
    Rows.Clear();
    for (std::string_view Line; Lines.TakeRow(Line);) {
        Cells.Cut(Line);
        if (!Cells.Open.empty()) Cells.Closed.push_back(Cells.Open);
        DataRow Row;
        if (FillRow(Row, File, Cells)) Rows.Grow() = std::move(Row);
    }
}

void AppendSampleRows(std::string& Text, std::string_view Keyword, const DataFile& File, const RowArray<DataRow>& Rows)
{
    Text.append(Keyword).append("\r\n");
    for (const DataRow& Row : Rows) {
        const int Count = DataCount(File, Row.SampleID);
        if (Count < 1) continue;
        AppendFields(Text, Row, DataFields());
        for (std::size_t i = 0; i <= static_cast<std::size_t>(Count); ++i) {
            AppendSig6(Text, i < Row.Values.size() ? Row.Values[i] : 0);
            Text += '\t';
        }
        Text += "\r\n";
    }
    Text += "End\r\n";
}
