// The catch panel: turns between samples, factors with their colours and places on the bars, stroke figures.
#include "live/catch/cCatch.h"

#include "Swings.h"
#include "core/mIni.h"

namespace {
constexpr double SeatLate = 0.027;  // s behind the handle at the catch
constexpr double TrunkLate = -0.04; // s behind the handle at the finish

// A crew of one whose handle, seat and trunk turn at known moments: the catch at 0.5 s and every 2 s behind it.
struct CatchPanel : FreshState
{
    CatchPanel()
    {
        MakeCrew({"A1", "S1", "T1"}, "2", 0, 1);
        gKeyChan = 1;
        gKeyMode = 2;
        gHost.Settings->SaveSetting("Models", "gTrunkChan", "3");
    }

    void Row(int From, int To)
    {
        for (int i = From; i < To; ++i) {
            const double Time = gSampleTime = gData[0] = i * Step;
            gData[1] = 0.7 * Swing(Time - 0.5);
            gData[2] = 0.3 * Swing(Time - 0.5 - SeatLate);
            gData[3] = 20 * Swing(Time - 0.5 - TrunkLate);
            Panel.TakeSample();
        }
    }

    SurfaceLog Log{1000, 600};
    cCatch Panel{Log};
};
} // namespace

TEST_CASE("a turn lies between samples, as exactly after hours as at the start")
{
    for (const double Start : {0.0, 7200.0, 36000.0}) {
        cTurns Turns;
        // Lowest at 2.3 s behind the first sample.
        const auto Value = [](double Time) { return (Time - 2.3) * (Time - 2.3); };
        Turns.Begin(Start, Value(0));
        for (int i = 1; i <= 5; ++i)
            Turns.Take(Start + i, Value(i));
        CHECK(Turns.TurnTime() - Start == Approx(2.3).epsilon(1e-9));
        CHECK(Turns.ValueAt(Start + 2.3) == Approx(0).epsilon(1e-9));
    }
    cTurns Resting; // values that differ by rounding only have the mean of their times
    Resting.Begin(0, 0.3);
    for (int i = 1; i <= 5; ++i)
        Resting.Take(i, 0.1 + 0.2);
    CHECK(Resting.TimeAt(0.3) == Approx(3));
    Resting.Take(5, 9); // no time has passed
    CHECK(Resting.Velocity() == 0);
}

TEST_CASE("factors are judged by limits that follow the rate, their marks stand on the bar, averages are red or green")
{
    cTimeFactor Factor;
    const FactorRange Range{-40, 0, 2};
    // Rate 30 shifts the limits by 6: from -34 to 6, the bar from -114 to 86.
    const std::tuple<double, eVerdict, double> Cases[] = {{-34, eVerdict::Green, 0.4},
                                                          {-34.1, eVerdict::Blue, 0.3995},
                                                          {6, eVerdict::Green, 0.6},
                                                          {6.1, eVerdict::Red, 0.6005}};
    for (const auto& [Value, Verdict, Mark] : Cases) {
        CAPTURE(Value);
        Factor.Load(Range, 0.6);
        CHECK(!Factor.Shown());
        Factor.Take(Value, 30, 30);
        CHECK(Factor.Shown()->LastVerdict == Verdict);
        CHECK(Factor.Shown()->Mark == Approx(Mark));
        CHECK(Factor.Shown()->AverageVerdict == (Verdict == eVerdict::Green ? eVerdict::Green : eVerdict::Red));
    }
    Factor.Load(Range, 0.6);
    Factor.Take(10, 20, 20);
    Factor.Take(-12, 20, 20);
    CHECK(*Factor.Shown()->Average == -1);
    CHECK(Factor.Shown()->LastVerdict == eVerdict::Green);
    CHECK(Factor.Shown()->AverageVerdict == eVerdict::Green);
    Factor.Take(-12, 20, 100); // the average is judged at the mean rate: above 8 it would be good
    CHECK(Factor.Shown()->AverageVerdict == eVerdict::Red);

    cStyleFactor Style;
    Style.Load({80, 100, 2});
    Style.Take(79.9, 0);
    CHECK(Style.Shown()->LastVerdict == eVerdict::Red);
    CHECK(!Style.Shown()->Average);
    const std::tuple<double, eVerdict, double, double, eVerdict> Strokes[] = {
        {80, eVerdict::Green, 0.6, 80, eVerdict::Green},
        {130, eVerdict::Blue, 0.1, 105, eVerdict::Blue},
        {100, eVerdict::Green, 0.4, 310.0 / 3, eVerdict::Blue}};
    for (int32_t StrokeN = 1; const auto& [Value, Verdict, Mark, Average, AverageVerdict] : Strokes) {
        Style.Take(Value, StrokeN++);
        CHECK(Style.Shown()->LastVerdict == Verdict);
        CHECK(Style.Shown()->Mark == Approx(Mark));
        CHECK(*Style.Shown()->Average == Approx(Average));
        CHECK(Style.Shown()->AverageVerdict == AverageVerdict);
    }
    Style.Take(100, 9); // strokes without a factor lower the average
    CHECK(*Style.Shown()->Average == Approx(410.0 / 9));
}

