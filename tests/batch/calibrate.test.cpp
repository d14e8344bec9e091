// The commands of calibration as their users call them.
#include "Programs.h"
#include "files/mTextIO.h"

namespace {
struct Desk : ProgramFolder
{
    // Exit code, and the words written to stdout in Out.
    int Batch(const std::string& Line)
    {
        Outcome Done = ProgramFolder::Batch(Line);
        Out = Done.Out;
        return Done.Exit;
    }

    // Points of the curve P = L / 10 - 20 + L * L / 100000, rising and falling, the falling ones higher by Lag.
    void Write(const std::string& Name, int Count, double Lag) const
    {
        std::string Text = "Raw Calibration Data\r\n1/1/24\t07\t\t\t\t\t\t0\t\t0\t\t0\t\t\t\tGATE\t\r\n";
        for (int i = 0; i < Count; ++i) {
            const double L = 10.0 * (i <= Count / 2 ? i : Count - i);
            const double P = L / 10 - 20 + L * L / 100000 + (i <= Count / 2 ? 0 : Lag);
            Text += FormatNum(i, "0") + "\t" + FormatNum(P, "0.000000") + "\t" + FormatNum(L, "0.00") + "\t\r\n";
        }
        REQUIRE(SaveWhole(Path(Name), Text));
    }

    std::string Out;
};
} // namespace

TEST_CASE("a channel is calibrated from a raw calibration file, and looked up")
{
    Desk Folder;
    Folder.Write("a.xcl", 400, 2);
    REQUIRE(Folder.Batch("calibrate single.txt a.xcl --channel 3 --apply 2 --out two.txt") == 0);
    CHECK(Folder.Out.starts_with("Calibration Analysis:\nUp: Q0 = -20.0000\nUp: Q1 = 0.100000\nUp: Q2 = 0.000010\n"));
    CHECK(Folder.Out.find("Down: Q0 = -18.0000\n") != std::string::npos);
    REQUIRE(Folder.Batch("lookup two.txt 3 1000 1000 500") == 0);
    CHECK(Folder.Out == "90\n91\n34.5\n"); // rising, standing, falling

    REQUIRE(Folder.Batch("calibrate two.txt a.xcl --channel 3 --apply 0") == 0);
    CHECK(Folder.Bytes("err.log").find("Channel 3 is read by two curves and stays so") != std::string::npos);

    REQUIRE(Folder.Batch("calibrate single.txt a.xcl --channel In4 --apply 4") == 2);
    REQUIRE(Folder.Batch("calibrate single.txt a.xcl --channel 4 --apply 4 --min 20 --max 120 --sensor a/b") == 1);
    CHECK(Folder.Bytes("err.log").find("cannot name a file") != std::string::npos);
    REQUIRE(Folder.Batch("calibrate single.txt a.xcl --channel 4 --apply 4 --min 20 --max 120 --out t/x.txt") == 1);
    std::filesystem::create_directory(Folder.Path("t"));
    Folder.Write("b.xcl", 400, 0);
    REQUIRE(Folder.Batch("calibrate single.txt b.xcl --channel 4 --apply 4 --min 20 --max 120 --out t/x.txt") == 0);
    CHECK(Folder.Bytes("t/GATE.ref").starts_with("Reference Table\r\n255\tGATE\t\r\nN\tCnt\tX\tY\r\n0\t"));
    CHECK(Folder.Bytes("t/x.txt").find("\tGATE\tGATE.ref") != std::string::npos);
    REQUIRE(Folder.Batch("lookup t/x.txt In4 1000") == 0);
    CHECK(Val(Folder.Out) == doctest::Approx(90).epsilon(1e-5));

    const std::string Table = Folder.Bytes("t/GATE.ref");
    std::filesystem::create_directory(Folder.Path("t/y.txt")); // no session can be written there
    REQUIRE(Folder.Batch("calibrate single.txt b.xcl --channel 4 --apply 4 --min 20 --max 100 --out t/y.txt") == 1);
    CHECK(Folder.Bytes("t/GATE.ref") == Table);
    CHECK(Folder.Bytes("err.log").find("t/y.txt") != std::string::npos);
}

TEST_CASE("the last counts of a recording become the zeros of a group, and of no other channel")
{
    Desk Folder;
    REQUIRE(std::system(("'" PROGRAM_FOLDER "/skarvelin-sim' --file '" + Folder.Path("a.qvn") + "' '" +
                         Folder.Path("single.txt") + "' --strokes=2 >/dev/null 2>&1")
                            .c_str()) == 0);
    REQUIRE(Folder.Batch("dump single.txt a.qvn a.txt") == 0);
    std::string Last = Folder.Bytes("a.txt");
    Last.resize(Last.rfind("\t\r\n"));
    Last = Last.substr(Last.rfind('\n') + 1);
    REQUIRE(Folder.Batch("rezero single.txt a.qvn --group 0 --out zero.txt") == 0);
    CHECK(Folder.Bytes("s.bak") == "(none)");
    const FreshState Program;
    SetCurFile(Folder.Path("single.txt"));
    REQUIRE(ReadDataFile(Folder.Path("single.txt"), gFile, SectionFilter::Any));
    for (int Chan = 1; Chan <= gFile.ChanCnt; ++Chan) {
        std::size_t Cell = 0;
        for (int Field = 0; Field <= Chan; ++Field)
            Cell = Last.find('\t', Cell) + 1;
        const std::string Name = gFile.Calibr[Chan].ParamID;
        const std::string Word = FormatNum(Chan, "0") + " " + FormatShortest(Val(Last.substr(Cell)));
        CAPTURE(Name);
        REQUIRE(Folder.Batch("lookup single.txt " + Word) == 0);
        const double Before = Val(Folder.Out);
        REQUIRE(Folder.Batch("lookup zero.txt " + Word) == 0);
        if (Name.starts_with('A') && Name.size() == 2) {
            CHECK(std::fabs(Val(Folder.Out)) < 1e-3);
            CHECK(std::fabs(Before) > 1);
        } else
            CHECK(Val(Folder.Out) == doctest::Approx(Before));
    }
}

TEST_CASE("too few points are reported and change nothing")
{
    Desk Folder;
    const std::string Before = Folder.Bytes("single.txt");
    const std::tuple<int, const char*> Cases[] = {{1, "0"}, {4, "1"}, {7, "2"}, {5, "4 --min 500 --max 600"}};
    for (const auto& [Points, Mode] : Cases) {
        CAPTURE(Mode);
        Folder.Write("few.xcl", Points, 0);
        CHECK(Folder.Batch("calibrate single.txt few.xcl --channel 3 --apply " + std::string(Mode)) == 1);
        CHECK(Folder.Out == "Too few points\n");
    }
    CHECK(Folder.Bytes("single.txt") == Before);
    CHECK(Folder.Bytes("GATE.ref") == "(none)");
}
