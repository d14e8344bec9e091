// The command video on the simulator's clips: what they are, their pictures, and what is refused.
#include "base/mCsv.h"
#include "base/mNumText.h"
#include "support/Case.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <sstream>
#include <sys/wait.h>

namespace {
struct Clips : TempFolder
{
    // The exit code; what was written stands in out.log and err.log.
    int Run(const std::string& Program, const std::string& Words) const
    {
        const std::string Line = "cd '" + Path("") + "' && '" PROGRAM_FOLDER "/" + Program + "' ";
        return WEXITSTATUS(std::system((Line + Words + " >out.log 2>err.log").c_str()));
    }
    std::string Bytes(const std::string& Name) const { return ReadWhole(Path(Name)).value_or("(none)"); }
};
} // namespace

TEST_CASE_FIXTURE(Clips, "a simulated clip is described, gives its pictures, and is the same every time")
{
    const std::string Session = " '" SOURCE_FOLDER "/demo/single.txt'";
    for (const auto& [Name, Codec] : {std::pair<std::string, std::string>{"a.mp4", "h264"}, {"a.avi", "mpeg4"}}) {
        CAPTURE(Name);
        REQUIRE(Run("skarvelin-sim", "--video " + Name + " --fps 25 --seconds 2 --truth t.txt" + Session) == 0);
        REQUIRE(Run("skarvelin-sim", "--video b_" + Name + " --fps 25 --seconds 2" + Session) == 0);
        CHECK(Bytes(Name) == Bytes("b_" + Name));
        CHECK(Run("skarvelin-batch", "video " + Name) == 0);
        CHECK(Bytes("out.log") == "{\n  \"frames\": 50,\n  \"duration\": 2,\n  \"step\": 0.04,\n  \"width\": 640,\n"
                                  "  \"height\": 360,\n  \"codec\": \"" +
                                      Codec + "\"\n}\n");
        CHECK(Run("skarvelin-batch", "video " + Name + " --frame 49 p.png") == 0);
        CHECK(Bytes("p.png").starts_with("\x89PNG"));
    }
    const std::string Truth = Bytes("t.txt");
    CHECK(std::count(Truth.begin(), Truth.end(), '\n') == 1 + 50 * 10);
    CHECK(Truth.find("\n49\t1.9600\tKnee\t") != std::string::npos);
}

TEST_CASE_FIXTURE(Clips, "a picture that is not there, a file that is no video and a wrong line are refused")
{
    const std::string Session = "'" SOURCE_FOLDER "/demo/single.txt'";
    REQUIRE(Run("skarvelin-sim", "--video a.mkv --fps 25 --seconds 1 " + Session) == 0);
    REQUIRE(SaveWhole(Path("empty.mp4"), ""));
    REQUIRE(SaveWhole(Path("cut.mkv"), Bytes("a.mkv").substr(0, Bytes("a.mkv").size() / 2)));
    const std::tuple<std::string, int, std::string> Cases[] = {
        {"video a.mkv --frame 25 p.png", 1, "There is no picture 25: the last one is 24 in file: a.mkv"},
        {"video a.mkv --frame -1 p.png", 2, "from 0"},
        {"video a.mkv --frame 3", 2, "belong together"},
        {"video a.mkv p.png", 2, "belong together"},
        {"video empty.mp4", 1, "Can't open file: empty.mp4 (it is empty)"},
        {"video none.mp4", 1, "Can't open file: none.mp4 (there is no such file)"},
        {"video " + Session, 1, "it is not a video"},
        {"video cut.mkv", 0, "The video breaks off after "},
    };
    for (const auto& [Line, Code, Text] : Cases) {
        CAPTURE(Line);
        CHECK(Run("skarvelin-batch", Line) == Code);
        CHECK(Bytes("err.log").find(Text) != std::string::npos);
        CHECK_FALSE(std::filesystem::exists(Path("p.png")));
    }
    CHECK(Run("skarvelin-sim", "--video a.xyz " + Session) == 1);
    CHECK(Run("skarvelin-sim", "--video a.mp4 --fps 101 " + Session) == 2);
    CHECK(Run("skarvelin-sim", "--video a.mp4 --tcp 5000 " + Session) == 2);
    CHECK_FALSE(std::filesystem::exists(Path("a.xyz.part")));
}

