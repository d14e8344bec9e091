// Recordings of the demonstration sessions through the whole processing, against the table of what was simulated.
#include "sim/mRecord.h"

#include "TruthNumbers.h"
#include "files/mBinIO.h"
#include "files/mTextIO.h"
#include "processing/mProcess.h"
#include "processing/mStrokeLog.h"
#include "sim/cTruth.h"
#include "support/Case.h"

namespace {
// A demonstration session in a folder of its own, open.
class OpenDemo : public FreshState, public TempFolder
{
public:
    explicit OpenDemo(const std::string& Name)
    {
        Options.Session = Path(Name);
        Options.Recording = Path("out.qvn");
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/" + Name, Options.Session);
        SetCurFile(Options.Session);
        REQUIRE(ReadDataFile(Options.Session, gFile, SectionFilter::Non));
        ResolveChannels();
    }

    SimOptions Options;
};

struct Piece
{
    const char* Session;
    int Freq;
    double Rate;
};
} // namespace

TEST_CASE("the stroke log agrees with the table of what was simulated")
{
    for (const Piece& Each : {Piece{"single.txt", 25, 28}, Piece{"single.txt", 25, 40}, Piece{"single.txt", 100, 18},
                              Piece{"eight.txt", 50, 28}, Piece{"eight.txt", 100, 36}, Piece{"eight.txt", 25, 20}}) {
        CAPTURE(Each.Session);
        CAPTURE(Each.Freq);
        CAPTURE(Each.Rate);
        OpenDemo Demo(Each.Session);
        Demo.Options.Truth = Demo.Path("truth.txt");
        Demo.Options.Strokes = 40;
        Demo.Options.Freq = Each.Freq;
        Demo.Options.Logger.Rate = Each.Rate;
        Demo.Options.Logger.Seed = static_cast<uint64_t>(Each.Rate);
        REQUIRE(!RecordFile(Demo.Options, gFile).empty());
        const Table Truth = Numbers(ReadWhole(Demo.Options.Truth).value());
        REQUIRE(Truth.size() == 40);

        int32_t Start = 0;
        int32_t Stop = 0;
        REQUIRE(ReadRawFile(Demo.Options.Recording, Start, Stop));
        REQUIRE(PublishStats(CycleStats(gKeyWin, 0, gRaw.UBound())));
        CHECK(gStrokeCnt == 40);
        CHECK(gMeanCycleT == doctest::Approx((Truth[39][1] + Truth[39][2] - Truth[0][1]) / 40).epsilon(0.0005));
        CHECK(gRate == doctest::Approx(Each.Rate).epsilon(0.012));

        int32_t Last = 0;
        REQUIRE(ExportStrokes(gKeyWin, 0, Last));
        const Table Log = Numbers(ReadWhole(Demo.Path(gFileTitle + "_str.csv")).value());
        REQUIRE(Log.size() == 40);
        const double Step = 1.001 / Each.Freq;
        for (std::size_t i = 0; i < Log.size(); ++i) {
            CAPTURE(i);
            CHECK(std::fabs(60 / Log[i][1] - Truth[i][2]) <= Step);
            CHECK(std::fabs(Log[i][2] - Truth[i][6]) <= Step + 0.008); // a count of noise moves a turn

            // The turns lie between samples: the measured stroke is the shorter, the more so the fewer samples.
            CHECK(std::fabs(Log[i][5] - Truth[i][9]) <= 0.05 + 300 * Step * Step);
            CHECK(Log[i][6] == doctest::Approx(Truth[i][10]).epsilon(0.006));
        }
    }
}

TEST_CASE("a recording holds the strokes asked for in every key mode")
{
    for (int16_t Mode = 0; Mode <= 3; ++Mode) {
        CAPTURE(Mode);
        OpenDemo Demo("single.txt");
        gFile.KeyMode = gKeyMode = Mode;
        Demo.Options.Strokes = 12;
        Demo.Options.Truth = Demo.Path("truth.txt");
        REQUIRE(!RecordFile(Demo.Options, gFile).empty());
        CHECK(Numbers(ReadWhole(Demo.Options.Truth).value()).size() == 12);
        int32_t Start = 0;
        int32_t Stop = 0;
        REQUIRE(ReadRawFile(Demo.Options.Recording, Start, Stop));
        gKeyWin = {};
        REQUIRE(PublishStats(CycleStats(gKeyWin, 0, gRaw.UBound())));
        CHECK(gStrokeCnt == 12);
    }
}

TEST_CASE("a recording that cannot be made is reported and leaves every file as it was")
{
    OpenDemo Demo("single.txt");
    const std::string Session = ReadWhole(Demo.Options.Session).value();
    REQUIRE(SaveWhole(Demo.Options.Recording, "old"));
    const auto Refused = [&](const std::string& Text, const SimOptions& Options) {
        Demo.Dialogs.Told.clear();
        CHECK(RecordFile(Options, gFile).empty());
        REQUIRE(Demo.Dialogs.Told.size() == 1);
        CHECK(Demo.Dialogs.Told[0].starts_with("Warning!: " + Text));
        CHECK(ReadWhole(Demo.Options.Recording) == "old");
        CHECK(ReadWhole(Demo.Options.Session) == Session);
    };
    SimOptions Options = Demo.Options;
    Options.Recording = Demo.Path("") + "./single.txt";
    Refused("This would replace the session data file: ", Options);
    Options.Recording = Demo.Path("none/out.qvn");
    Refused("Can't write file: ", Options);
    gFile.SlaveChans = 7;
    Refused("No logger is of model 61 with 1 slaves of 7 channels: ", Demo.Options);
}

TEST_CASE("options are taken in both forms and wrong ones are reported")
{
    SimOptions Options;
    const std::vector<std::string> Good = {"--seed=7", "s.txt", "--file", "o.qvn", "--kinds=26,38", "--seconds", "2.5"};
    CHECK(ParseSimOptions(Good, Options).empty());
    CHECK(Options.Logger.Kinds == std::vector<int>{26, 38});
    CHECK(Options.Seconds == 2.5);
    for (const char* Wrong : {"t.txt", "--file", "--file=", "--freq=30", "--rate=28x", "--seed=-1", "--drop=1001",
                              "--kinds=26,27", "--kinds=26,", "--tcp=6000"}) {
        SimOptions Any;
        CHECK_FALSE(ParseSimOptions(Texts{"s.txt", "--file=o", Wrong}, Any).empty());
    }
}
