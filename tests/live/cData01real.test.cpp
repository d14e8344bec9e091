// Live rows as the drawing calls that they make.
#include "live/panel/cData01real.h"

#include "core/mIni.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"

#include <functional>

namespace {
// A row over the whole surface, y from 0 to 600, so a unit of y is a drawing unit.
ViewRow PlainRow(int16_t Mode, const char* Arguments, const char* Functions = "")
{
    ViewRow Row;
    Row.ID = "Row";
    Row.Mode = Mode;
    Row.Color = 1;
    Row.MinXPar = -100;
    Row.MaxXPar = 100;
    Row.MaxYPar = 600;
    Row.Y1 = Row.Y2 = 100;
    Row.Arguments = Arguments;
    Row.Functions = Functions;
    return Row;
}

// Channels X, F and G with counts for values; all switches off but curves and values.
struct LivePlot : FreshState
{
    explicit LivePlot(const ViewRow& Row, int16_t Source = SourceFrames)
    {
        gFile = {};
        for (const char* Name : {"X", "F", "G"}) {
            CalibrRow& Channel = gFile.Calibr.Grow();
            Channel.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Channel.ParamID = Name;
            Channel.Q1 = 1;
            Channel.Lever = 0.5;
        }
        gIsCurves = gIsValue = true;
        gIsGrid = gIsInd = gIsScore = false;
        gFile.View1.Grow() = Row;
        Plot.InitViewID(1, Source);
        Plot.SetScales();
        Scales = Log.Take();
    }

    // Feeds a sample and gives what was drawn for it.
    Texts Sample(double Time, double X, double F, bool NewStroke = false)
    {
        gData[0] = Time;
        gData[1] = X;
        gData[2] = F;
        Plot.TakeSample(Cur, Cur + 1, NewStroke);
        Plot.DrawData(0);
        Plot.ForgetSteps();
        ++Cur;
        return Log.Take();
    }

    SurfaceLog Log{1000, 600};
    PlotSurface Panel{&Log, 3};
    cData01real Plot{Panel};
    Texts Scales;
    int Cur = 0;
};

// A stroke of N samples against the angle: to the catch at sample 5, then to the finish.
void RowStroke(LivePlot& Panel, const std::function<double(int)>& Force, int N = 30)
{
    for (int i = 0; i < N; ++i)
        Panel.Sample(i, i <= 5 ? -5.0 * i : i <= 25 ? -25 + 5.0 * (i - 5) : 75 - 5.0 * (i - 25), Force(i));
    Panel.Cur = 0;
}

ViewRow ModelRow(const char* Functions, const char* Criteria, const char* Deviations)
{
    ViewRow Row = PlainRow(1, "X,F", Functions);
    Row.Criteria = Criteria;
    Row.CritSTD = Deviations;
    Row.DiamFontXY = "21,30,700,40";
    return Row;
}

std::string NumbersOf(const LivePlot& Panel)
{
    std::string Text;
    for (const StrokeNumber& Each : Panel.Plot.StrokeNumbers())
        Text += Each.Key + "=" + (Each.IsMade ? FormatSig(Each.Value, 4) : "none") + " ";
    return Text;
}
} // namespace

TEST_CASE("scales are a grid, two zero lines and the name, without curves nothing")
{
    ViewRow Row = PlainRow(1, "X,F");
    Row.X1 = 10;
    Row.X2 = 20;
    Row.Y1 = 60;
    Row.Y2 = 80;
    Row.Offset = 2;
    Row.MinYPar = -100;
    Row.MaxYPar = 260;
    LivePlot Panel(Row);
    CHECK(Panel.Scales == Texts{"line 350 120 350 480 #7F7F7F", "line 100 380 600 380 #000000",
                                "text 150 144 \"Row\" 12 #FF0000 wide 3"});
    gIsGrid = true;
    Panel.Plot.DrawScales();
    const Texts Grid = Panel.Log.Take();
    CHECK(Grid.size() == 14);
    CHECK(Grid[10] == "line 100 480 600 480 #7F7F7F");
    gIsCurves = false;
    Panel.Plot.DrawScales();
    CHECK(Panel.Log.Take().empty());
}

