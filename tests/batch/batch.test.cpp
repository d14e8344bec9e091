// The batch program as its users call it: a process, its files, its exit code and its words.
#include "Programs.h"

#include <algorithm>

namespace {
struct Bench : ProgramFolder
{
    void Record(const std::string& Name, const std::string& Number) const
    {
        REQUIRE(Run("skarvelin-sim --file " + Name + " single.txt --strokes=12 --seed=" + Number).Exit == 0);
    }

    // The last value of a column of a table of text, 1 the first column.
    double LastOf(const std::string& Name, char Separator, int Column) const
    {
        std::string Text = Bytes(Name);
        Text.erase(Text.find_last_not_of("\r\n") + 1);
        std::size_t At = Text.rfind('\n') + 1;
        for (int i = 1; i < Column; ++i)
            At = Text.find(Separator, At) + 1;
        return Val(Text.substr(At));
    }
};
} // namespace

TEST_CASE("wrong usage is answered with a usage line and touches nothing")
{
    const Bench Folder;
    const char* const Lines[] = {
        "",
        "cut single.txt",
        "--set gProcRun=2 info single.txt",
        "--set gProcRuns=40000 info single.txt",
        "resave single.txt",
        "resave single.txt new.txt --filter Some",
        "process single.txt a.qvn --start 1.5",
        "process single.txt a.qvn --dist",
        "export single.txt a.qvn out.txt --filter=yes",
        "record single.txt --tcp 127.0.0.1:70000 --out a.qvn",
        "live single.txt a.qvn out.tsv --separate",
    };
    const std::string Before = Folder.Bytes("single.txt");
    for (const char* Line : Lines) {
        const Outcome Result = Folder.Batch(Line);
        CAPTURE(Result.Err);
        CHECK(Result.Exit == 2);
        CHECK(Result.Err.find("Usage: skarvelin-batch") != std::string::npos);
    }
    CHECK(Folder.Bytes("single.txt") == Before);
    CHECK_FALSE(std::filesystem::exists(Folder.Path("new.txt")));
}

TEST_CASE("a failure is reported with the file that it is about, exits 1 and leaves every file as it was")
{
    const Bench Folder;
    Folder.Record("a.qvn", "1");
    std::filesystem::create_directory(Folder.Path("folder.qvn"));
    REQUIRE(SaveWhole(Folder.Path("empty.qvn"), ""));
    REQUIRE(SaveWhole(Folder.Path("kept.txt"), "kept"));
    const std::tuple<const char*, const char*> Cases[] = {
        {"resave none.txt kept.txt", "none.txt"},
        {"resave single.txt nowhere/new.txt", "nowhere/new.txt"},
        {"resave single.txt folder.qvn", "folder.qvn"},
        {"export single.txt none.qvn kept.txt", "none.qvn"},
        {"export single.txt folder.qvn kept.txt", "folder.qvn"},
        {"dump single.txt folder.qvn kept.txt", "folder.qvn"},
        {"dump single.txt a.qvn /dev/full", "Can't write file: /dev/full"},
        {"scan single.txt none.qvn kept.txt", "none.qvn"},
        {"strokes single.txt empty.qvn", "cycle"},
        {"process single.txt empty.qvn", "empty.qvn"},
        {"process single.txt a.qvn none.qvn", "none.qvn"},
        {"derive single.txt S07 kept.txt", "There is no sample S07 in file: single.txt\n"},
        {"live single.txt none.qvn kept.txt", "none.qvn"},
        {"--set StdFilter=0 process single.txt a.qvn",
         "Warning!: No stroke lies within the filter of 0 SD around the mean: widen it."}};
    const std::string Before = Folder.Bytes("single.txt");
    for (const auto& [Line, Reported] : Cases) {
        const Outcome Result = Folder.Batch(Line);
        CAPTURE(Reported);
        CAPTURE(Result.Err);
        CHECK(Result.Exit == 1);
        CHECK(Result.Err.find(Reported) != std::string::npos);
        CHECK(Folder.Bytes("single.txt") == Before);
        CHECK(Folder.Bytes("kept.txt") == "kept");
    }
    CHECK_FALSE(std::filesystem::exists(Folder.Path("single.bak")));
}

