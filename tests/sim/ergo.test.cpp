// Recordings of the demonstration ergometer through its panel, against the table of what was simulated.
#include "TruthNumbers.h"
#include "files/mBinIO.h"
#include "files/mTextIO.h"
#include "live/ergo/cErg.h"
#include "sim/mRecord.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"

namespace {
// Times of the panel's turns, of its strokes, and their figures.
struct Seen
{
    std::vector<ErgStroke> Strokes;
    std::vector<double> Finishes; // s
    std::vector<double> CF;
    std::vector<double> FF;
};

Seen PlayThrough(const std::string& Path)
{
    SurfaceLog Log(1000, 600);
    cErg Panel(Log);
    Panel.Load();
    cErg::InitMode();
    REQUIRE(OpenScanFile(Path));
    Seen Found;
    while (const auto Taken = gScanFile.Take()) {
        REQUIRE(DecodeLive(FrameSource::Replay, *Taken, gScanStream));
        Panel.TakeSample();
        if (Panel.Newest().Stroke && Panel.Stroke().IsWhole) {
            Found.Strokes.push_back(Panel.Stroke());
            Found.Finishes.push_back(gData[0]);
        }
        if (Panel.Newest().CF && Panel.CatchFactor() == Panel.CF()) Found.CF.push_back(Panel.CF());
        if (Panel.HandleTiming().Newest().FF) Found.FF.push_back(Panel.HandleTiming().FinishFactor()->Last);
    }
    CloseScanFile();
    return Found;
}

// Columns of the table.
enum eColumn : std::size_t
{
    CatchT = 4,
    FinishT = 5,
    DriveT = 6,
    Length = 9,
    MaxForce = 10,
    SeatTurnT = 11,
    TrunkTurnT = 12,
    Work = 13
};

// Mean time in ms from one column to another.
double MeanStep(const Table& Truth, eColumn From, eColumn To)
{
    double Sum = 0;
    for (const auto& Row : Truth)
        Sum += Row[To] - Row[From];
    return Sum * 1000 / static_cast<double>(Truth.size());
}

double Mean(const std::vector<double>& Values)
{
    double Sum = 0;
    for (const double Value : Values)
        Sum += Value;
    return Sum / static_cast<double>(Values.size());
}
} // namespace

TEST_CASE("the ergometer panel finds strokes, forces, work and turns as they were simulated")
{
    for (const auto& [Freq, Rate] : {std::pair{50, 28.0}, {25, 20.0}, {100, 36.0}}) {
        CAPTURE(Freq);
        FreshState State;
        SimOptions Options;
        Options.Session = State.Folder.Path("ergo.txt");
        Options.Recording = State.Folder.Path("ergo.qvn");
        Options.Truth = State.Folder.Path("truth.txt");
        Options.Strokes = 40;
        Options.Freq = Freq;
        Options.Logger.Rate = Rate;
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/ergo.txt", Options.Session);
        CHECK(std::filesystem::file_size(Options.Session) < 100000);
        REQUIRE(ReadDataFile(Options.Session, gFile, SectionFilter::Non));
        ResolveChannels();
        REQUIRE(!RecordFile(Options, gFile).empty());
        const Table Truth = Numbers(ReadWhole(Options.Truth).value());
        const Seen Found = PlayThrough(Options.Recording);

        const double Step = 1.0 / Freq;
        std::size_t Compared = 0;
        for (std::size_t i = 0; i < Found.Strokes.size(); ++i) {
            // Frames count from one step; a turn is recognised two samples behind it.
            const double Finish = Found.Finishes[i] - Step;
            const auto True = std::find_if(Truth.begin(), Truth.end(), [&](const std::vector<double>& Row) {
                return Finish >= Row[FinishT] + 0.99 * Step && Finish <= Row[FinishT] + 3.01 * Step;
            });
            if (True == Truth.end()) continue; // ahead of the first boundary or behind the last one
            ++Compared;
            CAPTURE(Compared);
            const ErgStroke& Stroke = Found.Strokes[i];
            CHECK(std::fabs(Stroke.DriveTime - (*True)[DriveT]) <= 1.01 * Step);
            CHECK(std::fabs(Stroke.Length - (*True)[Length]) <= 0.001 + 8 * Step * Step);
            CHECK(Stroke.MaxForce == doctest::Approx((*True)[MaxForce] + 9).epsilon(0.006)); // and the chain's force
            CHECK(Stroke.Work == doctest::Approx((*True)[Work]).epsilon(0.01));
        }
        CHECK(Compared >= 39);
        // Straight lines through velocities that bend at the catch: up to three tenths of a step off; turns that fall
        // on a step without movement are not seen.
        const double TrueCF = MeanStep(Truth, CatchT, SeatTurnT);
        CHECK(Found.CF.size() > 18);
        CHECK(std::fabs(Mean(Found.CF) - TrueCF) <= 0.3 * Step * 1000);
        for (const double CF : Found.CF)
            CHECK(std::fabs(CF - TrueCF) <= 0.4 * Step * 1000);
        CHECK(Found.FF.size() >= 38);
        CHECK(std::fabs(Mean(Found.FF) - MeanStep(Truth, FinishT, TrunkTurnT)) <= 0.2 * Step * 1000);
    }
}