TEST_CASE("the trace holds a point outside the limits and is as wide as the stroke before")
{
    LivePlot Panel(PlainRow(0, "X,F"));
    CHECK(Panel.Sample(0, 0, 100) == Texts{"line 4 500 4 500 #FF0000 wide 3"});
    CHECK(Panel.Sample(1, 0, 600) == Texts{"line 4 500 8 0 #FF0000 wide 3"});
    // Above the limit the point of the stroke before stands: none yet.
    CHECK(Panel.Sample(2, 0, 600.1).empty());
    CHECK(Panel.Sample(3, 0, 0) == Texts{"line 16 600 16 600 #FF0000 wide 3"});
    Panel.Cur = 254;
    CHECK(Panel.Sample(4, 0, 300, true) == Texts{"line 0 300 0 300 #FF0000 wide 3"});
    Panel.Cur = 0;
    CHECK(Panel.Sample(5, 0, 200) == Texts{"line 200 400 200 400 #FF0000 wide 3"}); // five samples filled 1000 units
    gIsInd = true;
    CHECK(Panel.Sample(6, 0, 100) ==
          Texts{"line 200 400 400 500 #FF0000 wide 3", "circle 400 500 3 #FF0000 wide 3 empty"});
    gIsInd = false;
    Panel.Cur = 1;
    CHECK(Panel.Sample(7, 0, 700) == Texts{"line 200 400 400 500 #FF0000 wide 3"});
    Panel.Log.Extent = {510, 300}; // two units a sample
    Panel.Plot.SetScales();
    Panel.Log.Take();
    Panel.Plot.DrawAgain(1, 2);
    CHECK(Panel.Log.Take() == Texts{"line 2 200 2 200 #FF0000 wide 3", "line 2 200 4 250 #FF0000 wide 3"});
    ViewRow Low = PlainRow(0, "X,F");
    Low.MinYPar = -600;
    CHECK(LivePlot(Low).Sample(0, 0, 0) == Texts{"line 4 300 4 300 #FF0000 wide 3"});
}

TEST_CASE("against an argument the trace goes both ways, an angle as the arc of its lever")
{
    LivePlot Panel(PlainRow(1, "X,F"));
    CHECK(Panel.Sample(0, 20, 0) == Texts{"line 600 600 600 600 #FF0000 wide 3"});
    CHECK(Panel.Sample(1, -20, 60) == Texts{"line 600 600 400 540 #FF0000 wide 3"});
    gFile.Calibr[1].Mode = 1;
    CHECK(Panel.Sample(2, 90, 60) == Texts{"line 400 540 504 540 #FF0000 wide 3"}); // 0.785 m
}

TEST_CASE("a stroke's numbers are those of the stroke that ended, its first sample of the next included")
{
    LivePlot Panel(PlainRow(1, "X,F", "MinX,MaxX,DelY,MaxA,Catch,MinY,Other"));
    Panel.Sample(0, 10, 100);
    Texts Drawn = Panel.Sample(1, 20, 200, true);
    CHECK(NumbersOf(Panel) == "MinX=0.0000 MaxX=20.00 DelY=200.0 MaxA=200.0 Catch=0.0000 MinY=0.0000 Other=0.0000 ");
    Panel.Sample(2, -60, 300);
    CHECK(NumbersOf(Panel).empty());
    Panel.Sample(1.95, -50, -20);
    Drawn = Panel.Sample(3, 30, 50, true);
    CHECK(Drawn ==
          Texts{"line 650 550 650 550 #FF0000 wide 3", "text 50 0 \"MinX=-60.00\" 48 #FF0000 wide 3",
                "text 50 60 \"MaxX=30.00\" 48 #FF0000 wide 3", "text 50 120 \"DelY=320.0\" 48 #FF0000 wide 3",
                "text 50 180 \"MaxA=300.0\" 48 #FF0000 wide 3", "text 50 240 \"Catch=-0.0500\" 48 #0000FF wide 3",
                "text 50 300 \"MinY=-20.00\" 48 #0000FF wide 3", "text 50 360 \"Other=0.0000\" 48 #0000FF wide 3"});
    gIsValue = false;
    Panel.Sample(4, 90, 500);
    CHECK(Panel.Sample(5, 0, 0, true).size() == 1);
    gIsValue = true;
    Panel.Sample(6, 0, 0, true);
    CHECK(NumbersOf(Panel).starts_with("MinX=0.0000 MaxX=90.00 DelY=500.0 MaxA=500.0 "));
    Panel.Sample(7, 0, 10, true);
    CHECK(NumbersOf(Panel).starts_with("MinX=0.0000 MaxX=0.0000 DelY=0.0000 MaxA=10.00 "));
}

