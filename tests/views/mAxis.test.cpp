// Curves cut off at the edges of their rectangle, steps of scales, inks.
#include "views/mAxis.h"

#include "support/Case.h"
#include "support/SurfaceLog.h"

TEST_CASE("a curve is drawn where it lies in its rectangle, and nothing joins its pieces along the edge")
{
    constexpr double Never = std::numeric_limits<double>::quiet_NaN(), Far = std::numeric_limits<double>::infinity();
    const std::tuple<const char*, std::vector<SurfacePlace>, Texts> Cases[] = {
        {"within", {{10, 40}, {20, 10}, {30, 40}}, {"10 40 20 10 30 40"}},
        {"a peak above", {{10, 40}, {20, -20}, {30, 40}, {40, 45}}, {"10 40 17 0", "23 0 30 40 40 45"}},
        {"a valley below", {{10, 40}, {20, 60}, {30, 40}}, {"10 40 15 50", "25 50 30 40"}},
        {"a flat peak above", {{10, 10}, {15, -10}, {25, -10}, {30, 10}}, {"10 10 12 0", "28 0 30 10"}},
        {"out to the right and back", {{90, 20}, {110, 30}, {90, 40}}, {"90 20 100 25", "100 35 90 40"}},
        {"from the left", {{-10, 20}, {10, 30}}, {"0 25 10 30"}},
        {"across, from edge to edge", {{-50, 25}, {150, 25}}, {"0 25 100 25"}},
        {"down, from edge to edge", {{30, -50}, {30, 90}}, {"30 0 30 50"}},
        {"past a corner", {{-10, 10}, {10, -11}}, {}},
        {"through a corner's edges", {{-10, 15}, {15, -10}}, {"0 5 5 0"}},
        {"beside", {{-5, 10}, {-5, 40}, {-1, 90}, {20, 51}}, {}},
        {"along the edge", {{0, 0}, {100, 0}}, {"0 0 100 0"}},
        {"no number", {{10, 10}, {Never, 10}, {30, 10}, {40, 10}}, {"30 10 40 10"}},
        {"no number in height", {{10, 10}, {20, 10}, {30, Far}, {40, 10}, {50, 10}}, {"10 10 20 10", "40 10 50 10"}},
        {"a single point", {{10, 10}}, {}},
        {"nothing", {}, {}}};
    for (const auto& [What, Curve, Wanted] : Cases) {
        CAPTURE(What);
        SurfaceLog Log(200, 100);
        Log.SetPen(0, 1);
        DrawClipped(Log, {0, 100, 0, 50}, Curve);
        Texts Pieces;
        for (const std::string& Call : Log.Take())
            Pieces.push_back(Call.substr(9, Call.find(" #") - 9));
        CHECK(Pieces == Wanted);
    }
}

TEST_CASE("scales have steps of 1, 2 or 5, at most as many as wanted, with the limits themselves")
{
    const std::tuple<double, double, int, Texts> Cases[] = {{0, 100, 5, {"0", "20", "40", "60", "80", "100"}},
                                                            {0, 100, 4, {"0", "50", "100"}},
                                                            {-50, 850, 8, {"0", "200", "400", "600", "800"}},
                                                            {0.30000001, -0.1, 5, {"-0.1", "0.0", "0.1", "0.2", "0.3"}},
                                                            {2.9999999, 3.2, 3, {"3.0", "3.1", "3.2"}},
                                                            {0.001, 0.004, 3, {"0.001", "0.002", "0.003", "0.004"}},
                                                            {7, 7, 5, {}},
                                                            {0, std::numeric_limits<double>::infinity(), 5, {}}};
    for (const auto& [Low, High, Wanted, Numbers] : Cases) {
        CAPTURE(Low);
        Texts Found;
        for (const double Value : Ticks(Low, High, Wanted))
            Found.push_back(TickText(Value, NiceStep(std::abs(High - Low), Wanted)));
        CHECK(Found == Numbers);
    }
}

TEST_CASE("inks too light for paper are darkened in their hue, others are as they are")
{
    CHECK(PaperInk(0x000000) == 0x000000);
    CHECK(PaperInk(0x0000FF) == 0x0000FF);
    CHECK(PaperInk(0xFFFFFF) == 0x696969);
    CHECK(PaperInk(0x00FF00) == 0x00B200); // green of 150 to 105
    CHECK(PaperInk(0x00FFFF) == 0x007676);
}
