// The rower's panel: stroke starts, labels, the trace ring, target curves and wishes.
#include "live/rower/cRower.h"

#include "core/mIni.h"
#include "records/mTargets.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"

namespace {
// One channel that is key and curve alike, drawn a unit a unit.
struct RowerPanel : FreshState
{
    RowerPanel()
    {
        gFile = {};
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
        Panel.DrawData();
        return Panel.NewStroke();
    }

    SurfaceLog Log{1000, 600};
    cRower Panel{Log};
};
} // namespace

TEST_CASE("each key mode starts strokes where it should, and none on the first sample")
{
    const double Keys[] = {50, 100, 101, 100, 90, 90, 130, 100, 130, 50};
    // A letter for each sample.
    const std::tuple<int16_t, const char*> Cases[] = {
        {0, "...x...x.x"}, {1, "..x...x.x."}, {2, "........x."}, {3, "...x...x.x"}, {4, ".........."}};
    for (const auto& [KeyMode, Expected] : Cases) {
        CAPTURE(KeyMode);
        RowerPanel Test;
        gKeyMode = KeyMode;
        Test.Panel.Load();
        std::string Starts;
        for (const double Key : Keys)
            Starts += Test.Sample(1, Key) ? 'x' : '.';
        CHECK(Starts == Expected);
    }
}

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
        CHECK(Test.Panel.RateText == Rate);
        CHECK(Test.Panel.StrokesText == Strokes);
        CHECK(gRateAver == doctest::Approx(Mean));
        gStrokeCnt = 500; // a selection is looked at meanwhile
        gRate = gCycleSum = 0;
    }
    CHECK(Test.Panel.TimeText == "06.0");
    gKeyChan = 2; // no such channel: nothing ever starts
    Test.Panel.Load();
    Test.Sample(7, 0);
    CHECK_FALSE(Test.Sample(7, 200));
    gFrameCnt = 0;
}

TEST_CASE("a stroke's start clears the picture and begins the trace from the point before it")
{
    RowerPanel Test;
    gKeyMode = 1;
    Test.Panel.Load();
    Test.Panel.Resize();
    Test.Sample(1, 40);
    Test.Sample(2, 60);
    CHECK(Test.Log.Take() == Texts{"line 4 560 8 540 #FF0000"});
    Test.Sample(3, 200);
    CHECK(Test.Log.Take() == Texts{"clear #FFFFFF", "line 0 0 0 600 #7F7F7F", "line 0 600 1000 600 #000000",
                                   "text 50 0 \"Row\" 12 #FF0000"});
    Test.Sample(4, 240);
    CHECK(Test.Log.Take() == Texts{"line 0 400 333 360 #FF0000"});
    for (int i = 0; i < 253; ++i)
        Test.Sample(5, 120);
    // The ring wraps to place 0, whose point lies to the left, and goes on over its own start.
    Test.Sample(6, 120);
    CHECK(Test.Log.Take().size() == 1);
    Test.Panel.Load();
    Test.Panel.Resize();
    Test.Sample(7, 40);
    CHECK(Test.Log.Take() == Texts{"line 4 560 4 560 #FF0000"});
}

TEST_CASE("target curves take the size of the target and leave a wide pen behind")
{
    RowerPanel Test;
    gIsTargVals = gIsTargCurves = 1;
    gTarget.Values = {100, 0, 200, 0, 400};
    gCurves = {{"A", {0, 0.5, 1}}, {"F", {0, 1, 0, 5}}, {"B", {9, 9, 9}}};
    Test.Panel.Load();
    Test.Panel.Resize();
    const Texts Drawn = Test.Log.Take();
    CHECK(Texts(Drawn.end() - 2, Drawn.end()) ==
          Texts{"line 100 600 200 200 #000000 wide 4", "line 200 200 300 600 #000000 wide 4"});
    Test.Sample(1, 60);
    CHECK(Test.Log.Take() == Texts{"line 4 540 4 540 #FF0000 wide 4"});
}

TEST_CASE("keys and playback control ask for what the source can do")
{
    RowerPanel Test;
    const std::pair<int16_t, eRowerWish> Spaces[] = {
        {SourceTimer, eRowerWish::StartLog}, {SourceFrames, eRowerWish::ToggleReplay}, {SourceTable, eRowerWish::None}};
    for (const auto& [Source, Wish] : Spaces) {
        Test.Panel.Load(Source);
        CHECK(Test.Panel.PressSpace() == Wish);
    }
    gRaw.Create(1, 3);
    for (int i = 0; i <= 3; ++i) {
        gRaw(0, i) = i;
        gRaw(1, i) = 100 * i;
    }
    Test.Panel.Resize();
    Test.Log.Take();
    gPlayTime = 2.5;
    CHECK(Test.Panel.DoAction(1) == eRowerWish::None);
    CHECK(Test.Log.Take() == Texts{"line 4 400 4 400 #FF0000"});
    CHECK(Test.Panel.TimeText == "02.0");
    Test.Log.Take();
    CHECK(Test.Panel.DoAction(3) == eRowerWish::None);
    CHECK(Test.Log.Take().empty());
    CHECK(Test.Panel.DoAction(6) == eRowerWish::Close);
    gTimeStep = 0.04;
    Test.Panel.Unload();
    CHECK(gDeltaT == 0.04);
}
