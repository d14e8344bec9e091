// What the graph of the workbench draws, call by call.
#include "calibration/cCalGraph.h"

#include "calibration/CalBench.h"
#include "support/Golden.h"
#include "support/SurfaceLog.h"

TEST_CASE_FIXTURE(Bench, "the graph draws grid, numbers, points, line and curves as in the golden list")
{
    SurfaceLog Surface(640, 480);
    cCalGraph Graph(Surface, Work);
    Graph.Draw(); // without points
    Work.SetBox(BoxChan, "2");
    CalPoints Points = Sweep(0, 100, 12, 40);
    for (double P = 90; P >= 0; P -= 10)
        Points.push_back({CurveCount(P) - 300, P});
    Load("c.xcl", Points);
    for (const eApprox Mode : {ApproxLinear, ApproxOneLine, ApproxTwoLines, ApproxRefTable}) {
        Work.SetApprox(Mode);
        Work.AnalyseArr();
        Graph.Draw();
    }
    CheckGolden("cal-graph.txt", Surface.Take());
    // The place of the third point, as the list has it, and a place without a point.
    CHECK(Graph.TextAt(0, 0).empty());
}

TEST_CASE_FIXTURE(Bench, "points taken one by one are added to the graph as in the golden list")
{
    SurfaceLog Surface(640, 480);
    cCalGraph Graph(Surface, Work);
    Start("2");
    Graph.Draw();
    for (const auto& [Count, Phys] : {std::pair{100.0, 0.0}, {600.0, 5.2}, {1100.0, 9.9}, {5000.0, 48.0}}) {
        REQUIRE(Point(Count, Phys));
        Graph.AddPoints();
    }
    CheckGolden("cal-points.txt", Surface.Take());
}
