// The command points, with a clip of ten pictures in place of a file's.
#include "batch/mCommands.h"
#include "support/FakeMedia.h"
#include "support/Figure.h"

sDialogs gBatchDialogs(nullptr); // which the program defines

namespace {
struct PointsCommand : FigureSession
{
    PointsCommand()
    {
        gHost.MakeMedia = [] { return std::make_unique<FakeMedia>(10, 0.04); };
    }

    bool Run(const std::string& Clicks, const std::string& Sample = "", const std::string& Video = "v/row.1.mp4")
    {
        REQUIRE(SaveWhole(In, Clicks));
        Args Line{{gCurFile, Video, In, Out}, {}};
        if (!Sample.empty()) Line.Options["--sample"] = Sample;
        return DoPoints(Line);
    }

    const std::string In = Folder.Path("in.csv");
    const std::string Out = Folder.Path("out.csv");
};
} // namespace

TEST_CASE_FIXTURE(PointsCommand, "points from a table are placed, kept with the session and written with their angles")
{
    REQUIRE(Run("frame,point,x,y\n9,KNEE,200,100\n9,HIP,100,100\n9,ANK,200,200.25\n0,HIP,1,2\n0,HIP,3,4.5\n"));
    const std::string Table = "frame,point,name,x,y,angle\r\n0,HIP,Hip,3,4.5,\r\n9,HIP,Hip,100,100,\r\n"
                              "9,KNEE,Knee,200,100,90\r\n9,ANK,\"Ankle, outer\",200,200.25,\r\n";
    CHECK(ReadWhole(Out) == Table);
    CHECK(PointsFile().find("T,row.1,9,KNEE,200,100,90\r\n") != std::string::npos);
    CHECK(ReadWhole(gCurFile).value().find("VideoID\r\nT\trow.1\t0\t1\t10\t0.40\t4\t0.00\t0.00\t\r\n") !=
          std::string::npos);
    REQUIRE(Run("point,y,x,frame\r\nTOE,200,260,9\r\n"));
    CHECK(ReadWhole(Out).value().find("9,TOE,Toe,260,200,\r\n") != std::string::npos);
    CHECK(ReadWhole(Out).value().find("200.25,89.7") != std::string::npos);
    REQUIRE(Run("frame,point,x,y\n1,HIP,1,2\n", "S1"));
    CHECK(ReadWhole(Out) == "frame,point,name,x,y,angle\r\n1,HIP,Hip,1,2,\r\n");
    CHECK((gVideoID.UBound() == 2 && gVideoID[2].SampleID == "S1" && Dialogs.Told.empty()));
}

TEST_CASE_FIXTURE(PointsCommand, "a table that cannot be taken is reported with its line and changes nothing")
{
    const std::string Before = ReadWhole(gCurFile).value();
    const std::string Head = "frame,point,x,y\n0,HIP,1,2\n";
    const std::tuple<std::string, std::string, std::string> Cases[] = {
        {Head + "10,HIP,1,2\n", "", "line 3: there is no frame 10, the last is 9"},
        {Head + "1.5,HIP,1,2\n", "", "line 3: 1.5 is no frame"},
        {Head + "1,EAR,1,2\n", "", "line 3: the session has no point EAR"},
        {Head + "1,HIP,1,two\n", "", "line 3: x or y is no number"},
        {Head + "1,HIP,1\n", "", "line 3: a cell is missing"},
        {"frame,x,y\n", "", "line 1: the columns"},
        {"", "", "line 1: the columns"},
        {Head, "S9", "There is no sample S9"},
    };
    for (const auto& [Clicks, Sample, Wrong] : Cases) {
        CAPTURE(Wrong);
        Dialogs.Told.clear();
        CHECK(!Run(Clicks, Sample));
        CHECK((Dialogs.Told.size() == 1 && Dialogs.Told[0].find(Wrong) != std::string::npos));
    }
    CHECK(!Run(Head, "", "none.mp4"));
    REQUIRE(SaveWhole(Folder.Path("s_points.csv"), "foreign"));
    CHECK(!Run(Head));
    CHECK((ReadWhole(gCurFile) == Before && !ReadWhole(Out) && PointsFile() == "foreign"));
}
