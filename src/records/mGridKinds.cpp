// Columns of each kind, and how its rows are loaded and stored.
#include "records/mGridKinds.h"

#include "core/mFields.h"
#include "records/mAntro.h"
#include "records/mColumnTable.h"
#include "records/mGridColumns.h"

#include <algorithm>
#include <memory>

namespace {
constexpr const char* ViewTips =
    "Mode: 0-X time, 1-X the first parameter. \n"
    "Operation: 0-None, 1-Add, 2-Substract, 3-Multy, 4-Average, 5-Integral, 6-Differential, \n"
    "7-Segm.Speed, 8-Power, 11-XY Anim., 12-XZ Anim., 13-YZ Anim.\n"
    "Functions: Mod., MinX., MaxX., MinY., MaxY.  Aver.Mode=1 for Vertical Angle";

constexpr const char* CalibrTips =
    "Side: 1-Port Sweep, 2-Star Sweep, 3-Port Scull, 4-Star Scull\n"
    "Mode: 0-Normal, 1-Angular=*2Pi*Lever. Visible: 0/1 - Hide/Show in Data View\n"
    "Proc.Mode: 0-Linear, 1-Square one line, 2-Square two lines, 3-Absolute, 4-Ref.Table";

// What the counts and numbers of a session follow from its rows.
template <class Row>
void Renumber(RowArray<Row>& Rows, const DataFile& File)
{
    int16_t Number = 0;
    for (Row& Each : Rows) {
        if constexpr (requires { Each.SessID; }) Each.SessID = File.SessID;
        if constexpr (requires { Each.Chan; }) Each.Chan = ++Number;
    }
}

// A kind whose records of type Row stand in File or beside it.
template <class Row, auto Records, auto Specs, auto Fields>
GridStoring LoadKind(DataFile& File, cGrid& Grid)
{
    const std::span<const ColumnSpec> Columns = Specs();
    const auto Bound = BindColumns<Row>(Columns, Fields());
    std::vector<GridColumn> Made;
    for (std::size_t i = 0; i < Columns.size(); ++i)
        Made.push_back(MakeColumn<Row>(Columns[i], Bound[i].Behind, &Fields()[0]));
    const RowArray<Row> Former = Records(File);
    std::vector<GridRow> Rows;
    for (int Number = 1; Number <= Former.UBound(); ++Number) {
        Rows.push_back({GridTexts(Former[Number], Bound), Number});
        for (std::size_t i = 0; i < Made.size(); ++i)
            if (const std::string& Text = Rows.back().Cells[i];
                Made[i].Most > 0 && CountCharacters(Text) > Made[i].Most)
                Made[i].Held.insert(Text);
    }
    Grid = cGrid(std::move(Made));
    Grid.Fill(std::move(Rows));
    return [Former, Bound](const cGrid& Edited, DataFile& Into) {
        RowArray<Row> New;
        for (const GridRow& Each : Edited.Rows())
            New.Grow() = RecordFromTexts(Each.Cells, Bound, Former[Each.Origin]);
        Renumber(New, Into);
        Records(Into) = std::move(New);
    };
}

template <class Row, RowArray<Row> DataFile::*Table>
RowArray<Row>& Within(DataFile& File)
{
    return File.*Table;
}

template <class Row, RowArray<Row>& Table>
RowArray<Row>& Beside(DataFile&)
{
    return Table;
}

template <RowArray<ViewRow> DataFile::*Table>
constexpr auto LoadView = LoadKind<ViewRow, Within<ViewRow, Table>, ViewColumns, ViewFields>;

constexpr GridKind Kinds[] = {
    {"Calibr", "Calibr", "Calibration Data", CalibrTips, "ParamID",
     LoadKind<CalibrRow, Within<CalibrRow, &DataFile::Calibr>, CalibrColumns, CalibrFields>},
    {"Crew", "Crew", "Crew Data", "", "Name",
     LoadKind<CrewRow, Within<CrewRow, &DataFile::Crew>, CrewColumns, CrewFields>},
    {"Boat", "Boat", "Boat Set-up Data", "", "Side",
     LoadKind<BoatRow, Within<BoatRow, &DataFile::Boat>, BoatColumns, BoatFields>},
    {"Desc", "Desc", "Processed samples descriptors", "A double click on a sample opens its report.", "Sample ID",
     LoadKind<DescRow, Within<DescRow, &DataFile::Desc>, DescColumns, DescFields>},
    {"View1", "View1", "Aquisition Display", ViewTips, "ID", LoadView<&DataFile::View1>},
    {"View3", "View3", "Report Display", ViewTips, "ID", LoadView<&DataFile::View3>},
    {"View4", "View4", "Animation Display", ViewTips, "ID", LoadView<&DataFile::View4>},
    {"View5", nullptr, "Immediate feedback Display", ViewTips, "ID", LoadView<&DataFile::View5>},
    {"Dots", "VidDots", "Points for video digitising", "", "Point Name",
     LoadKind<DotRow, Beside<DotRow, gDots>, DotColumns, DotFields>},
    {"Segs", "VidSegs", "Segments for video digitising", "", "Segment Name",
     LoadKind<SegRow, Beside<SegRow, gSegs>, SegColumns, SegFields>},
    {"Antro", nullptr, "Anthropometry", "The newest day of a rower can be taken into the crew's table.", "Date",
     LoadKind<AntroRow, Beside<AntroRow, gAntro>, AntroColumns, AntroFields>},
};
} // namespace

std::span<const GridKind> AllGridKinds()
{
    return Kinds;
}

const GridKind* FindGridKind(const std::string& Name)
{
    const auto* Found =
        std::find_if(std::begin(Kinds), std::end(Kinds), [&](const GridKind& Each) { return Each.Name == Name; });
    return Found == std::end(Kinds) ? nullptr : Found;
}

bool IsBesideFile(const GridKind& Kind)
{
    const std::string Name = Kind.Name;
    return Name == "Dots" || Name == "Segs" || Name == "Antro";
}

std::vector<std::string> CrewTexts(const CrewRow& Row)
{
    return GridTexts(Row, BindColumns<CrewRow>(CrewColumns(), CrewFields()));
}

CrewRow CrewFromTexts(const std::vector<std::string>& Texts, const CrewRow& Former)
{
    return RecordFromTexts(Texts, BindColumns<CrewRow>(CrewColumns(), CrewFields()), Former);
}
