// The rower's panel: stroke starts, labels, the trace ring, target curves, and samples that come in bursts.
#include "live/rower/cRower.h"

#include "core/mIni.h"
#include "records/mTargets.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"

#include <algorithm>

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

TEST_CASE("a table is shown at the play row, at its own time")
{
    RowerPanel Test;
    gRaw.Create(1, 3);
    for (int i = 0; i <= 3; ++i) {
        gRaw(0, i) = i;
        gRaw(1, i) = 100 * i;
    }
    Test.Panel.Load(SourceTable);
    Test.Panel.Resize();
    gPlayIdx = 2;
    Test.Sample(9, 9);
    CHECK(Test.Log.Take() == Texts{"line 4 400 4 400 #FF0000"});
    CHECK(Test.Panel.TimeText() == "02.0");
    gTimeStep = 0.04;
    Test.Panel.Unload();
    CHECK(gDeltaT == 0.04);
}

namespace {
// What a panel made of a piece: its strokes with their numbers, and the picture at the end.
struct Outcome
{
    Texts Strokes;
    Texts Picture; // what was drawn since it was last cleared
};

// Three curves over the same place: a trace in time, a force curve with scores, and angles with stroke numbers.
void MakeRows()
{
    gIsInd = gIsScore = gIsValue = gIsGrid = true;
    CalibrRow Force = gFile.Calibr[1];
    Force.ParamID = "F1";
    gFile.Calibr.Grow() = Force;
    gFile.ChanCnt = 2;
    gFile.View1[1].MaxYPar = 400; // a part of the curve is above it
    ViewRow Model = gFile.View1[1];
    Model.Mode = 1;
    Model.Arguments = "A1,F1";
    Model.Functions = "Mod,U1,U2,D3,At";
    Model.Criteria = "0.3,0.3,0.4,400";
    Model.CritSTD = "0.1,0.1,0.1,50";
    Model.DiamFontXY = "20,30,500,40";
    gFile.View1.Grow() = Model;
    ViewRow Numbers = Model;
    Numbers.Arguments = "F1,A1";
    Numbers.Functions = "MinX,MaxY,Catch";
    gFile.View1.Grow() = Numbers;
}

// Strokes of 90 samples, one of them of 330, which goes round the trace ring.
double AngleAt(int Sample)
{
    const bool IsLong = Sample >= 900 && Sample < 1230;
    const int InStroke = IsLong ? Sample - 900 : (Sample < 900 ? Sample : Sample - 1230) % 90;
    return 250 + 240 * std::cos(6.283185307179586 * InStroke / (IsLong ? 330 : 90));
}

Outcome PlayInBursts(int Burst)
{
    RowerPanel Test;
    MakeRows();
    gKeyMode = 1;
    Test.Panel.Load();
    Test.Panel.Resize();
    Outcome Seen;
    for (int i = 0; i < 2000; ++i) {
        gSampleTime = gData[0] = i * 0.02;
        gData[1] = AngleAt(i);
        gData[2] = std::max(0.0, (AngleAt(i + 1) - AngleAt(i)) * 15);
        Test.Panel.TakeSample();
        if (Test.Panel.NewStroke()) {
            std::string Line = Test.Panel.TimeText() + " " + Test.Panel.RateText() + " " + Test.Panel.StrokesText();
            for (const cData01real& Plot : Test.Panel.Views())
                for (const StrokeNumber& Each : Plot.StrokeNumbers())
                    Line += " " + Each.Key + (Each.IsMade ? FormatSig(Each.Value, 4) : "");
            Seen.Strokes.push_back(Line);
        }
        if ((i + 1) % Burst == 0) Test.Panel.DrawData();
    }
    Seen.Picture = Test.Log.Take();
    const auto Cleared = std::find(Seen.Picture.rbegin(), Seen.Picture.rend(), "clear #FFFFFF");
    Seen.Picture.erase(Seen.Picture.begin(), Cleared.base());
    return Seen;
}
} // namespace

TEST_CASE("strokes, scores and the picture are the same for samples that come one by one or in bursts of any size")
{
    const Outcome Single = PlayInBursts(1);
    CHECK(Single.Strokes.size() == 19);
    CHECK(Single.Strokes[5] != Single.Strokes[9]);
    CHECK(Single.Picture.size() > 200);
    for (const int Burst : {5, 50, 500}) {
        CAPTURE(Burst);
        const Outcome Bundled = PlayInBursts(Burst);
        CHECK(Bundled.Strokes == Single.Strokes);
        CHECK(Bundled.Picture == Single.Picture);
    }
}

TEST_CASE("after a change of size the whole trace stands again, also one that went round the ring")
{
    RowerPanel Test;
    gKeyMode = 1;
    Test.Panel.Load();
    Test.Panel.Resize();
    const auto Steps = [&](int From, int To) {
        for (int i = From; i < To; ++i)
            Test.Sample(i, 50 + i % 7);
        Test.Log.Take();
        Test.Panel.Resize();
        return Test.Log.Take().size() - 4; // clear, two lines and the name of the scales
    };
    CHECK(Steps(0, 100) == 99);
    CHECK(Steps(100, 255) == 254);
    // A sample more takes the oldest one's place; the step over the ring's end is one to the right as well.
    CHECK(Steps(255, 300) == 254);
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
