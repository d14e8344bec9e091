// The calibration workbench: points, line, curves and tables against numbers found another way, and what is kept.
#include "calibration/cCalibr.h"

#include "acquisition/mComFast.h"
#include "calibration/mRefBuild.h"
#include "core/mIni.h"
#include "files/mTextIO.h"
#include "processing/mPhysVal.h"
#include "support/Case.h"
#include "support/TestClock.h"

#include <chrono>
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace {
// A session of three channels in a folder of its own, an open link, and a workbench.
struct Bench : FreshState
{
    TestClock Clock;
    cCalibr Work;

    Bench()
    {
        gHost.Clock = &Clock;
        gFile = DataFile{};
        gFile.Model = 61;
        for (const char* Name : {"A1", "H1", "Cal"}) {
            CalibrRow& Row = gFile.Calibr.Grow();
            Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Row.ParamID = Name;
            Row.SensorID = std::string(Name) + "s";
            Row.Min = 0;
            Row.Max = 100;
            Row.Log0 = 33;
        }
        gFile.ChanCnt = 3;
        gDeltaT = 0.02;
        SetCurFile(Folder.Path("s.txt"));
        REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
        gLinkWatch.Opened("link", 0);
    }
    ~Bench() { gLinkWatch.Closed(); }

    void Start(const char* Chan)
    {
        Work.SetBox(BoxChan, Chan);
        REQUIRE(Work.StartData());
    }

    bool Point(double Count, double Phys, double Calibrator = 0)
    {
        gData[2] = Count;
        gData[3] = Calibrator;
        Work.SetBox(BoxPhys, FormatShortest(Phys));
        return Work.DrawData() || Work.PutDataPoint();
    }

    void Load(const std::string& Name, const CalPoints& Points)
    {
        RawCal Data;
        Data.Chan = 2;
        Data.SensID = "S7";
        Data.Points = Points;
        REQUIRE(SaveRawCal(Folder.Path(Name), Data));
        REQUIRE(Work.LoadRawCalData(Folder.Path(Name)));
    }
};

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

int64_t NowMicroseconds()
{
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::microseconds(1);
}

double CurveCount(double P)
{
    return 8000 + 60 * P + 0.3 * P * P + 400 * std::sin(P / 20);
}

CalPoints Sweep(double From, double To, int Count, double Noise)
{
    std::mt19937 Random(7);
    CalPoints Points;
    for (int i = 0; i < Count; ++i) {
        const double P = From + (To - From) * i / (Count - 1);
        Points.push_back({CurveCount(P) + Noise * (static_cast<double>(Random() % 2001) / 1000 - 1), P});
    }
    return Points;
}
} // namespace

TEST_CASE_FIXTURE(Bench, "typed values and counts make a line, a count of 0 included, but without frames there is none")
{
    CHECK_FALSE(Work.PutDataPoint());
    Start("2");
    CHECK_FALSE(Work.PutDataPoint()); // no frame yet
    CHECK(Point(0, -50));
    CHECK(Work.Box(BoxQ1) == "0.000000000");
    CHECK(Point(1000, 75));
    CHECK(Work.Box(BoxQ0) == "-50.000000");
    CHECK(Work.Box(BoxQ1) == "0.125000000");
    CHECK(Work.Box(BoxR2) == "1.000000");
    CHECK(Point(3000, 300));
    // Sums by hand: n 3, L 4000, P 325, LP 975000, LL 1e7, PP 98125.
    CHECK(Work.Line().Q1 == doctest::Approx((3 * 975000 - 4000 * 325) / 14e6));
    CHECK(Work.Line().Q0 == doctest::Approx((1e7 * 325 - 975000 * 4000.0) / 14e6));
    CHECK(Work.Line().R2 == doctest::Approx(1625000.0 * 1625000 / (14e6 * (3 * 98125 - 325 * 325))));
    gLinkWatch.Closed();
    CHECK_FALSE(Point(4000, 1));
    Work.DelAllPoints();
    CHECK(Work.Points().empty());
    CHECK(Work.Box(BoxMinP) == "-50.00");
    CHECK(Work.Box(BoxMaxP) == "300.00");
    Work.UndoPoints();
    CHECK(Work.Points().size() == 3);
    CHECK(Work.Box(BoxQ1) == "0.116071429");
    Dialogs.AnswerYes = false;
    CHECK_FALSE(Work.CheckModified());
    Work.SetBox(BoxChan, "9");
    CHECK_FALSE(Work.StartData());
    CHECK(Work.Chan() == 2);
}

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
        CHECK_FALSE(Work.DrawData());
        Work.Space();
        CHECK(Work.DrawData());
        CHECK(Work.Box(BoxPhys) == "100.00");
        gData[2] = 0;
        CHECK_FALSE(Work.DrawData());
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
    CHECK_FALSE(Work.DrawData());
}

