// The rower's panel: its clock and labels, and what begins anew.
#include "live/rower/cRower.h"

#include "core/mIni.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"

namespace {
// One channel that is key and curve alike, drawn a unit a unit.
struct RowerPanel : FreshState
{
    RowerPanel()
    {
        gFile = {};
        gFrameCnt = 0;
        gFile.ChanCnt = 1;
        gFile.TimeStep = 0.5;
        CalibrRow& Channel = gFile.Calibr.Grow();
        Channel.Chan = 1;
        Channel.ParamID = "A1";
        Channel.Q1 = 1;
        ViewRow& View = gFile.View1.Grow();
        View.ID = "Row";
        View.Color = 1;
        View.MaxXPar = 1000;
        View.MaxYPar = 600;
        View.Y1 = View.Y2 = 100;
        View.Arguments = "A1,A1";
        gKeyChan = 1;
        gFile.KeyThres = 100;
        gIsCurves = true;
        gIsValue = gIsGrid = gIsInd = false;
        gDrawWidth = 1;
    }

    bool Sample(double Time, double Key)
    {
        gSampleTime = gData[0] = Time;
        gData[1] = Key;
        Log.Take();
        Panel.TakeSample();
        Panel.DrawData();
        return Panel.NewStroke();
    }

    SurfaceLog Log{1000, 600};
    cRower Panel{Log};
};
} // namespace

TEST_CASE("the first start arms the clock, later ones give rate, mean rate and count")
{
    RowerPanel Test;
    gKeyMode = 1;
    gTimeStep = 0.04; // of the session before
    Test.Panel.Load();
    CHECK(gTimeStep == 0.5);
    Test.Panel.InitMode();
    gTimeStep = gDeltaT = 0.04; // a link that is opened behind the panel
    gFrameCnt = 1;
    Test.Sample(2, 0);
    CHECK(gTimeStep == 0.5);
    CHECK(gDeltaT == 0.5);
    const std::tuple<double, const char*, const char*, double> Starts[] = {
        {3, "00.0", "000", 0}, {5, "30.0", "001", 30}, {6, "60.0", "002", 40}, {6, "00.0", "003", 60}};
    for (const auto& [Time, Rate, Strokes, Mean] : Starts) {
        Test.Sample(Time - 0.25, 0);
        CHECK(Test.Sample(Time, 200));
        CHECK(Test.Panel.RateText() == Rate);
        CHECK(Test.Panel.StrokesText() == Strokes);
        CHECK(gRateAver == doctest::Approx(Mean));
        gStrokeCnt = 500; // a selection is looked at meanwhile
        gRate = gCycleSum = 0;
    }
    CHECK(Test.Panel.TimeText() == "06.0");
    gKeyChan = 2; // no such channel: nothing ever starts
    Test.Panel.Load();
    Test.Sample(7, 0);
    CHECK_FALSE(Test.Sample(7, 200));
    gFrameCnt = 0;
}

TEST_CASE("two panels on one link both arm their clock at their own first start")
{
    RowerPanel Test;
    SurfaceLog Other{100, 100};
    cRower Second{Other};
    gKeyMode = 1;
    Test.Panel.Load();
    Second.Load();
    for (const auto& [Time, Key] : {std::pair{3, 0}, {4, 200}, {5, 0}, {6, 200}}) {
        Test.Sample(Time, Key);
        Second.TakeSample();
    }
    CHECK(Test.Panel.StrokesText() == "001");
    CHECK(Second.StrokesText() == "001");
    CHECK(Second.RateText() == "30.0");
}

TEST_CASE("a restarted logger begins rates, scores and stroke counts anew")
{
    RowerPanel Test;
    gKeyMode = 1;
    Test.Panel.Load();
    Test.Panel.Resize();
    for (int i = 0; i < 8; ++i, ++gFrameCnt)
        Test.Sample(600 + i, i % 2 * 200);
    CHECK(Test.Panel.StrokesText() == "002");
    Test.Panel.NewRun(); // its clock begins at 0
    CHECK(Test.Panel.StrokesText() == "000");
    CHECK(Test.Panel.RateText() == "00.0");
    CHECK_FALSE(Test.Sample(1, 200)); // nothing stands before it
    CHECK(Test.Log.Take().front() == "clear #FFFFFF");
    Test.Sample(2, 0);
    CHECK(Test.Sample(3, 200));
    CHECK(Test.Panel.StrokesText() == "000");
    Test.Sample(4, 0);
    CHECK(Test.Sample(5, 200));
    CHECK(Test.Panel.StrokesText() == "001");
    CHECK(gRate == 30);
    CHECK(gRateAver == 30);
}
