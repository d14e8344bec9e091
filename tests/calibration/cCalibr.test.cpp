// The calibration workbench: points, line and curves against numbers found another way.
#include "CalBench.h"

namespace {
// Least squares by the normal equations, solved by determinants about the middle of X.
std::array<double, 3> Quadratic(const CalPoints& Points)
{
    double S[5] = {}, T[3] = {}, Mid = 0;
    for (const CalPoint& Each : Points)
        Mid += Each.L / static_cast<double>(Points.size());
    for (const CalPoint& Each : Points) {
        double Power = 1;
        for (int k = 0; k < 5; ++k, Power *= Each.L - Mid) {
            S[k] += Power;
            if (k < 3) T[k] += Power * Each.P;
        }
    }
    const auto Det = [](const double* A, const double* B, const double* C) {
        return A[0] * (B[1] * C[2] - B[2] * C[1]) - B[0] * (A[1] * C[2] - A[2] * C[1]) +
               C[0] * (A[1] * B[2] - A[2] * B[1]);
    };
    const double D = Det(S, S + 1, S + 2);
    const double A = Det(T, S + 1, S + 2) / D, B = Det(S, T, S + 2) / D, C = Det(S, S + 1, T) / D;
    return {A - B * Mid + C * Mid * Mid, B - 2 * C * Mid, C};
}

void CheckCurve(const CalCoefs& Q, const CalPoints& Points)
{
    const auto Expected = Quadratic(Points);
    for (const double L : {500.0, 2000.0, 8000.0})
        CHECK(CurveAt(Q, L) == doctest::Approx(CurveAt(Expected, L)).epsilon(1e-9));
}
} // namespace

TEST_CASE_FIXTURE(Bench, "the calibrator made last for a channel gives the values, by the lever typed, frame by frame")
{
    gCalibrSens = {};
    gCalibrSens[1] = {true, "old", 1, 5, 6, 2};
    gCalibrSens[3] = {true, "new", 3, -10, 0.5, 2};
    gAutoSwitchCal = 1;
    Work.SetFlag(FlagAutomatic, true);
    Work.SetFlag(FlagTorque, true);
    Work.SetBox(BoxPhys, "2");
    for (int Times = 0; Times < 2; ++Times) { // the lever is not lost under the values shown
        Start("2");
        CHECK(Work.Caption() == "Auto-Calibration with channel #3");
        gData[2] = 700;
        gData[3] = 120;
        CHECK_FALSE(Work.TakeSample());
        Work.Space();
        CHECK(Work.TakeSample());
        CHECK(Work.Box(BoxPhys) == "100.00");
        gData[2] = 0;
        CHECK_FALSE(Work.TakeSample());
        gLinkWatch.Closed();
        Work.StopData();
        gLinkWatch.Opened("link", 0);
    }
    CHECK(Work.Points() == CalPoints{{700, 100}, {700, 100}});
    gAppDir = Folder.Path("");
    Start("2");
    Work.Space();
    Work.SetBox(BoxQ1, "0.5");
    REQUIRE(Work.SetAutoCal()); // its factors count from the next start on
    gData[2] = 800;
    CHECK_FALSE(Work.TakeSample());
}

TEST_CASE("curves are those of least squares through the points that count, and too few change nothing")
{
    CalPoints Points;
    for (int i = 0; i <= 40; ++i)
        Points.push_back({100.0 * i + 17 * (i % 3), 2.0 * i + 0.1 * (i % 4) + 0.004 * i * i});
    Points.push_back({50, 300});                  // beyond the range
    Points.insert(Points.begin() + 5, {9000, 5}); // chosen, but not the first of them
    const CalAnalysis One = AnalyseOneLine(Points, 0, 80, 0.1);
    REQUIRE(One.IsDone);
    CalPoints Fitted;
    for (const CalPoint& Each : Points)
        if (Each.P >= 8 && Each.P <= 72) Fitted.push_back(Each);
    CHECK(One.Up.Points == Fitted);
    Fitted.erase(Fitted.begin());
    Fitted.pop_back();
    CheckCurve(One.Up.Q, Fitted);
    CHECK(One.Text.find("\r\nQ1 = " + FormatSig(One.Up.Q[1], 8) + "\r\n") != std::string::npos);

    CalPoints Round, Rise, Fall;
    for (int i = 0; i <= 60; ++i) {
        const double P = i <= 30 ? 10.0 * i : 10.0 * (60 - i);
        Round.push_back({500 + 12 * P + 0.002 * P * P + (i <= 30 ? 0 : 60) + i % 3, P});
        if (i > 0 && i < 29) Rise.push_back(Round.back());
        if (i > 30 && i < 59) Fall.push_back(Round.back());
    }
    const CalAnalysis Two = AnalyseTwoLines(Round, 0);
    REQUIRE(Two.IsDone);
    CHECK(Two.Up.Points.size() == 29);
    CHECK(Two.Down.Points.size() == 29);
    CheckCurve(Two.Up.Q, Rise);
    CheckCurve(Two.Down.Q, Fall);
    // By hand, with an N of 4 for three points.
    CHECK(CalcCorrel(CalPoints{{0, 1}, {1, 2}, {2, 4}}, {1, 1, 0.5}) == doctest::Approx(44.5 / std::sqrt(35 * 56.75)));

    CHECK(AnalyseOneLine(CalPoints(Points.begin(), Points.begin() + 4), -1, 500, 0).Text == "Too few points");
    CHECK(AnalyseTwoLines(CalPoints(Points.begin(), Points.begin() + 20), 0).Text == "Too few points");
    CHECK_FALSE(AnalyseOneLine(CalPoints(9, {500, 20}), 0, 80, 0).IsDone);
    CHECK_FALSE(AnalyseOneLine(CalPoints{{1, 1}, {1e200, 2}, {2e200, 3}, {5e200, 4}, {9e200, 5}}, 0, 80, 0).IsDone);
}

TEST_CASE_FIXTURE(Bench, "points with as much fall as rise have curves, though the slope of their line is exactly 0")
{
    CalPoints Valley;
    for (int i = -10; i <= 10; ++i)
        Valley.push_back({5000.0 + 100 * i, 0.5 * i * i});
    Valley.push_back(Valley.back()); // the last one is not used
    Load("valley.xcl", {Valley.begin(), Valley.end() - 1});
    REQUIRE(Work.Line().Q1 == 0);
    Work.SetApprox(ApproxOneLine);
    REQUIRE(Work.AnalyseArr());
    CheckCurve(Work.Analysis().Up.Q, Valley);
    Dialogs.AnswerYes = false;
    REQUIRE(Work.SaveData()); // a slope that is not used is not asked for
    double Prev = 0;
    CHECK(CalcPhysVal(2, 5600, Prev) == doctest::Approx(18));
    Work.SetApprox(ApproxLinear);
    CHECK_FALSE(Work.AnalyseArr());
}
