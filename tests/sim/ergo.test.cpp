// Recordings of the demonstration ergometer through its panel, against the table of what was simulated.
#include "files/mBinIO.h"
#include "files/mTextIO.h"
#include "live/ergo/cErg.h"
#include "processing/mProcess.h"
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

// The column of that head in a table.
std::vector<double> Column(const std::string& Table, const std::string& Head)
{
    const auto Cells = [](const std::string& Line) {
        Texts Found(1);
        for (const char Letter : Line)
            if (Letter == '\t')
                Found.emplace_back();
            else
                Found.back() += Letter;
        return Found;
    };
    const Texts Heads = Cells(Table.substr(0, Table.find('\n')));
    const auto Number = static_cast<std::size_t>(std::find(Heads.begin(), Heads.end(), Head) - Heads.begin());
    REQUIRE(Number < Heads.size());
    std::vector<double> Values;
    for (std::size_t From = Table.find('\n') + 1; From < Table.size(); From = Table.find('\n', From) + 1)
        Values.push_back(Val(Cells(Table.substr(From, Table.find('\n', From) - From))[Number]));
    return Values;
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
        const std::string Table = ReadWhole(Options.Truth).value();
        const Seen Found = PlayThrough(Options.Recording);

        const double Step = 1.0 / Freq;
        const std::vector<double> FinishT = Column(Table, "FinishT"), DriveT = Column(Table, "DriveT"),
                                  Length = Column(Table, "Length"), Peak = Column(Table, "PeakForce"),
                                  Work = Column(Table, "Work"), Catch = Column(Table, "CatchT"),
                                  Seat = Column(Table, "SeatTurnT"), Trunk = Column(Table, "TrunkTurnT");
        REQUIRE(Found.Strokes.size() + 1 >= FinishT.size());
        for (std::size_t i = 0; i < Found.Strokes.size(); ++i) {
            // Frames count from one step; a turn is recognised two samples behind it.
            const double Finish = Found.Finishes[i] - Step;
            const auto True = std::find_if(FinishT.begin(), FinishT.end(), [&](double Each) {
                return Finish >= Each + 0.99 * Step && Finish <= Each + 3.01 * Step;
            });
            if (True == FinishT.end()) continue; // ahead of the first boundary or behind the last one
            const auto n = static_cast<std::size_t>(True - FinishT.begin());
            CAPTURE(n);
            const ErgStroke& Stroke = Found.Strokes[i];
            CHECK(std::fabs(Stroke.DriveTime - DriveT[n]) <= 1.01 * Step);
            CHECK(std::fabs(Stroke.Length - Length[n]) <= 0.001 + 8 * Step * Step);
            CHECK(Stroke.MaxForce == doctest::Approx(Peak[n] + 9).epsilon(0.006)); // and the chain's own force
            CHECK(Stroke.Work == doctest::Approx(Work[n]).epsilon(0.01));
        }
        // Straight lines through velocities that bend at the catch: up to three tenths of a step off, turns that fall
        // on a step without movement are not seen.
        const double TrueCF = (Mean(Seat) - Mean(Catch)) * 1000;
        REQUIRE(Found.CF.size() > 18);
        CHECK(std::fabs(Mean(Found.CF) - TrueCF) <= 0.3 * Step * 1000);
        for (const double CF : Found.CF)
            CHECK(std::fabs(CF - TrueCF) <= 0.4 * Step * 1000);
        const double TrueFF = (Mean(Trunk) - Mean(FinishT)) * 1000;
        REQUIRE(Found.FF.size() >= 38);
        CHECK(std::fabs(Mean(Found.FF) - TrueFF) <= 0.2 * Step * 1000);
    }
}
