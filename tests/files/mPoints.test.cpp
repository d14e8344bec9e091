// The file of digitised points: round trip, broken and foreign files, and its saving together with the session.
#include "files/mPoints.h"

#include "files/mNewSession.h"
#include "support/Figure.h"

#include <algorithm>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {
const std::string Head = "Sample ID,Video FN,Frame,Point ID,X,Y,Angle\r\n";

struct Points : FigureSession
{
    Points()
    {
        gVideoID.Grow() = {"S1", "clip, one", 0, 1, 3, 0.1F, 4};
        gVidCoords.Grow() = {"S1", "clip, one", "KNEE", 2, 2, {{10.1, 20}, {}, {0, 0}}};
        gVidAngles.Grow() = {"S1", "clip, one", "KNEE", 2, 2, {{101.25, 0}, {}, {}}};
    }
};
} // namespace

TEST_CASE_FIXTURE(Points, "points come back as they were saved, those of another session do not stay")
{
    REQUIRE(WriteSession());
    const std::string Text = Head + "S1,\"clip, one\",0,KNEE,10.1,20,101.25\r\nS1,\"clip, one\",2,KNEE,0,0,\r\n";
    CHECK(PointsFile() == Text);
    Restart();
    CHECK((PointsText() == Text && gVidCoords[1].High == 2 && !gVidCoords[1].Values[1].IsPlaced()));
    CHECK(std::isnan(gVidAngles[1].Values[2].X));
    REQUIRE(WriteSession());
    CHECK(PointsFile() == Text);

    const std::string First = gCurFile;
    std::filesystem::copy_file(First, Folder.Path("other.txt"));
    REQUIRE(OpenSession(Folder.Path("other.txt")));
    CHECK(gVidCoords.UBound() == 0);
    REQUIRE(WriteSession());
    CHECK(!ReadWhole(Folder.Path("other_points.csv")));

    REQUIRE(OpenSession(First));
    REQUIRE(StartSession(Folder.Path("as.txt"), gFile, Folder.Path("")));
    CHECK(ReadWhole(Folder.Path("as_points.csv")) == Text);
    gVidCoords.Clear();
    REQUIRE(WriteSession());
    CHECK(ReadWhole(Folder.Path("as_points.csv")) == Head);
    CHECK(Dialogs.Told.empty());
}

TEST_CASE_FIXTURE(Points, "a broken or foreign file is reported with its line, left alone and never replaced")
{
    const std::pair<std::string, std::string> Cases[] = {
        {"", "Line 1: the columns"},
        {"name,age\r\nKim,23\r\n", "Line 1: the columns"},
        {Head + "S1,v,0,KNEE,1,2\r\n", "Line 2: 6 cells"},
        {Head + "S1,v,0,KNEE,1,2,\r\nS1,v,1.5,KNEE,1,2,\r\n", "Line 3: 1.5 is no number of a frame"},
        {Head + "S1,v,-1,KNEE,1,2,\r\n", "Line 2: -1 is no number"},
        {Head + "S1,v,1e9,KNEE,1,2,\r\n", "Line 2: frame 1e9 is too high"},
        {Head + "S1,v,0,KNEE,1x,2,\r\n", "Line 2: X or Y"},
        {Head + "S1,v,0,KNEE,inf,2,\r\n", "Line 2: X or Y"},
        {Head + "S1,v,0,KNEE,1,2,wide\r\n", "Line 2: wide is no angle"},
        {Head + "S1,v,0,KNEE,1,2,\r\nS1,v,0,KNEE,1,2,\r\n", "Line 3: point KNEE stands twice on frame 0"},
        {Head + "S1,\"v,0,KNEE,1,2,\r\n", "Line 2: a quote is not closed"},
    };
    const std::string Before = ReadWhole(gCurFile).value();
    const auto Digitised = gVidCoords;
    for (const auto& [Text, Wrong] : Cases) {
        CAPTURE(Text);
        REQUIRE(SaveWhole(Folder.Path("s_points.csv"), Text));
        Dialogs.Told.clear();
        Restart();
        CHECK((Dialogs.Told.size() == 1 && Dialogs.Told[0].find(Wrong) != std::string::npos));
        CHECK((gVidCoords.UBound() == 0 && WriteSession()));
        gVidCoords = Digitised;
        gFile.Comment = "new";
        CHECK(!WriteSession());
        gFile.Comment.clear();
        CHECK((Dialogs.Told.size() == 2 && PointsFile() == Text && ReadWhole(gCurFile) == Before));
    }
    // Sound, but not what was read.
    REQUIRE(SaveWhole(Folder.Path("s_points.csv"), Head));
    CHECK((!WriteSession() && Dialogs.Told.back().find("it is not as it was read") != std::string::npos));
}

TEST_CASE_FIXTURE(Points, "a video that has points and no row in the session gets one")
{
    REQUIRE(WriteSession());
    gVideoID.Clear();
    gVidCoords.Clear();
    ReadPoints(gCurFile);
    REQUIRE(gVideoID.UBound() == 1);
    CHECK((gVideoID[1].SampleID == "S1" && gVideoID[1].VideoFN == "clip, one" && gVideoID[1].FrameCnt == 3));
}

TEST_CASE_FIXTURE(Points, "a kill at any instant of a save leaves session and points whole")
{
    const auto Save = [this](int Number) {
        gFile.Comment = std::string(200'000, static_cast<char>('a' + Number % 2));
        gVidCoords[1].Values.assign(3000, VideoPoint{static_cast<double>(Number % 2), 1});
        return WriteSession();
    };
    REQUIRE(Save(0));
    for (int Round = 0; Round < 12; ++Round) {
        int Pipe[2];
        REQUIRE(pipe(Pipe) == 0);
        const pid_t Child = fork();
        if (Child == 0) {
            for (int i = 1;; ++i)
                if (!Save(i) || write(Pipe[1], "s", 1) != 1) _exit(1);
        }
        char Saved = 0;
        REQUIRE(read(Pipe[0], &Saved, 1) == 1);
        usleep(static_cast<useconds_t>(Round * 700));
        kill(Child, SIGKILL);
        int Ended = 0;
        waitpid(Child, &Ended, 0);
        CHECK(WIFSIGNALED(Ended));
        close(Pipe[0]);
        close(Pipe[1]);
        Restart();
        CHECK((Dialogs.Told.empty() && gFile.Comment.size() == 200'000));
        CHECK((gVidCoords.UBound() == 1 && gVidCoords[1].Values.size() == 3000));
        CHECK(std::all_of(gVidCoords[1].Values.begin(), gVidCoords[1].Values.end(),
                          [](const VideoPoint& Each) { return Each.X == gVidCoords[1].Values[0].X; }));
    }
}
