// Blocks of the table of functions: how lines of any kind are shared out, and where a page of them ends.
#include "views/report/cTableLayout.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

namespace {
// Runs of alike lines as rows of a session make them: names of different length, one to six functions.
std::vector<ReportLine> MakeLines(int Count, unsigned Seed)
{
    constexpr const char* Keys[] = {"MinX", "MaxX", "DelX", "MinY", "MaxY", "DelY", "Odd1", "Odd2"};
    std::mt19937 Random(Seed);
    const auto Below = [&](unsigned Limit) { return static_cast<unsigned>(Random() % Limit); };
    std::vector<ReportLine> Lines;
    while (static_cast<int>(Lines.size()) < Count) {
        ReportLine Line;
        Line.Y = {Below(2) ? "Force" : "", Below(2) ? "N" : "m"};
        for (const char* Key : Keys)
            if (Below(4) == 0 || Key == Keys[4]) Line.Values.push_back({"", Key, 1});
        for (unsigned i = Below(9) + 1; i > 0; --i) {
            Line.ID = std::string(Below(30) + 1, 'x');
            Lines.push_back(Line);
        }
    }
    Lines.resize(static_cast<std::size_t>(Count));
    return Lines;
}
} // namespace

TEST_CASE("a page takes as many lines as fit, whatever they are, and its blocks hold each of them once, in order")
{
    for (unsigned Seed = 1; Seed <= 20; ++Seed) {
        CAPTURE(Seed);
        const auto Lines = MakeLines(150, Seed);
        const cTableLayout Layout(Lines);
        for (const auto& [From, Width, Down] : {std::tuple{0U, 912.0, 25U}, {40U, 912.0, 9U}, {3U, 300.0, 12U}}) {
            const double Room = TableHeadHeight + TableLineHeight * Down + 5;
            const std::size_t To = Layout.EndFor(From, Width, Room);
            std::size_t Slow = std::min<std::size_t>(Lines.size(), From + 4 * Down);
            while (Layout.Height(From, Slow, Width) > Room)
                --Slow;
            CHECK(To == Slow);
            std::size_t Next = From;
            for (const TablePart& Part : Layout.Parts(From, To, Width)) {
                CHECK(Part.From == Next);
                CHECK((Part.Count() >= 1 && Part.Count() <= Down));
                Next = Part.To;
            }
            CHECK(Next == To);
        }
    }
}

TEST_CASE("blocks are as many as find room side by side, and alike lines are parted only to save more than two lines")
{
    const auto Shape = [](const std::vector<ReportLine>& Lines, double Width) {
        std::vector<std::size_t> Counts;
        for (const TablePart& Part : cTableLayout(Lines).Parts(0, Lines.size(), Width))
            Counts.push_back(Part.Count());
        return Counts;
    };
    using Counts = std::vector<std::size_t>;
    // A column of 58 behind names of 34 and a gap of 24: 92, 208, 324, 440.
    std::vector<ReportLine> Alike(16, {"1", {}, {"Force", "N"}, {{"", "MaxY", 1}}});
    CHECK(Shape(Alike, 207) == Counts{16});
    CHECK(Shape(Alike, 208) == Counts{8, 8});
    const std::vector<ReportLine> Many(40, Alike[0]);
    CHECK(Shape(Many, 439) == Counts{14, 14, 12});
    CHECK(Shape(Many, 440) == Counts{10, 10, 10, 10});
    Alike[7].ID = std::string(20, 'x'); // 134 wider
    CHECK(Shape(Alike, 341) == Counts{16});
    CHECK(Shape(Alike, 342) == Counts{8, 8});
    Alike[7].ID = "1";
    for (std::size_t i = 9; i < 16; ++i)
        Alike[i].Y.Name = "Lift";
    CHECK(Shape(Alike, 208) == Counts{9, 7}); // parted where they differ, though 8 and 8 would be lower
    for (std::size_t i = 9; i < 12; ++i)
        Alike[i].Y.Name = "Force";
    CHECK(Shape(Alike, 208) == Counts{8, 8}); // 12 and 4 would be four lines higher
}
