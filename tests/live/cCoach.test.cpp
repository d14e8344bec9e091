// The coach's panel: the variables of an oar, colours, old and missing values.
#include "live/coach/cCoach.h"

#include "core/mIni.h"
#include "support/Case.h"

namespace {
using doctest::Approx;

constexpr double MetrePerDegree = 0.017453293;

// A crew whose channels are counts as they stand: the key 1, then angle and force of each oar in turn.
struct Boat : FreshState
{
    Boat() { gFile = {}; }

    void AddChannel(const std::string& Name, int Seat, int Side)
    {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.Chan = gFile.ChanCnt = static_cast<int16_t>(gFile.Calibr.UBound());
        Row.ParamID = Name;
        Row.Seat = static_cast<int16_t>(Seat);
        Row.Side = static_cast<int16_t>(Side);
        Row.Q1 = 1;
    }

    // Levers of one metre, oars of three: a gate's force counts one and a half times.
    static void AddSeat(int Seat, int Side)
    {
        BoatRow& Rig = gFile.Boat.Grow();
        Rig.Seat = static_cast<int16_t>(Seat);
        Rig.Side = static_cast<int16_t>(Side);
        const bool IsScull = Side >= SideRightScull;
        Rig.BladeLength = 0.5F;
        Rig.OarInboard = IsScull ? 1.04F : 1.13F;
        Rig.OarLength = IsScull ? 3.31F : 3.4F;
    }

    void Make(const std::string& Type, int Seats)
    {
        gFile = {};
        gFile.BoatType = Type;
        AddChannel("Key", 0, 0);
        gKeyChan = 1;
        gKeyQ1 = 1;
        const bool IsScull = Type.ends_with('x');
        for (int Seat = 1; Seat <= Seats; ++Seat) {
            gFile.Crew.Grow().Name = "R" + FormatNum(Seat, "0");
            for (int Side = IsScull ? 3 : 1; Side <= (IsScull ? 4 : 1); ++Side) {
                AddSeat(Seat, Side);
                AddChannel("A" + FormatNum(Seat, "0"), Seat, Side);
                AddChannel("H" + FormatNum(Seat, "0"), Seat, Side);
            }
        }
    }

    // Strokes of eight seconds under a force of 10; oars from number Silent on rest.
    void Row(cCoach& Panel, int Strokes, int Silent = 99)
    {
        for (int i = 0; i < 8 * Strokes; ++i) {
            const double Angles[] = {-50, -25, 0, 25, 30, 10, -10, -30};
            gData[0] = ++Time;
            gData[1] = Angles[i % 8];
            for (int Chan = 2; Chan <= gFile.ChanCnt && Chan < 2 + 2 * Silent; Chan += 2) {
                gData[static_cast<std::size_t>(Chan)] = Angles[i % 8];
                gData[static_cast<std::size_t>(Chan) + 1] = 10;
            }
            Panel.TakeSample();
            if (!Panel.Changes().empty()) Changes.assign(Panel.Changes().begin(), Panel.Changes().end());
        }
    }

    static std::string Line(const cCoach& Panel, int Row)
    {
        std::string Cells = Panel.RowName(Row) + ":";
        for (int Column = 0; Column < Panel.ColumnCount(); ++Column)
            Cells += " " + cCoach::Text(Panel.Cell({Row, Column}));
        return Cells;
    }

    double Time = 0;
    std::vector<CoachPlace> Changes; // the last ones
};
} // namespace