TEST_CASE("recordings become samples, the former session its copy, and the same call gives the same bytes")
{
    const Bench Folder;
    Folder.Record("a.qvn", "1");
    Folder.Record("b.qvn", "2");
    const std::string Before = Folder.Bytes("single.txt");
    const char* const Line =
        "--set gProcRuns=2 --set gExpSTD=1 process single.txt a.qvn b.qvn --dist=500 --out new.txt";
    const Outcome First = Folder.Batch(Line);
    CAPTURE(First.Err);
    REQUIRE(First.Exit == 0);
    CHECK(Folder.Bytes("single.txt") == Before);
    const std::string New = Folder.Bytes("new.txt");
    CHECK(New.find("\r\nS01\t") != std::string::npos);
    CHECK(New.find("\ta.qvn\t") != std::string::npos);
    CHECK(New.find("\tb.qvn\t") != std::string::npos);
    CHECK(New.find("\r\nSTD\r\n") != std::string::npos);
    REQUIRE(Folder.Batch(Line).Exit == 0);
    CHECK(Folder.Bytes("new.txt") == New);

    REQUIRE(Folder.Batch("--set gExpSTD=1 resave new.txt again.txt").Exit == 0);
    CHECK(Folder.Bytes("again.txt") == New);

    REQUIRE(Folder.Batch("process single.txt a.qvn --comment Headwind").Exit == 0);
    CHECK(Folder.Bytes("single.bak") == Before);
    CHECK(Folder.Bytes("single.txt").find("\tHeadwind\t") != std::string::npos);
}

TEST_CASE("values that a recording's frames leave out go on from the recording before in the same call")
{
    const Bench Folder;
    REQUIRE(Folder.Run("skarvelin-sim --file a.qvn single.txt --strokes=8").Exit == 0);
    REQUIRE(Folder.Run("skarvelin-sim --file b.qvn single.txt --strokes=8 --kinds=26").Exit == 0);
    REQUIRE(Folder.Batch("dump single.txt a.qvn a.txt").Exit == 0);
    REQUIRE(Folder.Batch("process single.txt a.qvn b.qvn --out both.txt").Exit == 0);
    REQUIRE(Folder.Batch("patterns both.txt S02 both.csv").Exit == 0);
    const double Lat = -90 + 1e-6 * Folder.LastOf("a.txt", '\t', 2 + 13);
    REQUIRE(Lat > -89);
    CHECK(Folder.LastOf("both.csv", ',', 13) == doctest::Approx(Lat).epsilon(1e-5));
}