TEST_CASE_FIXTURE(Clips,
                  "a clip digitised by its truth gives the joints' angles within 0.2 degrees, also from the file")
{
    const std::vector<std::string> Joints = {"Toes", "Ankle", "Knee", "Hip", "Shoulder", "Elbow", "Hand"};
    std::string Dots, Segs, Clicks;
    AppendCsv(Dots, {"Point ID", "Point Name", "IsAngle"});
    AppendCsv(Segs, {"Segment ID", "Segment Name", "ID of Start point", "ID of End point", "Start point Number",
                     "End point number", "X1", "Y1", "X2", "Y2"});
    for (std::size_t i = 0; i < Joints.size(); ++i) {
        AppendCsv(Dots, {Joints[i], Joints[i], i > 0 && i + 1 < Joints.size() ? "1" : "0"});
        if (i > 0) AppendCsv(Segs, {"S", "S", Joints[i - 1], Joints[i], "0", "0", "0", "0", "0", "0"});
    }
    std::filesystem::copy_file(SOURCE_FOLDER "/demo/single.txt", Path("s.txt"));
    REQUIRE((SaveWhole(Path("d.csv"), Dots) && SaveWhole(Path("g.csv"), Segs)));
    for (const char* Table : {"Dots --from d.csv", "Segs --from g.csv"})
        REQUIRE(Run("skarvelin-batch", std::string("table s.txt ") + Table) == 0);
    REQUIRE(Run("skarvelin-sim", "--video a.mp4 --fps 25 --strokes 2 --truth t.txt s.txt") == 0);

    std::map<std::pair<std::string, std::string>, std::string> Truth; // angle of frame and joint
    AppendCsv(Clicks, {"frame", "point", "x", "y"});
    std::istringstream Lines(Bytes("t.txt"));
    std::string Line;
    for (std::getline(Lines, Line); std::getline(Lines, Line);) {
        std::istringstream Row(Line);
        std::array<std::string, 6> Cells;
        for (std::string& Cell : Cells)
            std::getline(Row, Cell, '\t');
        if (std::find(Joints.begin(), Joints.end(), Cells[2]) == Joints.end()) continue;
        AppendCsv(Clicks, {Cells[0], Cells[2], Cells[3], Cells[4]});
        Truth[{Cells[0], Cells[2]}] = Cells[5];
    }
    const auto CheckAngles = [&](const std::string& Name, std::size_t Frame, std::size_t Point) {
        std::vector<CsvRecord> Records;
        REQUIRE(ParseCsv(Bytes(Name), Records).empty());
        CHECK(Records.size() == Truth.size() + 1);
        for (std::size_t i = 1; i < Records.size(); ++i) {
            const auto& Cells = Records[i].Cells;
            const auto& True = Truth[{Cells[Frame], Cells[Point]}];
            CHECK(Cells.back().empty() == True.empty());
            CHECK(std::abs(Val(Cells.back()) - Val(True)) <= 0.2);
        }
    };
    REQUIRE(SaveWhole(Path("c.csv"), Clicks));
    REQUIRE(Run("skarvelin-batch", "points s.txt a.mp4 c.csv out.csv") == 0);
    CheckAngles("out.csv", 0, 1);
    CheckAngles("s_points.csv", 2, 3);
    REQUIRE(SaveWhole(Path("none.csv"), "frame,point,x,y\n"));
    REQUIRE(Run("skarvelin-batch", "points s.txt a.mp4 none.csv again.csv") == 0);
    CHECK(Bytes("again.csv") == Bytes("out.csv"));
}
