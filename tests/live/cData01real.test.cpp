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