TEST_CASE(
    "every command says where a broken recording ended, stores nothing with --strict, and reads a mended one whole")
{
    const Bench Folder;
    Folder.Record("a.qvn", "4");
    REQUIRE(Folder.Batch("dump single.txt a.qvn all.txt").Exit == 0);
    std::string Raw = Folder.Bytes("a.qvn");
    const std::size_t Frame = Raw.find('\x80', Raw.size() / 2);
    Raw[Frame + 13] = static_cast<char>(Raw[Frame + 13] ^ 0x80);
    REQUIRE(SaveWhole(Folder.Path("a.qvn"), Raw));
    const std::string Place = "byte " + std::to_string(Frame + 1) + " of " + std::to_string(Raw.size()) + " (frame ";
    const std::string Session = Folder.Bytes("single.txt");
    const char* const Lines[] = {"dump single.txt a.qvn out",
                                 "export single.txt a.qvn out",
                                 "scan single.txt a.qvn out",
                                 "live single.txt a.qvn out",
                                 "rezero single.txt a.qvn --group=2 --out=out",
                                 "process single.txt a.qvn --out=out"};
    for (const std::string Line : Lines) {
        CAPTURE(Line);
        const Outcome Loose = Folder.Batch(Line);
        CHECK(Loose.Exit == 0);
        CHECK(Loose.Err.find("a.qvn: ") != std::string::npos);
        CHECK(Loose.Err.find(Place) != std::string::npos);
        REQUIRE(std::filesystem::remove(Folder.Path("out")));
        const Outcome Strict = Folder.Batch("--strict " + Line);
        CHECK(Strict.Exit == 1);
        CHECK(Strict.Err.find(Place) != std::string::npos);
        CHECK_FALSE(std::filesystem::exists(Folder.Path("out")));
    }
    CHECK(Folder.Batch("--strict strokes single.txt a.qvn").Exit == 1);
    CHECK_FALSE(std::filesystem::exists(Folder.Path("single_str.csv")));
    CHECK(Folder.Bytes("single.txt") == Session);

    const Outcome Mended = Folder.Batch("mend a.qvn b.qvn");
    CHECK(Mended.Exit == 0);
    CHECK(Mended.Out.starts_with("1 frame (71 bytes) left out, the first at byte " + std::to_string(Frame + 1) + "; "));
    CHECK(Folder.Bytes("a.qvn") == Raw);
    CHECK(Folder.Bytes("b.qvn") == Raw.substr(0, Frame) + Raw.substr(Frame + 71));
    const Outcome Whole = Folder.Batch("--strict dump single.txt b.qvn mended.txt");
    CHECK((Whole.Exit == 0 && Whole.Err.empty()));
    const std::string All = Folder.Bytes("all.txt"), Left = Folder.Bytes("mended.txt");
    CHECK(std::count(Left.begin(), Left.end(), '\n') == std::count(All.begin(), All.end(), '\n') - 1);
    CHECK(Folder.Batch("mend a.qvn a.qvn").Exit == 1);
    CHECK(Folder.Batch("--no mend a.qvn b.qvn").Exit == 1); // which is there
    CHECK(Folder.Bytes("a.qvn") == Raw);
}

TEST_CASE("samples beyond those that are read at once, and times counted at another rate, are reported")
{
    const Bench Folder;
    REQUIRE(Folder.Run("skarvelin-sim --file a.qvn single.txt --seconds=330 --freq=100").Exit == 0);
    const Outcome Long = Folder.Batch("export single.txt a.qvn out");
    CHECK(Long.Exit == 0);
    CHECK(Long.Err.find("only the first 32201 samples are used, stopped at byte ") != std::string::npos);
    CHECK(Long.Err.find("(frame 32201, 322.0 s): scan it for strokes, or choose a stretch") != std::string::npos);
    const Outcome Scan = Folder.Batch("scan single.txt a.qvn out");
    CHECK(Scan.Exit == 0);
    CHECK(Scan.Err == "Warning!: The frames of a.qvn come at 100 Hz, but times are counted at 25 Hz: --set "
                      "gDataFreq=100 counts them right.\n");
    const Outcome Cured = Folder.Batch("--set gDataFreq=100 scan single.txt a.qvn out");
    CHECK((Cured.Exit == 0 && Cured.Err.empty()));
}

#ifdef SKARVELIN_DESKTOP
TEST_CASE("a sample's report is the same each time, in every form, and a sample that is not there leaves no file")
{
    const Bench Folder;
    Folder.Record("a.qvn", "3");
    REQUIRE(Folder.Batch("process single.txt a.qvn").Exit == 0);
    for (const char* Ending : {".pdf", ".svg", ".png"}) {
        CAPTURE(Ending);
        const std::string First = std::string("first") + Ending;
        const std::string Second = std::string("second") + Ending;
        CHECK(Folder.Batch("report single.txt S01 " + First).Exit == 0);
        CHECK(Folder.Batch("report single.txt S01 " + Second).Exit == 0);
        CHECK(Folder.Bytes(First).size() > 10000);
        CHECK(Folder.Bytes(First) == Folder.Bytes(Second));
    }
    CHECK(Folder.Batch("report single.txt S09 none.pdf").Exit == 1);
    CHECK(Folder.Batch("report single.txt S01 none.doc").Exit == 1);
    CHECK_FALSE(std::filesystem::exists(Folder.Path("none.pdf")));
    CHECK_FALSE(std::filesystem::exists(Folder.Path("none.doc")));
}
#endif