TEST_CASE_FIXTURE(CatchPanel,
                  "the factors are those at which handle, seat and trunk were rowed, from the first counted stroke")
{
    Panel.Load();
    Row(0, 126); // the catch at 2.5 s is not yet recognised
    CHECK(Panel.Stroke().StrokeN == 0);
    CHECK(!Panel.CatchFactor());
    CHECK(!Panel.StyleFactor());
    REQUIRE(Panel.FinishFactor()); // it needs no counted stroke
    CHECK(Panel.FinishFactor()->Last == Approx(TrunkLate * 1000).epsilon(0.01));
    Row(126, 1000);
    REQUIRE((Panel.CatchFactor() && Panel.StyleFactor()));
    const CatchStroke& Stroke = Panel.Stroke();
    CHECK(Stroke.StrokeN == 9);
    CHECK(Stroke.Rate == Approx(30).epsilon(1e-4));
    CHECK(Stroke.Length == Approx(1.4).epsilon(1e-3));
    CHECK(Stroke.SeatTravel == Approx(0.6).epsilon(1e-3));
    CHECK(Stroke.MaxHandleV == Approx(0.7 * 3.14159265).epsilon(1e-3));
    CHECK(Stroke.MaxSeatV == Approx(0.3 * 3.14159265).epsilon(1e-3));
    CHECK(Panel.CatchFactor()->Last == Approx(SeatLate * 1000).epsilon(0.01));
    CHECK(*Panel.CatchFactor()->Average == Approx(SeatLate * 1000).epsilon(0.01));
    CHECK(Panel.CatchFactor()->LastVerdict == eVerdict::Red);
    CHECK(Panel.FinishFactor()->LastVerdict == eVerdict::Green);
    // At a fifth of the handle's travel, 0.3 s behind the catch, the seat has gone 0.10 m and the handle 0.29 m.
    CHECK(Panel.StyleFactor()->Last == Approx(35.9).epsilon(0.01));
    CHECK(Panel.Elapsed() == 20);
}

TEST_CASE_FIXTURE(CatchPanel, "without a handle or a seat nothing is recognised, without a trunk no Finish Factor")
{
    const std::tuple<int16_t, const char*, const char*, int, bool> Cases[] = {{0, "2", "3", 0, false},
                                                                              {1, "4", "3", 0, false},
                                                                              {1, "0", "3", 0, false},
                                                                              {1, "2", "9", 4, false},
                                                                              {1, "2", "3", 4, true}};
    for (const auto& [Key, SeatChan, TrunkChan, Strokes, HasFinish] : Cases) {
        gKeyChan = Key;
        gHost.Settings->SaveSetting("Models", "gSeatChan", SeatChan);
        gHost.Settings->SaveSetting("Models", "gTrunkChan", TrunkChan);
        Panel.Load();
        Row(0, 500);
        CHECK(Panel.Stroke().StrokeN == Strokes);
        CHECK(Panel.FinishFactor().has_value() == HasFinish);
    }
}