TEST_CASE("a stroke is scored against its model and marked in colours")
{
    // Catch at sample 5, finish at 25; force up to 100 from sample 9 to 21, linear at both ends.
    const auto Force = [](int i) { return i < 5 || i > 25 ? 0.0 : std::min({100.0, 25.0 * (i - 5), 25.0 * (25 - i)}); };
    LivePlot Lacking(ModelRow("Mod,U1,U2,D3", "0.14,0.72", "0,0.01")); // targets or deviations
    RowStroke(Lacking, Force);
    Lacking.Sample(30, 0, 0, true);
    CHECK(NumbersOf(Lacking) == "Mod=0.0000 U1=none U2=5.001 D3=none ");
    LivePlot Panel(ModelRow("Mod,U1,U2,D3,At,St,Odd,As", "0.14,0.72,0.24,300", "0.01,0.01,0.05,10"));
    gIsInd = gIsScore = true;
    gRate = 20;
    RowStroke(Panel, Force);
    const Texts Drawn = Panel.Sample(30, 0, 0, true);
    // The force crosses 70 at 2.8 samples from either end of the twenty.
    CHECK(NumbersOf(Panel) == "Mod=0.0000 U1=5.001 U2=5.001 D3=8.335 At=1.000 St=1.000 Odd=-1.000 As=11.00 ");
    const Texts Marks(Drawn.begin() + 2, Drawn.begin() + 5);
    CHECK(Marks == Texts{"text 350 40 \"5\" 30 #FF7F00 wide 3", "circle 700 40 10 #FF7F00 wide 3 #FF7F00",
                         "text 700 40 \"5.0\" 30 #FF7F00 wide 3"});
    CHECK(Drawn[9] == "circle 700 120 10 #00FF00 wide 3 #00FF00");
    CHECK(Drawn[12] == "circle 700 160 10 #FF0000 wide 3 #FF0000");
    CHECK(Drawn[17] == "text 350 40 \"-1\" 30 #FF0000 wide 3"); // in the colour of the key before
}

TEST_CASE("a mark is green above 7.5, orange above 4, else red, and no score leaves 1 to 10")
{
    const auto Force = [](int i) { return i < 5 || i > 25 ? 0.0 : std::min({100.0, 25.0 * (i - 5), 25.0 * (25 - i)}); };
    const std::tuple<double, const char*, const char*> Cases[] = {
        {0.2, "1.0", "#FF0000"}, {1.2, "1.2", "#FF0000"}, {3.99, "4.0", "#FF0000"}, {4.01, "4.0", "#FF7F00"},
        {4.9, "4.9", "#FF7F00"}, {5.1, "5.1", "#FF7F00"}, {7.49, "7.5", "#FF7F00"}, {7.51, "7.5", "#00FF00"},
        {9.9, "9.9", "#00FF00"}, {12, "10.0", "#00FF00"}};
    for (const auto& [Score, Shown, Colour] : Cases) {
        CAPTURE(Score);
        // The angle of 100 is rowed; a deviation of 1 around the target is worth 1.667.
        const double Target = 100 - (Score / 1.667 - 3);
        LivePlot Panel(ModelRow("Mod,At", FormatShortest(Target).c_str(), "1"));
        gIsInd = gIsScore = true;
        RowStroke(Panel, Force);
        const Texts Drawn = Panel.Sample(30, 0, 0, true);
        const std::string Pen = std::string(Colour) + " wide 3";
        CHECK(Drawn[3] == "circle 700 40 10 " + Pen + " " + Colour);
        CHECK(Drawn[4] == "text 700 40 \"" + std::string(Shown) + "\" 30 " + Pen);
    }
}

TEST_CASE("only a seat that turns ahead of the handle by less than 0.08 s is written in blue")
{
    const std::pair<double, bool> Cases[] = {{-0.09, false}, {-0.0801, false}, {-0.0799, true},
                                             {-0.001, true}, {0, false},       {0.05, false}};
    for (const auto& [Late, IsBlue] : Cases) {
        CAPTURE(Late);
        LivePlot Panel(PlainRow(1, "X,F", "Catch"));
        Panel.Sample(0, 0, 0, true);
        const auto Turn = [&](double Time, double X, double F) { Panel.Sample(Time, X, F); };
        if (Late < 0) Turn(2 + Late, 0, -50);
        Turn(2, -60, Late == 0 ? -50 : 0);
        if (Late > 0) Turn(2 + Late, 0, -50);
        const Texts Drawn = Panel.Sample(3, 0, 0, true);
        CHECK((Drawn.back().find("#0000FF") != std::string::npos) == IsBlue);
    }
}

TEST_CASE("a stroke that the model cannot measure has its first number only")
{
    const auto Even = [](int) { return 50.0; };
    const auto Early = [](int i) { return i == 3 ? 100.0 : 10.0; };
    const std::tuple<std::function<double(int)>, int> Cases[] = {
        {Even, 5}, {Even, 8}, {Early, 30}, {Even, 30}, {Even, 300}};
    for (const auto& [Force, Samples] : Cases) {
        CAPTURE(Samples);
        LivePlot Panel(ModelRow("Mod,U1,Odd", "0.1", "0.1"));
        for (int i = 0; i < 3; ++i) { // the room is used anew by every stroke
            RowStroke(Panel, Force, std::min(Samples, 200));
            if (Samples > 200) RowStroke(Panel, Force, Samples - 200);
            Panel.Sample(300, 0, 0, true);
            CHECK(NumbersOf(Panel) == "Mod=0.0000 U1=none Odd=none ");
        }
    }
}

