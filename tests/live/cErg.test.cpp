// The ergometer panel: strokes of the handle with their figures, turns between samples, what is shown of them.
#include "live/ergo/cErg.h"

#include "Swings.h"
#include "live/ergo/cDamp.h"

namespace {
// A rower whose handle turns at 0.5 s and every 2 s behind it, the seat SeatLate behind it.
struct ErgPanel : FreshState
{
    ErgPanel()
    {
        MakeCrew({"L1", "H1", "S1"}, "3", 1, 0.5);
        gFile.KeyChanID = "L1";
        ResolveChannels();
        gKeyMode = 3;
    }

    // Gives how many Catch Factors were formed.
    int Row(int From, int To)
    {
        int Formed = 0;
        for (int i = From; i < To; ++i) {
            ++gFrameCnt;
            const double Time = i * Step;
            gSampleTime = gData[0] = Time;
            const auto Put = [](std::size_t Chan, double Value) { gData[Chan] = (Value - 1) / 0.5; };
            Put(1, 0.7 * Swing(Time - 0.503));
            Put(2, 300 * std::max(0.0, std::sin(3.14159265358979 * (Time - 0.503))));
            Put(3, 0.3 * Swing(Time - 0.503 - SeatLate));
            Panel.TakeSample();
            Formed += Panel.Newest().CF ? 1 : 0;
        }
        return Formed;
    }

    double SeatLate = 0.0285; // not in the middle of two samples, whose velocity would be 0
    SurfaceLog Log{1000, 600};
    cErg Panel{Log};
};
} // namespace

TEST_CASE("the figures of a stroke are those of its samples, the first one counts from nothing")
{
    const std::pair<double, double> Samples[] = {{0.4, 0},   {0.3, 0},   {0.2, 0},  {0.1, 0},   {0.2, 100},
                                                 {0.4, 300}, {0.7, 200}, {0.9, 50}, {0.8, 400}, {0.6, 0}};
    cErgStrokes Strokes;
    CHECK_FALSE(Strokes.Take(0, 0.5, 0));
    for (int i = 1; i <= 30; ++i) {
        const auto& [Key, Force] = Samples[(i - 1) % 10];
        CAPTURE(i);
        CHECK(Strokes.Take(i * 0.1, Key, Force) == (i % 10 == 0));
        if (i % 10 != 0) continue;
        const ErgStroke& Last = Strokes.Last();
        CHECK(Last.StrokeCnt == i / 10);
        CHECK(Last.IsWhole == (i > 10));
        // The force behind the finish is none of the drive.
        const std::pair<double, double> Figures[] = {
            {Last.CycleTime, 1}, {Last.Rate, 60},       {Last.RateAver, 60},  {Last.DriveTime, 0.4},
            {Last.Length, 0.8},  {Last.Work, 145},      {Last.Power, 145},    {Last.AverForce, 362.5},
            {Last.MaxForceT, 0}, {Last.RecovTime, 0.6}, {Last.MaxForce, 300}, {Last.MeanForce(), 181.25},
            {Last.Impulse, 62.5}};
        for (const auto& [Found, Expected] : Figures)
            CHECK(Found == Approx(Expected).epsilon(1e-9));
    }
}

TEST_CASE_FIXTURE(ErgPanel, "the Catch Factor is the one that was rowed, beyond 200 ms it is formed and not shown")
{
    const std::pair<double, bool> Cases[] = {{0.0285, true}, {-0.04, true}, {0.19, true}, {0.21, false}, {-0.3, false}};
    for (const auto& [Late, IsShown] : Cases) {
        CAPTURE(Late);
        SeatLate = Late;
        gFrameCnt = 0;
        Panel.Load();
        CHECK(Row(0, 1000) >= 9);
        CHECK(Panel.CF() == Approx(Late * 1000).epsilon(0.01));
        REQUIRE(Panel.CatchFactor().has_value() == IsShown);
        REQUIRE(Panel.WholeStroke());
        CHECK(gStrokeCnt == 10);
        CHECK(gRate == Approx(30).epsilon(1e-9));
        CHECK(Panel.WholeStroke()->Length == Approx(1.4).epsilon(1e-3));
        CHECK(Panel.WholeStroke()->DriveTime == Approx(1).epsilon(1e-9));
        CHECK(Panel.HandleTiming().Stroke().MaxHandleV == Approx(0.7 * 3.14159265).epsilon(1e-3));
        CHECK(Panel.HandleTiming().Stroke().SeatTravel == Approx(0.6).epsilon(1e-3));
    }
    gFrameCnt = 0; // frames are counted anew: so are the strokes
    Row(0, 1);
    CHECK(!Panel.WholeStroke());
    CHECK(Panel.Stroke().StrokeCnt == 0);
}

TEST_CASE_FIXTURE(ErgPanel, "what a channel is missing for is not formed, all else is")
{
    const std::tuple<const char*, const char*, const char*, int, bool, bool> Cases[] = {
        {"L1", "H1", "3", 10, true, true},
        {"L1", "H9", "3", 10, false, true},
        {"L1", "H1", "4", 10, true, false},
        {"L9", "H1", "3", 0, true, false}};
    for (const auto& [Key, Force, SeatChan, Strokes, HasForce, HasFactor] : Cases) {
        gFile.KeyChanID = Key;
        gFile.Calibr[2].ParamID = Force;
        ResolveChannels();
        gHost.Settings->SaveSetting("Models", "gSeatChan", SeatChan);
        gFrameCnt = 0;
        Panel.Load();
        Row(0, 1000);
        CHECK(Panel.Stroke().StrokeCnt == Strokes);
        CHECK(Panel.HasForce() == HasForce);
        CHECK(Panel.CatchFactor().has_value() == HasFactor);
    }
}

TEST_CASE_FIXTURE(ErgPanel,
                  "the dump is an empty file named as the sample, which replaces another only when that is wanted")
{
    gCurDir = Folder.Path("");
    const std::string Path = Folder.Path("Sample 00.log");
    cDamp Damp;
    Damp.Toggle();
    CHECK(Damp.IsOpen());
    CHECK(ReadWhole(Path) == "");
    Damp.Toggle();
    CHECK_FALSE(Damp.IsOpen());
    REQUIRE(SaveWhole(Path, "kept"));
    Dialogs.AnswerYes = false;
    Damp.Toggle();
    CHECK_FALSE(Damp.IsOpen());
    CHECK(ReadWhole(Path) == "kept");
    CHECK(Dialogs.Told == Texts{"Warning!: Are you sure to replace file " + Path + "?"});
    gCurDir = Folder.Path("none/");
    Damp.Toggle();
    CHECK_FALSE(Damp.IsOpen());
    CHECK(Dialogs.Told.back().starts_with("Warning!: Can't open file: " + gCurDir));
}
