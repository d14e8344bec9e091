// Channels on the calibration rig, as they come out of a recording, against the rig's own curve.
#include "calibration/mCalFit.h"
#include "calibration/mRefBuild.h"
#include "files/mBinIO.h"
#include "files/mMain.h"
#include "sim/mRecord.h"
#include "sim/mRigOption.h"
#include "support/Case.h"

#include <cmath>

namespace {
constexpr const char* Bowed = "H1=0,150,300,450,600,450,300,150,hold=1,ramp=1,noise=2,hyst=4,bend=5,wave=1,q1=0.09,"
                              "q0=-140,calibrator=H2";
constexpr int H1 = 18, H2 = 26, A1 = 19, A2 = 27;

SimOptions Recorded(const TempFolder& Folder, const char* Rig)
{
    REQUIRE(OpenSession(SOURCE_FOLDER "/demo/eight.txt"));
    SimOptions Options;
    Options.Session = SOURCE_FOLDER "/demo/eight.txt";
    Options.Recording = Folder.Path("rig.qvn");
    Options.Truth = Folder.Path("truth.txt");
    Options.Seconds = 32;
    Options.Freq = 50;
    REQUIRE(TakeRig(Options.Logger.Rigs.emplace_back(), Rig));
    REQUIRE(!RecordFile(Options, gFile).empty());
    return Options;
}
} // namespace

TEST_CASE_FIXTURE(FreshState,
                  "the counts of a recording on the rig lie on its own curve, and the calibrator shows the loads")
{
    const SimOptions Options = Recorded(Folder, Bowed);
    const cRig Rig(Options.Logger.Rigs[0], gFile, 16383);
    int32_t Start = 0, Stop = 0;
    REQUIRE(ReadRawFile(Options.Recording, Start, Stop));
    double Square = 0, Calibrator = 0;
    int Settled = 0;
    for (int i = 0; i <= gRaw.UBound(); ++i) {
        const double T = i / 50.0;
        const bool IsRising = std::fmod(T, 16) < 8;
        Calibrator = std::max(Calibrator, std::fabs(gRaw(H2, i) - Rig.Load(T)));
        // Behind a turn the play, 24 units, is used up ahead of the curve: 150 units take a second.
        if (std::fmod(T, 8) < 1.2) continue;
        const double Count = (gRaw(H1, i) - gFile.Calibr[H1].Q0) / gFile.Calibr[H1].Q1;
        const double Error = (IsRising ? Rig.Rising(Count) : Rig.Falling(Count)) - Rig.Load(T);
        Square += Error * Error;
        ++Settled;
    }
    REQUIRE(Settled > 1000);
    const double Noise = std::sqrt(2 * 2 + 1 / 12.0) * 0.09; // with that of the rounding
    CHECK(std::sqrt(Square / Settled) == doctest::Approx(Noise).epsilon(0.1));
    CHECK(Calibrator < 4 * 2 * gFile.Calibr[H2].Q1);
    CHECK(ReadWhole(Options.Truth).value().starts_with("Chan\tCount\tRising\tFalling\nH1\t"));
    CHECK(gRaw(17, 5) == doctest::Approx(0).epsilon(0.02)); // nobody rows
}

TEST_CASE_FIXTURE(FreshState, "a rig that the logger or the words do not allow is reported")
{
    RigSettings Any;
    for (const char* Wrong : {"H1", "H1=", "=1,2", "H1=1,x", "H1=1,hold=0,ramp=0", "H1=1,hyst=30", "H1=1,what=2"})
        CHECK_FALSE(TakeRig(Any, Wrong));
    REQUIRE(OpenSession(SOURCE_FOLDER "/demo/eight.txt"));
    for (const char* Wrong : {"H1=0,9000", "H9=0", "999=0", "H1=0,calibrator=18", "H1=0,q1=0"}) {
        CAPTURE(Wrong);
        SimOptions Options;
        LoggerSettings Used;
        REQUIRE(TakeRig(Options.Logger.Rigs.emplace_back(), Wrong));
        CHECK(SettleLogger(Options, gFile, Used) != "");
    }
}

namespace {
// Points as the workbench takes them from frames: counts of H1 or A1 against its calibrator's values.
CalPoints PointsOf(const SimOptions& Options, int Chan, int Calibrator)
{
    int32_t Start = 0, Stop = 0;
    REQUIRE(ReadRawFile(Options.Recording, Start, Stop));
    CalPoints Points;
    for (int i = 0; i <= gRaw.UBound(); ++i)
        Points.push_back(
            {RoundHalfEven((gRaw(Chan, i) - gFile.Calibr[Chan].Q0) / gFile.Calibr[Chan].Q1), gRaw(Calibrator, i)});
    return Points;
}

// The greatest distance of a found curve from the true one over the counts from Low to High.
template <class Found, class True>
double Farthest(double Low, double High, const Found& F, const True& T)
{
    double Most = 0;
    for (int i = 0; i <= 100; ++i)
        Most = std::max(Most, std::fabs(F(Low + (High - Low) * i / 100) - T(Low + (High - Low) * i / 100)));
    return Most;
}
} // namespace

TEST_CASE_FIXTURE(FreshState, "a line, two curves and a reference table come closer to the rig's own than its noise")
{
    const SimOptions Straight =
        Recorded(Folder, "H1=0,150,300,450,600,hold=1,ramp=0,noise=2,q0=-160,q1=0.1,calibrator=H2");
    const CalLine Line = SumsOf(PointsOf(Straight, H1, H2)).Line();
    const cRig Plain(Straight.Logger.Rigs[0], gFile, 16383);
    const double OffLine = Farthest(
        1600, 7600, [&](double L) { return Line.Q0 + Line.Q1 * L; }, [&](double L) { return Plain.Rising(L); });
    MESSAGE("line: ", OffLine, " N at the most; a count is 0.1 N, the noise 0.2 N");
    CHECK(OffLine < 0.2);

    const SimOptions Loop =
        Recorded(Folder, "H1=0,600,hold=0,ramp=8,noise=2,hyst=4,bend=5,q0=-160,q1=0.1,calibrator=H2");
    const CalAnalysis Two = AnalyseTwoLines(PointsOf(Loop, H1, H2), 0.08);
    const cRig Worn(Loop.Logger.Rigs[0], gFile, 16383);
    const auto Up = [&](double L) { return CurveAt(Two.Up.Q, L); };
    const auto Down = [&](double L) { return CurveAt(Two.Down.Q, L); };
    const double OffUp = Farthest(2000, 7000, Up, [&](double L) { return Worn.Rising(L); });
    const double OffDown = Farthest(2000, 7000, Down, [&](double L) { return Worn.Falling(L); });
    MESSAGE("two curves: ", OffUp, " and ", OffDown, " N at the most");
    CHECK(OffUp < 0.2);
    CHECK(OffDown < 0.2);

    const SimOptions Bent =
        Recorded(Folder, "A1=-60,40,hold=0,ramp=16,noise=2,bend=5,wave=1,q0=-80,q1=0.01,calibrator=A2");
    RefTable Table;
    CHECK(BuildRefTable(PointsOf(Bent, A1, A2), -56, 36, Table) == 0);
    const cRig Oar(Bent.Logger.Rigs[0], gFile, 16383);
    double OffTable = 0;
    for (std::size_t i = 0; i <= RefTable::MaxRow; ++i)
        OffTable = std::max(OffTable, std::fabs(Oar.Rising(Table.X[i]) - Table.Y[i]));
    MESSAGE("table: ", OffTable, " degrees at the most; a count is 0.01, the noise 0.02 degrees");
    CHECK(OffTable < 0.02);
}