TEST_CASE("the acceleration model writes the rise behind the lowest value in one line")
{
    // At rate 40 and a step of 0.05 s the peak is looked for from sample 2 to 4 behind the lowest one.
    const double Curve[] = {0, 0, 0, -8, -5, -2, 1, 4, 9, 9, 9, 9};
    LivePlot Panel(ModelRow("Mod,As", "", ""));
    gRate = 40;
    gTimeStep = 0.05;
    for (int i = 0; i < 12; ++i)
        Panel.Sample(i, i, Curve[i]);
    Panel.Cur = 0;
    const Texts Drawn = Panel.Sample(12, 0, 0, true);
    CHECK(Drawn[1] == "text 700 40 \"F=42.0, Min=-8.0, Max=4.0, DA=12.0\" 30 #000000 wide 3");
    CHECK(NumbersOf(Panel) == "Mod=0.0000 As=42.00 ");
    // Two samples behind the room cost a turn only, which this model does not need.
    const std::pair<int, const char*> Lengths[] = {{258, "Mod=0.0000 As=42.00 "}, {259, "Mod=0.0000 As=none "}};
    for (const auto& [Samples, Numbers] : Lengths) {
        for (int i = 0; i < Samples - 1; ++i, Panel.Cur = 0)
            Panel.Sample(i, i, i < 12 ? Curve[i] : 0);
        Panel.Sample(Samples, 0, 0, true);
        CHECK(NumbersOf(Panel) == Numbers);
    }
}

TEST_CASE("a bad row loses its curve or numbers and nothing else")
{
    ViewRow Rows[] = {PlainRow(0, "X,F"),
                      PlainRow(1, "X,F"),
                      PlainRow(0, ""),
                      PlainRow(1, "None,F"),
                      PlainRow(1, "X,None", "MaxY,Catch"),
                      PlainRow(7, "X,F"),
                      PlainRow(1, "X", "Mod"),
                      PlainRow(1, "X,F", ",,"),
                      PlainRow(1, "X,F,F,F,F,F,F,F,F,F,F,F,F,F,F,F,F,F,F,F,F,F")};
    Rows[0].Oper = -3;
    Rows[1].MaxXPar = Rows[1].MinXPar;
    Rows[1].MaxYPar = Rows[1].MinYPar = 50;
    Rows[1].Color = -7;
    for (const ViewRow& Row : Rows) {
        CAPTURE(Row.Arguments);
        LivePlot Panel(Row);
        for (int i = 0; i < 200; ++i)
            Panel.Sample(i, i * 1e300, 50, i % 60 == 0);
        CHECK(Panel.Sample(200, 1, 1).size() <= 1);
    }
}

TEST_CASE("a loaded table is drawn at the play row, as dots when asked")
{
    gRaw.Create(3, 4);
    for (int i = 0; i <= 4; ++i) {
        gRaw(1, i) = 10 * i;
        gRaw(2, i) = 100 * i;
    }
    LivePlot Lines4(PlainRow(1, "X,F"), SourceTable);
    gPlayIdx = 2;
    CHECK(Lines4.Sample(0, 0, 0) == Texts{"line 600 400 600 400 #FF0000 wide 3"});
    gPlayIdx = 5;
    CHECK(Lines4.Sample(0, 0, 0) == Texts{"line 600 400 600 400 #FF0000 wide 3"});
    gPlayIdx = 4;
    LivePlot Dots(PlainRow(1, "X,F"), SourceDots);
    gIsCurves = false;
    CHECK(Dots.Sample(0, 0, 0) == Texts{"point 700 200 #FF0000 wide 3"});
}

TEST_CASE("the figure is drawn over its last place once something has placed it")
{
    ViewRow Row = PlainRow(1, "X,F");
    Row.Oper = 11;
    LivePlot Panel(Row);
    CHECK(Panel.Scales.size() == 1);
    CHECK(Panel.Sample(0, 0, 0).empty());
    std::array<SurfacePoint, 16> Joints{};
    Joints[9] = {30, 40};
    Panel.Plot.SetFigure(Joints);
    CHECK(Panel.Sample(1, 0, 0)[1] == "circle 30 40 0 #FF0000 wide 3 empty");
    const auto Second = Panel.Sample(2, 0, 0);
    CHECK(Second.size() == 10);
    CHECK(Second[1] == "circle 30 40 0 #FFFFFF wide 3 empty");
    gFile.Crew.Grow().Head = 0.75F; // m, of the first rower
    gFile.Crew.Grow().Head = 8;
    Panel.Plot.InitViewID(1, SourceFrames);
    Panel.Plot.SetScales();
    CHECK(Panel.Sample(3, 0, 0)[1 + 6] == "circle 30 40 0.9375 #FF0000 wide 3 empty");
}
