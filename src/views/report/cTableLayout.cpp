// Blocks are tried on numbers alone: what each line needs is worked out once.
#include "views/report/cTableLayout.h"

#include <algorithm>
#include <map>
#include <utility>

namespace {
constexpr double LeastName = 34, MostName = 260; // width of the names
constexpr std::size_t MostBlocks = 4;
constexpr std::size_t TearCost = 2; // lines that the table has to be lower by for alike lines to be parted

double WidthOf(const std::string& ID)
{
    const auto Letters = std::count_if(ID.begin(), ID.end(), [](char C) { return (C & 0xC0) != 0x80; });
    return std::clamp(24 + 7.2 * static_cast<double>(Letters), LeastName, MostName);
}

bool AreAlike(const ReportLine& A, const ReportLine& B)
{
    return A.X == B.X && A.Y == B.Y &&
           std::equal(A.Values.begin(), A.Values.end(), B.Values.begin(), B.Values.end(),
                      [](const RowValue& One, const RowValue& Other) { return One.Key == Other.Key; });
}

std::size_t Highest(std::span<const TablePart> Parts)
{
    std::size_t Most = 0;
    for (const TablePart& Each : Parts)
        Most = std::max(Most, Each.Count());
    return Most;
}
} // namespace

cTableLayout::cTableLayout(std::span<const ReportLine> Lines)
{
    std::map<std::string, std::size_t> Numbers;
    for (std::size_t i = 0; i < Lines.size(); ++i) {
        Need Each{WidthOf(Lines[i].ID), {}, i};
        for (const RowValue& Value : Lines[i].Values) {
            const std::size_t Key = Numbers.emplace(Value.Key, Numbers.size()).first->second;
            if (std::find(Each.Columns.begin(), Each.Columns.end(), Key) == Each.Columns.end())
                Each.Columns.push_back(Key);
        }
        if (i > 0 && AreAlike(Lines[i - 1], Lines[i])) Each.RunStart = Needs.back().RunStart;
        LeastColumns = i == 0 ? Each.Columns.size() : std::min(LeastColumns, Each.Columns.size());
        Needs.push_back(std::move(Each));
    }
    Keys = Numbers.size();
}

double cTableLayout::NameWidth(const TablePart& Part) const
{
    double Widest = LeastName;
    for (std::size_t i = Part.From; i < Part.To; ++i)
        Widest = std::max(Widest, Needs[i].NameWidth);
    return Widest;
}

// Alike lines have the same columns, so the first of them stands for all.
std::size_t cTableLayout::CountColumns(const TablePart& Part) const
{
    std::vector<char> IsCounted(Keys, 0);
    std::size_t Count = 0;
    for (std::size_t i = Part.From; i < Part.To; ++i) {
        if (i > Part.From && IsAlikeBefore(i)) continue;
        for (const std::size_t Key : Needs[i].Columns)
            if (!std::exchange(IsCounted[Key], 1)) ++Count;
    }
    return Count;
}

bool cTableLayout::HaveRoom(std::span<const TablePart> Parts, double Width) const
{
    double Needed = -TableLeastGap;
    for (const TablePart& Each : Parts)
        Needed += NameWidth(Each) + TableLeastKey * static_cast<double>(CountColumns(Each)) + TableLeastGap;
    return Needed <= Width;
}

// Blocks of Most lines at most, which end where other quantities begin if they can.
std::vector<TablePart> cTableLayout::Split(std::size_t From, std::size_t To, std::size_t Blocks, std::size_t Most) const
{
    std::vector<TablePart> Parts;
    while (From < To) {
        const std::size_t Left = Blocks - Parts.size() - 1; // blocks behind this one
        std::size_t End = std::min(From + Most, To);
        const std::size_t Least = To - From > Left * Most ? To - Left * Most : From + 1;
        if (End < To && Needs[End].RunStart >= Least) End = Needs[End].RunStart;
        Parts.push_back({From, End});
        From = End;
    }
    return Parts;
}

std::size_t cTableLayout::Cost(std::span<const TablePart> Parts) const
{
    const auto Torn = std::count_if(Parts.begin() + 1, Parts.end(),
                                    [this](const TablePart& Each) { return IsAlikeBefore(Each.From); });
    return Highest(Parts) + TearCost * static_cast<std::size_t>(Torn);
}

std::vector<TablePart> cTableLayout::Parts(std::size_t From, std::size_t To, double Width) const
{
    const std::size_t Count = To - From;
    std::vector<TablePart> Best = {{From, To}};
    std::size_t BestCost = Count;
    for (std::size_t Blocks = 2; Blocks <= std::min(MostBlocks, Count); ++Blocks) {
        const std::size_t Even = (Count + Blocks - 1) / Blocks;
        for (std::size_t Most = Even; Most <= Even + Even / 2 + 2; ++Most) {
            std::vector<TablePart> Found = Split(From, To, Blocks, Most);
            if (Cost(Found) >= BestCost || !HaveRoom(Found, Width)) continue;
            BestCost = Cost(Found);
            Best = std::move(Found);
        }
    }
    return Best;
}

double cTableLayout::Height(std::size_t From, std::size_t To, double Width) const
{
    if (From >= To) return 0;
    return TableHeadHeight + TableLineHeight * static_cast<double>(Highest(Parts(From, To, Width)));
}

// Of blocks as narrow as any can be; never fewer than there really are.
std::size_t cTableLayout::MostBlocksIn(double Width) const
{
    const double Narrowest = LeastName + TableLeastKey * static_cast<double>(LeastColumns) + TableLeastGap;
    const double Blocks = (Width + TableLeastGap) / Narrowest + 1e-6;
    return static_cast<std::size_t>(std::clamp(Blocks, 1.0, static_cast<double>(MostBlocks)));
}

// More lines than the blocks that find room can hold need not be tried.
std::size_t cTableLayout::EndFor(std::size_t From, double Width, double Room) const
{
    const auto Down = static_cast<std::size_t>(std::max(1.0, (Room - TableHeadHeight) / TableLineHeight));
    std::size_t To = std::min({Needs.size(), From + MostBlocks * Down, From + MostBlocksIn(Width) * (Down + 1)});
    while (To > From && Height(From, To, Width) > Room)
        --To;
    return To;
}
