// Rows of sample values, as long as the sample's description says.
#include "files/mTextSamples.h"

#include "base/mNumText.h"

#include <unordered_map>

namespace {
// Fields of a row ahead of its values.
constexpr std::size_t HeadSize = 4;

// What each sample's description says of the length of its rows; of an identifier that stands twice the first counts.
class SampleCounts
{
public:
    explicit SampleCounts(const DataFile& File)
    {
        for (const DescRow& Row : File.Desc)
            if (!Row.SampleID.empty()) Counts.emplace(Row.SampleID, Row.DataCount);
    }

    // Highest index of the values of a sample, -1 when the sample is unknown.
    int Of(std::string_view SampleID) const
    {
        const auto Found = Counts.find(SampleID);
        return Found == Counts.end() ? -1 : Found->second;
    }

private:
    std::unordered_map<std::string_view, int> Counts;
};

// Whether a line has a field for each value of its sample.
bool IsComplete(const std::vector<std::string_view>& Fields, int Count)
{
    return Count >= 0 && Fields.size() >= HeadSize + static_cast<std::size_t>(Count) + 1;
}

void FillRow(DataRow& Row, const std::string& SessID, std::span<const std::string_view> Fields, int Count)
{
    SetFields(Row, DataFields(), Fields);
    Row.SessID = SessID;
    Row.Values.reserve(static_cast<std::size_t>(Count) + 1);
    for (const std::string_view Value : Fields.subspan(HeadSize, static_cast<std::size_t>(Count) + 1))
        Row.Values.push_back(Val(Value));
}
} // namespace

int ReadSampleRows(LineReader& Lines, const DataFile& File, const std::string& SessID, RowArray<DataRow>& Rows)
{
    const SampleCounts Counts(File);
    LineFields Cells;
    int Dropped = 0;
    Rows.Clear();
    for (std::string_view Line; Lines.TakeRow(Line);) {
        Cells.Cut(Line);
        if (!Cells.Open.empty()) Cells.Closed.push_back(Cells.Open);
        const int Count = Cells.Closed.empty() ? -1 : Counts.Of(Cells.Closed.front());
        if (IsComplete(Cells.Closed, Count))
            FillRow(Rows.Grow(), SessID, Cells.Closed, Count);
        else
            ++Dropped;
    }
    return Dropped;
}

void AppendSampleRows(std::string& Text, std::string_view Keyword, const DataFile& File, const RowArray<DataRow>& Rows)
{
    const SampleCounts Counts(File);
    Text.append(Keyword).append("\r\n");
    for (const DataRow& Row : Rows) {
        const int Count = Counts.Of(Row.SampleID);
        if (Count < 1) continue;
        AppendFields(Text, Row, DataFields());
        // A row that is too short would be dropped at the next reading.
        for (std::size_t i = 0; i <= static_cast<std::size_t>(Count); ++i) {
            AppendSig6(Text, i < Row.Values.size() ? Row.Values[i] : 0);
            Text += '\t';
        }
        Text += "\r\n";
    }
    Text += "End\r\n";
}
