// Channels on the calibration rig, as they come out of a recording, against the rig's own curve.
#include "core/mMain.h"
#include "files/mBinIO.h"
#include "sim/mRecord.h"
#include "sim/mRigOption.h"
#include "support/Case.h"

#include <cmath>

namespace {
constexpr const char* Bowed = "H1=0,150,300,450,600,450,300,150,hold=1,ramp=1,noise=2,hyst=4,bend=5,wave=1,q1=0.09,"
                              "q0=-140,calibrator=H2";
constexpr int H1 = 18, H2 = 26;

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

TEST_CASE_FIXTURE(FreshState, "a rig that the logger or the words do not allow is told")
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