TEST_CASE_FIXTURE(Boat,
                  "an oar's variables are made of its samples between the turns, its force zeroed by the recovery")
{
    struct Sample
    {
        double Angle, Force;
    };
    const Sample Samples[] = {{-40, 10}, {-50, 10}, {-50, 80},  {-45, 100}, {-20, 300}, {30, 200},
                              {25, -10}, {0, -30},  {-45, -20}, {-40, 70},  {20, 100},  {10, 0}};
    for (const char Kind : {'H', 'G'}) {
        const double Ratio = Kind == 'G' ? 1.5 : 1;
        const double FirstWork = (25 + 17750 * Ratio) * MetrePerDegree;
        Make("2-", 1);
        gFile.Calibr[2].Q1 = 2; // the last of two rows holds
        AddChannel("A1", 1, 2);
        AddChannel(std::string(1, Kind) + "1", 1, 2);
        gDoReZero = 1;
        cOarVars Oar;
        Oar.InitVars(1, 0);
        std::vector<int> Finishes;
        for (int i = 0; i < 12; ++i) {
            gData[0] = i;
            gData[4] = Samples[i].Angle;
            gData[5] = Samples[i].Force / (i < 2 ? Ratio : 1); // the first recovery is at its zero already
            const int32_t Before = Oar.StrokeCnt();
            Oar.CalcData();
            if (Oar.StrokeCnt() != Before) Finishes.push_back(i);
            if (i == 6) CHECK(Oar.GetLastVal(VarWork) == Approx(FirstWork).epsilon(1e-6));
        }
        CHECK(Finishes == std::vector<int>{6, 11});
        const double Offset = 10 - -20 * Ratio; // added in units of the gate, in force at the handle
        const double Drive[] = {70 * Ratio, (100 + Offset) * Ratio};
        const double Work = (5 * (-20 * Ratio + Drive[0]) / 2 + 60 * (Drive[0] + Drive[1]) / 2) * MetrePerDegree;
        const double Last[] = {-40, 10, 50, (Drive[0] + Drive[1]) / 2, Drive[1], Work, Work / 5, 0, 0};
        const double First[] = {-45, 25, 70, 200 * Ratio, 300 * Ratio, FirstWork, FirstWork / 6, 0, 0};
        for (int i = 0; i < 9; ++i) {
            CAPTURE(i);
            CHECK(Oar.GetLastVal(i) == Approx(Last[i]).epsilon(1e-6));
            CHECK(Oar.GetAverVal(i) == Approx((First[i] + Last[i]) / 2).epsilon(1e-6));
        }
        CHECK(gFile.Calibr[5].Q0 == Approx(Offset));
    }
}

TEST_CASE("a value that reaches its target is green, within 3 percent of it blue, else red, on either side of 0")
{
    const std::tuple<double, double, const char*> Cases[] = {
        {100, 100, "green"}, {99.99, 100, "blue"}, {97, 100, "blue"},   {96.9, 100, "red"}, {-58, -58, "green"},
        {-57, -58, "blue"},  {-56, -58, "red"},    {-60, -58, "green"}, {0, 0, "green"},    {1, 0, "red"}};
    for (const auto& [Value, Target, Colour] : Cases) {
        CAPTURE(Value);
        CHECK(VerdictName(TargetColor(Value, Target)) == Colour);
    }
}

TEST_CASE_FIXTURE(Boat,
                  "what is missing leaves cells empty, what has missed two strokes is old, another run begins anew")
{
    Make("4-", 4);
    gFile.Calibr[5].ParamID = "F2"; // no force of seat 2, no angle of seat 3, no rig of seat 4
    gFile.Calibr[6].ParamID = "B3";
    gFile.Boat[4].Seat = 9;
    cCoach Panel;
    Panel.Load(true);
    Row(Panel, 2);
    CHECK(Line(Panel, 1) == "R2: -25.0 10.0 35.0    ");
    CHECK(Line(Panel, 2) == "R3:       ");
    CHECK(Line(Panel, 3) == "R4: -25.0 10.0 35.0 10.0 10.0  ");
    CHECK(Panel.Meaning({1, 3}).find("no force channel (H or G) of seat 2") != std::string::npos);
    CHECK(Panel.Meaning({2, 0}).find("no angle channel (A) of seat 3") != std::string::npos);
    CHECK(Panel.Meaning({3, 6}).find("no rig of seat 4") != std::string::npos);
    // Line by line, then by columns; an average force that stays is no change.
    const std::pair<int, int> Second[] = {{0, 0}, {0, 2}, {0, 6}, {1, 0}, {1, 2}, {3, 0}, {3, 2}};
    REQUIRE(Changes.size() == std::size(Second));
    for (std::size_t i = 0; i < Changes.size(); ++i)
        CHECK((Changes[i].Row == Second[i].first && Changes[i].Column == Second[i].second));

    Row(Panel, 1, 1);
    CHECK(!Panel.Cell({1, 0}).IsStale);
    Row(Panel, 1, 1);
    CHECK(Panel.Cell({1, 0}).IsStale);
    CHECK(!Panel.Cell({0, 0}).IsStale);
    CHECK(!Panel.IsClockStale());
    gFrameCnt = 1; // a replay
    Row(Panel, 1, 0);
    CHECK(Panel.Clock().StrokeN() == 1);
    CHECK(!Panel.Cell({0, 0}).HasValue);
}
