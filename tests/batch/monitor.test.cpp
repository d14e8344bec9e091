// The performance monitor without a window: the simulated one's replies against what was rowed, and broken files.
#include "Programs.h"

#include <algorithm>

namespace {
struct Replies : ProgramFolder
{
    int Run(const std::string& Line) const { return ProgramFolder::Run(Line).Exit; }

    // The cells of a table behind its header line; a cell of the monitor's line counts as one.
    std::vector<std::vector<double>> Table(const std::string& Name) const
    {
        std::string Text = Bytes(Name);
        std::replace(Text.begin(), Text.end(), ',', '\t');
        std::vector<std::vector<double>> Rows;
        for (std::size_t i = Text.find('\n') + 1; i < Text.size();) {
            auto& Row = Rows.emplace_back();
            const std::size_t End = Text.find('\n', i);
            while (i < End) {
                Row.push_back(Val(Text.substr(i, End - i)));
                i = std::min(Text.find('\t', i), End) + 1;
            }
            i = End + 1;
        }
        return Rows;
    }
};

// Columns of the table that the command writes.
enum eColumn
{
    ColumnTick,
    ColumnBox,
    ColumnPace,
    ColumnRate,
    ColumnPower,
    ColumnState,
    ColumnDrive = 9,
    ColumnRecovery,
    ColumnLength,
    ColumnCount
};
} // namespace

TEST_CASE("the simulated monitor's replies give the strokes that were rowed")
{
    constexpr double Step = 0.02; // s, from one poll to the next
    const Replies Folder;
    REQUIRE(Folder.Run("skarvelin-sim --file a.qvn --monitor r.txt --truth t.txt --strokes=12 --rate=31 single.txt") ==
            0);
    REQUIRE(Folder.Run("skarvelin-sim --monitor alone.txt --strokes=12 --rate=31 single.txt") == 0);
    CHECK(Folder.Bytes("alone.txt") == Folder.Bytes("r.txt"));
    REQUIRE(Folder.Run("skarvelin-batch monitor r.txt out.txt") == 0);
    CHECK(Folder.Bytes("err.log").empty());
    CHECK(Folder.Bytes("out.txt").starts_with("Tick\tBox\tText\n"));
    const auto Truth = Folder.Table("t.txt");
    REQUIRE(Truth.size() == 12);
    std::size_t Strokes = 0;
    for (const auto& Row : Folder.Table("out.txt")) {
        REQUIRE(Row.size() == 13);
        const auto Drive = static_cast<std::size_t>(Row[ColumnCount]);
        if (Row[ColumnBox] != 2 || Drive > Truth.size()) continue;
        const auto& True = Truth[Drive - 1];
        const double CatchT = True[4], FinishT = True[5], T = Row[ColumnTick] * Step;
        CAPTURE(T);
        if (Row[ColumnState] == 3) { // a drive has ended
            ++Strokes;
            CHECK((T >= FinishT && T < FinishT + Step));
            CHECK(Row[ColumnDrive] == doctest::Approx(FinishT - CatchT).epsilon(0.011));
        } else if (Drive < Truth.size()) { // the catch behind it
            const double Next = Truth[Drive][4];
            CHECK((T >= Next && T < Next + Step));
            CHECK(Row[ColumnRecovery] == doctest::Approx(Next - FinishT).epsilon(0.011));
            CHECK(std::abs(Row[ColumnRate] - 60 / (Next - CatchT)) <= 0.51);
            CHECK(Row[ColumnLength] == doctest::Approx(True[9] / 92 * 1.4).epsilon(0.02));
        }
    }
    CHECK(Strokes == Truth.size());
}

TEST_CASE("broken replies are reported with their tick and change nothing")
{
    const Replies Folder;
    REQUIRE(Folder.Run("skarvelin-sim --monitor r.txt --seconds=0.1 single.txt") == 0);
    const std::string Good = Folder.Bytes("r.txt").substr(0, Folder.Bytes("r.txt").find('\n'));
    std::string Wrong = Good;
    Wrong[7] = Wrong[7] == '7' ? '6' : '7';
    REQUIRE(
        SaveWhole(Folder.Path("b.txt"), "-\nF1 zz\n" + Wrong + "\n" + Good.substr(0, 60) + "\nF1 01 01 F2\n" + Good));
    CHECK(Folder.Run("skarvelin-batch monitor b.txt out.txt") == 0);
    CHECK(Folder.Bytes("out.txt") == "Tick\tBox\tText\n5\t1\t00:00.0, 0, 0, 2, 0:00:00.00, 0.0, 0, 0, 0, 0, 0\n");
    CHECK(Folder.Bytes("err.log") == "Warning!: Tick 1: the line is not hexadecimal, and was skipped\n"
                                     "Warning!: Tick 2: the answer was left out: the checksum is wrong\n"
                                     "Warning!: Tick 3: the answer was left out: it is cut\n"
                                     "Warning!: Tick 4: the answer was left out: it lacks the answer on pace\n");
}

TEST_CASE("without a file of replies or a monitor the command fails in plain words, and writes nothing")
{
    const Replies Folder;
    const std::vector<std::tuple<const char*, int, const char*>> Lines = {
        {"skarvelin-batch monitor gone.txt out.txt", 1, "Error: Can't read file: gone.txt"},
        {"skarvelin-batch monitor single.txt", 2, "REPLIES and OUT are wanted, or --usb"},
        {"skarvelin-batch monitor --usb single.txt", 2, "--usb takes no files"},
        {"skarvelin-batch monitor single.txt out.txt --seconds 2", 2, "--seconds goes with --usb"},
        {"skarvelin-sim --monitor single.txt single.txt", 1, "This would replace the session data file"},
        {"skarvelin-sim --monitor a --file a single.txt", 1, "Two files cannot be one: a"},
        {"skarvelin-sim --monitor out.txt --tcp 6000 single.txt", 2, "--monitor goes with --file, or alone"},
        {"skarvelin-sim --monitor out.txt --rig H1=0,600 single.txt", 2, "nobody rows on a rig"}};
    for (const auto& [Line, Exit, Text] : Lines) {
        CAPTURE(std::string(Line));
        CHECK(Folder.Run(Line) == Exit);
        CHECK(Folder.Bytes("err.log").find(Text) != std::string::npos);
        CHECK(!std::filesystem::exists(Folder.Path("out.txt")));
    }
}
