// The command video on the simulator's clips: what they are, their pictures, and what is refused.
#include "support/Case.h"

#include <algorithm>
#include <cstdlib>
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
    const std::tuple<std::string, int, std::string> Cases[] = {
        {"video a.mkv --frame 25 p.png", 1, "There is no picture 25: the last one is 24 in file: a.mkv"},
        {"video a.mkv --frame -1 p.png", 2, "from 0"},
        {"video a.mkv --frame 3", 2, "belong together"},
        {"video a.mkv p.png", 2, "belong together"},
        {"video empty.mp4", 1, "Can't open file: empty.mp4 ("},
        {"video none.mp4", 1, "Can't open file: none.mp4 ("},
        {"video " + Session, 1, "it is not a video"},
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
