// Samples that got another name, are gone, or have another length.
#include "records/mSampleRows.h"

#include "base/mError.h"
#include "base/mNumText.h"

#include <utility>

namespace {
constexpr RowArray<DataRow> DataFile::*Tables[] = {&DataFile::Data, &DataFile::STD, &DataFile::Models};

std::string Listed(const std::set<std::string>& Names)
{
    constexpr std::size_t Most = 10;
    std::string Text;
    std::size_t Count = 0;
    for (const std::string& Name : Names) {
        if (Count == Most) return Text + " ...";
        Text += (Count++ == 0 ? "" : ", ") + Name;
    }
    return Text;
}

std::string Counted(std::size_t Count, const std::string& Noun)
{
    return FormatNum(static_cast<double>(Count), "0") + " " + Noun + (Count == 1 ? "" : "s");
}

// The identifiers that rows had when they were loaded and no row has now, each with the identifier of its row.
std::map<std::string, std::string> RenamedSamples(const cGrid& Grid, const std::vector<GridRow>& Loaded,
                                                  const DataFile& File, const std::set<std::string>& Now)
{
    std::map<std::string, std::string> Renamed;
    for (const GridRow& Row : Grid.Rows()) {
        if (Row.Origin < 1) continue;
        const std::string& Former = At(Loaded, Row.Origin - 1).Cells[0];
        if (!Now.contains(Former) && FindDesc(File, Row.Cells[0], DescKey::TestID) < 1)
            Renamed.emplace(Former, Row.Cells[0]);
    }
    return Renamed;
}

void FindResized(const cGrid& Grid, const DataFile& File, SampleFate& Fate)
{
    const int DataCount = Grid.FindColumn("Data Count");
    std::map<std::string, std::size_t> Lengths;
    for (const DataRow& Row : File.Data)
        Lengths[Row.SampleID] = Row.Values.size();
    for (int i = 0; i < Grid.RowCount(); ++i) {
        const GridRow& Row = Grid.Row(i);
        std::string Former = Row.Cells[0];
        for (const auto& [Old, New] : Fate.Renamed)
            if (New == Row.Cells[0]) Former = Old;
        const auto Found = Lengths.find(Former);
        if (Found != Lengths.end() && static_cast<double>(Found->second) != Val(Grid.Cell(i, DataCount)) + 1)
            Fate.Resized.insert(Row.Cells[0]);
    }
}
} // namespace

SampleFate FateOfSamples(const cGrid& Grid, const std::vector<GridRow>& Loaded, const DataFile& File)
{
    SampleFate Fate;
    std::set<std::string> Now;
    for (const GridRow& Row : Grid.Rows())
        Now.insert(Row.Cells[0]);
    Fate.Renamed = RenamedSamples(Grid, Loaded, File, Now);
    for (const DescRow& Row : File.Desc)
        if (!Now.contains(Row.SampleID) && !Fate.Renamed.contains(Row.SampleID)) Fate.Gone.insert(Row.SampleID);
    for (const DataRow& Row : File.Data)
        Fate.Rows += Fate.Gone.contains(Row.SampleID) ? 1 : 0;
    FindResized(Grid, File, Fate);
    return Fate;
}

std::string SampleFate::Question() const
{
    std::string Text;
    if (Rows > 0)
        Text = Counted(Gone.size(), "sample") + " no longer in the table: " + Listed(Gone) + ". The patterns, " +
               Counted(static_cast<std::size_t>(Rows), "row") + " of Data, will be dropped as well. ";
    if (!Resized.empty())
        Text += "Data Count does not fit the patterns of " + Counted(Resized.size(), "sample") + ": " +
                Listed(Resized) + ". Values beyond it will be lost, values that are missing will be 0. ";
    return Text.empty() ? Text : Text + "Store the table?";
}

void SampleFate::Follow(DataFile& File) const
{
    if (Gone.empty() && Renamed.empty()) return;
    for (const auto Table : Tables) {
        RowArray<DataRow> Kept;
        for (DataRow& Row : File.*Table) {
            if (Gone.contains(Row.SampleID)) continue;
            if (const auto Found = Renamed.find(Row.SampleID); Found != Renamed.end()) Row.SampleID = Found->second;
            Kept.Grow() = std::move(Row);
        }
        File.*Table = std::move(Kept);
    }
}