TEST_CASE_FIXTURE(Bench, "without a calibrator or a lever nothing is taken, though automatic is chosen while data come")
{
    for (const int16_t Calibrator : {int16_t{0}, int16_t{3}, int16_t{3000}}) {
        Work.SetFlag(FlagAutomatic, false);
        gAutoCalCh = Calibrator;
        Start("2");
        CHECK(Point(700, 5));
        const std::size_t Count = Work.Points().size();
        Work.SetFlag(FlagTorque, Calibrator == 3);
        Work.SetBox(BoxPhys, "0");
        Work.SetFlag(FlagAutomatic, true);
        Work.Space();
        gData = {99, 1, 700, 120};
        CHECK_FALSE(Work.DrawData());
        CHECK_FALSE(Work.PutDataPoint());
        CHECK(Work.Points().size() == Count);
    }
    CHECK(Dialogs.Told.size() == 3);
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

TEST_CASE_FIXTURE(Bench, "saved points come back one by one, the session takes what stands in the boxes")
{
    Start("2");
    for (int i = 0; i < 12; ++i)
        CHECK(Point(1000 + 250 * i, -3.25 + 8.5 * i + 0.01 * i * i));
    Work.SetApprox(ApproxOneLine);
    REQUIRE(Work.AnalyseArr());
    Work.SetBox(BoxThreshold, "12.5");
    Work.SetBox(BoxQ0, "-40");
    for (int Times = 0; Times < 3; ++Times)
        REQUIRE(Work.Save());
    const CalPoints Taken = Work.Points();
    CHECK(Work.CheckModified());
    const std::string Bytes = ReadWhole(Folder.Path("s_02_H1s_02.xcl")).value_or("");
    CHECK(Bytes.starts_with(
        "Raw Calibration Data\r\n17/05/24\t02\tH1\tManual\tFreq=\t50.0000\tQ0=\t-40.0000\tQ1=\t0.0344"));
    CHECK(Bytes.find("\tLever=\t0.000000\tSensID=\tH1s\t\r\n0\t-3.25000\t1000.00\t\r\n1\t5.26000\t1250.00\t\r\n") !=
          std::string::npos);

    REQUIRE(ReadDataFile(gCurFile, gFile, SectionFilter::Any));
    const CalibrRow& Row = gFile.Calibr[2];
    CHECK(std::tuple(Row.Q0, Row.ProcMode, Row.Threshold) == std::tuple(-40.0, 1, 12.5));
    CHECK(Row.Qup1 == doctest::Approx(Work.Analysis().Up.Q[1]).epsilon(1e-5));
    double Prev = 0;
    CHECK(CalcPhysVal(2, 2000, Prev) == doctest::Approx(-3.25 + 8.5 * 4 + 0.16).epsilon(1e-4));

    REQUIRE(Work.LoadRawCalData(Folder.Path("s_02_H1s.xcl")));
    CHECK(Work.Points() == Taken);
    CHECK_FALSE(Work.IsAnalysed());
    REQUIRE(Work.SaveRawCalData(Folder.Path("again.xcl"))); // a loaded file's last point is not stored again
    REQUIRE(Work.LoadRawCalData(Folder.Path("again.xcl")));
    CHECK(Work.Points().size() == 11);
    Load("other.xcl", {{10, 2}, {20, 4}}); // with extremes of its own
    CHECK(Work.Box(BoxMinP) == "2.00");
    CHECK(Work.Box(BoxMaxP) == "4.00");
    REQUIRE(Work.LoadRawCalData(Folder.Path("again.xcl")));
    REQUIRE(SaveWhole(Folder.Path("other.xcl"), "Raw Data\r\n"));
    CHECK_FALSE(Work.LoadRawCalData(Folder.Path("other.xcl")));
    CHECK(Dialogs.Told.back() == "Error: " + Folder.Path("other.xcl") + " is not a Calibration Data File.");
    CHECK(Work.Points().size() == 11);
}

TEST_CASE_FIXTURE(Bench, "a channel never gets what was fitted for another use or channel, nor half of a failed save")
{
    Start("2");
    for (int i = 0; i < 12; ++i)
        CHECK(Point(1000 + 250 * i, 8.5 * i + 0.01 * i * i));
    Work.SetApprox(ApproxOneLine);
    REQUIRE(Work.AnalyseArr());
    Work.SetApprox(ApproxTwoLines);
    CHECK_FALSE(Work.SaveData()); // would be read by a falling curve of zeros
    CHECK(gFile.Calibr[2].ProcMode == 0);
    Work.SetApprox(ApproxOneLine);
    REQUIRE(Work.SaveData());
    CHECK(Point(5000, 104));
    CHECK(Work.State().find("13 points, not saved, newer than the analysis") != std::string::npos);

    Work.DelAllPoints();
    Start("1");
    Work.UndoPoints();
    CHECK(Work.Chan() == 2);
    CHECK(Work.SensID() == "H1s");
    Work.SetApprox(ApproxLinear);
    gCurDir = Folder.Path("gone/");
    gCurFile = gCurDir + "s.txt";
    CHECK_FALSE(Work.Save());
    CHECK(gFile.Calibr[2].ProcMode == 1);
    SetCurFile(Folder.Path("s.txt"));
    Work.SetSensID("a/b");
    CHECK_FALSE(Work.Save());
    Work.SetSensID("H1s");
    REQUIRE(Work.SaveData()); // asks whether the new line is what counts
    CHECK(Dialogs.Told.back().find("read by a curve") != std::string::npos);
    CHECK(gFile.Calibr[2].ProcMode == 0);
}

TEST_CASE_FIXTURE(Bench, "a table finds the curve again that its points were taken from, after opening the session too")
{
    Load("sweep.xcl", Sweep(-60, 60, 3000, 3));
    REQUIRE(Work.FindLimits());
    CHECK(Val(Work.ArrMin()) == doctest::Approx(-56));
    Work.SetArrMin("-50");
    Work.SetArrMax("50");
    Work.SetSensID(" S7 "); // blanks that the session does not keep
    REQUIRE(Work.CreateRefTable3());
    CHECK(Dialogs.Told.empty());
    CHECK(Work.Points().front().P >= -50);
    CHECK(Work.Points().back().P <= 50);
    for (const bool IsOpened : {false, true}) {
        if (IsOpened) REQUIRE(ReadDataFile(gCurFile, gFile, SectionFilter::Any));
        CHECK(gFile.Calibr[2].Max == 50);
        for (double P = -49; P <= 49; P += 0.7) {
            double Prev = 0;
            CAPTURE(P);
            CHECK(std::fabs(CalcPhysVal(2, CurveCount(P), Prev) - P) < 0.02); // a count is 0.016
        }
    }
    Work.SetArrMax("400");
    Dialogs.AnswerYes = false;
    CHECK_FALSE(Work.CreateRefTable3()); // most steps have no points, and that is asked
    Work.SetArrMin("300");
    CHECK_FALSE(Work.CreateRefTable3());
    CHECK(Work.Analys() == "Too few points");
    CHECK(gFile.Calibr[2].Max == 50);
}

TEST_CASE_FIXTURE(Bench,
                  "a table that cannot be saved with its session leaves both files and the values read as they were")
{
    Load("sweep.xcl", Sweep(-60, 60, 3000, 3));
    Work.SetArrMin("-50");
    Work.SetArrMax("50");
    REQUIRE(Work.CreateRefTable3());
    const std::string Table = *ReadWhole(Folder.Path("S7.ref"));
    const std::string Session = *ReadWhole(gCurFile);
    const auto Read = [] {
        double Prev = 0;
        return CalcPhysVal(2, CurveCount(20), Prev);
    };
    const double Former = Read();
    CHECK(Former == doctest::Approx(20).epsilon(1e-3));
    CalPoints Shifted = Sweep(-60, 60, 3000, 3);
    for (CalPoint& Each : Shifted)
        Each.L += 500;
    Load("shifted.xcl", Shifted);
    gCurFile = Folder.Path("gone/s.txt"); // its folder is not there, that of the table is
    CHECK_FALSE(Work.CreateRefTable3());
    CHECK(ReadWhole(Folder.Path("S7.ref")) == Table);
    gCurFile = Folder.Path("s.txt");
    std::filesystem::remove(Folder.Path("S7.ref"));
    std::filesystem::create_directory(Folder.Path("S7.ref")); // no table can be written or read
    CHECK_FALSE(Work.CreateRefTable3());
    CHECK(ReadWhole(gCurFile) == Session);
    CHECK(Read() == Former);
    CHECK(gFile.Calibr[2].Max == 50);
    CHECK(Work.Points().size() == 3000);
    std::filesystem::remove(Folder.Path("S7.ref"));
    REQUIRE(Work.CreateRefTable3());
    CHECK(std::fabs(Read() - Former) > 1);
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

TEST_CASE_FIXTURE(Bench, "a kill at any instant of a save leaves the session whole, and with new values its points")
{
    Load("sweep.xcl", Sweep(-60, 60, 2000, 0));
    const std::string Old = *ReadWhole(gCurFile);
    const int64_t Begin = NowMicroseconds();
    REQUIRE(Work.Save());
    const int64_t Whole = NowMicroseconds() - Begin;
    int Changed = 0;
    for (int Kill = 0; Kill <= 30; ++Kill) {
        std::filesystem::remove(Folder.Path("s_02_S7.xcl"));
        REQUIRE(SaveWhole(gCurFile, Old));
        const pid_t Child = fork();
        if (Child == 0) {
            Work.Save();
            _exit(0);
        }
        usleep(static_cast<useconds_t>(Whole * Kill / 25));
        if (Kill < 30) kill(Child, SIGKILL); // the last one is left to end
        waitpid(Child, nullptr, 0);
        DataFile Left;
        REQUIRE(ReadDataFile(gCurFile, Left, SectionFilter::Any));
        REQUIRE(Left.Calibr.UBound() == 3);
        for (const auto& Each : std::filesystem::directory_iterator(Folder.Path("")))
            if (Each.path().extension() == ".xcl") CHECK(LoadRawCal(Each.path().string())->Points.size() >= 1999);
        if (Left.Calibr[2].Q1 == 0) continue;
        ++Changed;
        CHECK(std::filesystem::exists(Folder.Path("s_02_S7.xcl")));
    }
    MESSAGE(Changed << " of 31 saves had changed the session");
    CHECK(Changed > 0);
}
