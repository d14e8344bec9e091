// The coach's and the catch panel on recordings of the demonstration sessions, against what the crew rowed.
#include "core/mIni.h"
#include "files/mBinIO.h"
#include "files/mTextIO.h"
#include "live/catch/cCatch.h"
#include "live/coach/cCoach.h"
#include "sim/mRecord.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"

#include <algorithm>

namespace {
// A demonstration session, a recording of its crew, and the crew itself.
struct Rowed : FreshState
{
    Rowed(const std::string& Name, int Freq)
    {
        SimOptions Options;
        Options.Session = Folder.Path(Name);
        Options.Recording = Folder.Path("out.qvn");
        Options.Strokes = 20;
        Options.Freq = Freq;
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/" + Name, Options.Session);
        REQUIRE(ReadDataFile(Options.Session, gFile, SectionFilter::Non));
        SetCurFile(Options.Session);
        ResolveChannels();
        gDataFreq = Freq;
        gFile.TimeStep = 1.0 / Freq;
        REQUIRE(!RecordFile(Options, gFile).empty());
        Path = Options.Recording;
        Crew.emplace(gFile.BoatType, Options.Logger.Rate, Options.Logger.Spread, gFile.KeyMode, Options.Logger.Seed);
    }

    // Plays the recording; Do follows each sample.
    template <class Panel, class Work>
    void Play(Panel& On, const Work& Do) const
    {
        RawFile File;
        REQUIRE(File.Open(Path));
        CreateData();
        Stream Kept;
        while (const auto Taken = File.Take()) {
            if (!DecodeLive(FrameSource::Replay, *Taken, Kept)) continue;
            On.TakeSample();
            Do();
        }
    }

    const CalibrRow& Channel(const std::string& Name) const { return gFile.Calibr[FindChan(gFile.Calibr, Name)]; }

    std::string Path;
    std::optional<cRowerModel> Crew;
};

constexpr double Unloaded = 10; // what the panel takes an unloaded oar to read

// Force as the panel zeroes it times way over the drive of a stroke, in steps far finer than any sampling.
double TrueWork(const Oar& Each, const Stroke& In, double Lever)
{
    constexpr int Steps = 20000;
    double Work = 0;
    for (int i = 0; i < Steps; ++i) {
        const auto Angle = [&](int At) { return OarAngle(Each, {&In, true, static_cast<double>(At) / Steps}); };
        Work += (HandleForce(Each, {&In, true, (i + 0.5) / Steps}) + Unloaded) * (Angle(i + 1) - Angle(i));
    }
    return Work * Lever * 0.017453293;
}
} // namespace

TEST_CASE("angles, peak forces and work of every oar are those that were rowed, within a sample of the turns")
{
    // Farthest from the truth: the turns are seen a sample behind them, so that the angles are the smaller.
    struct Limits
    {
        const char* Session;
        int Freq;
        double Angle; // degrees
        double Force; // parts
        double Work;  // parts
    };
    for (const Limits& Each : {Limits{"single.txt", 25, 3, 0.03, 0.03}, Limits{"single.txt", 100, 0.4, 0.03, 0.03},
                               Limits{"eight.txt", 50, 1, 0.03, 0.03}}) {
        CAPTURE(Each.Session);
        CAPTURE(Each.Freq);
        Rowed Piece(Each.Session, Each.Freq);
        mScullMode = ScullSeparate;
        cCoach Panel;
        Panel.Load(true);
        int Compared = 0;
        std::array<double, 4> Worst{};
        Piece.Play(Panel, [&] {
            for (const CoachPlace& Place : Panel.Changes()) {
                const double Now = gData[0];
                if (Place.Column != VarFinish || Now < 6) continue;
                const bool IsScull = Panel.IsScull();
                CalibrRow Row;
                Row.Seat = static_cast<int16_t>(IsScull ? Place.Row / 2 + 1 : Place.Row + 1);
                Row.Side = static_cast<int16_t>(IsScull ? Place.Row % 2 + 3 : 0);
                const Oar True = Piece.Crew->OarOf(Row);
                cStrokes& Strokes = Piece.Crew->Strokes();
                const Stroke& In = Strokes.At(Strokes.NumberAt(Now - True.Lag));
                const auto Seen = [&](int Column) { return Panel.Cell({Place.Row, Column}).Value; };
                const double Lever = IsScull ? 0.84 : 1.01;
                const double Far[] = {std::fabs(Seen(VarCatch) - CatchAngle(True, In)),
                                      std::fabs(Seen(VarFinish) - FinishAngle(True, In)),
                                      std::fabs(Seen(VarMaxForce) / (PeakForce(True, In) + Unloaded) - 1),
                                      std::fabs(Seen(VarWork) / TrueWork(True, In, Lever) - 1)};
                for (std::size_t i = 0; i < Worst.size(); ++i)
                    Worst[i] = std::max(Worst[i], Far[i]);
                ++Compared;
            }
        });
        MESSAGE(std::string(Each.Session)
                << " at " << Each.Freq << " Hz, " << Compared << " strokes: catch within " << Worst[0] << ", finish "
                << Worst[1] << " degrees, peak force " << 100 * Worst[2] << " %, work " << 100 * Worst[3] << " %");
        CHECK(Compared >= 17 * Panel.RowCount());
        CHECK(Worst[0] < Each.Angle);
        CHECK(Worst[1] < Each.Angle);
        CHECK(Worst[2] < Each.Force);
        CHECK(Worst[3] < Each.Work);
    }
}

TEST_CASE("the factors are the times by which seat and trunk were rowed ahead of the handle, within a few milliseconds")
{
    const std::tuple<int, double> Cases[] = {{25, 12}, {50, 8}, {100, 8}}; // Hz, ms
    for (const auto& [Freq, Limit] : Cases) {
        CAPTURE(Freq);
        Rowed Piece("single.txt", Freq);
        gHost.Settings->SaveSetting("Models", "gSeatChan", "23");
        gHost.Settings->SaveSetting("Models", "gTrunkChan", "24");
        // Oars of one crew lag behind it by their own time; the seat's is drawn for the seat, without a side.
        const double Handle = Piece.Crew->OarOf(Piece.Channel("A1")).Lag;
        const double Catch = (Piece.Crew->OarOf(Piece.Channel("S1")).Lag - SeatLead - Handle) * 1000;
        const double Finish = (Piece.Crew->OarOf(Piece.Channel("T1")).Lag - TrunkLead - Handle) * 1000;
        SurfaceLog Screen(1000, 600);
        cCatch Panel(Screen);
        Panel.Load();
        double FarCatch = 0;
        double FarFinish = 0;
        int Seen = 0;
        Piece.Play(Panel, [&] {
            if (Panel.Newest().CF) FarCatch = std::max(FarCatch, std::fabs(Panel.CatchFactor()->Last - Catch));
            if (Panel.Newest().FF) FarFinish = std::max(FarFinish, std::fabs(Panel.FinishFactor()->Last - Finish));
            Seen += Panel.Newest().CF && Panel.FinishFactor() ? 1 : 0;
        });
        MESSAGE("at " << Freq << " Hz, " << Seen << " strokes: Catch Factor within " << FarCatch << " ms of " << Catch
                      << ", Finish Factor within " << FarFinish << " ms of " << Finish);
        CHECK(Seen >= 17);
        CHECK(FarCatch < Limit);
        CHECK(FarFinish < Limit);
    }
}
