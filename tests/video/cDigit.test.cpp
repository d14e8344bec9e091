// Digitising of a clip: angles, clicks, dragging, frames, undo, and what is kept.
#include "video/cDigit.h"

#include "support/Figure.h"
#include "video/mFigure.h"

#include <numbers>

namespace {
struct Digitising : FigureSession
{
    Digitising() { Digit.SetNewFrame(0); }

    // A new start on the clip.
    static cDigit Begun(int Index, const std::string& Sample = "", const std::string& Title = "clip", int Frame = 0)
    {
        cDigit New({Title, 10, 10, 0.4});
        New.Begin(Index, Sample);
        New.SetNewFrame(Frame);
        return New;
    }

    // Clicks at these places, one after another.
    void Click(const std::vector<VideoPoint>& Places)
    {
        for (const VideoPoint& Each : Places) {
            Digit.Press(Each.X, Each.Y, 3);
            Digit.Release();
        }
    }

    std::string Placed() const
    {
        std::string Text;
        for (const Mark& Each : Digit.Marks())
            Text += Each.Place.IsPlaced() ? FormatShortest(Each.Place.X) + " " : "- ";
        return Text + FormatNum(Digit.CurDot(), "0");
    }

    // Thigh forward, shank down, foot forward: right angles at knee and ankle.
    const std::vector<VideoPoint> Leg = {{100, 100}, {200, 100}, {200, 200}, {260, 200}};
    cDigit Digit = Begun(DigItBody);
};
} // namespace

TEST_CASE("the angle between three points")
{
    struct Row
    {
        VideoPoint A, B, C;
        double Degrees;
    };
    const Row Cases[] = {
        {{0, 0}, {5, 0}, {9, 0}, 180},
        {{0.1, 0.1}, {0.2, 0.2}, {0.7, 0.7}, 180},
        {{3, 4}, {3, 4}, {9, 0}, 90},
        {{3, 4}, {9, 0}, {9, 0}, 90},
        {{0, 10}, {0, 0}, {10, 0}, 90},
        {{10, 0}, {0, 0}, {10, 10}, 45},
        {{1, 0}, {0, 0}, {-1, 0.001}, 179.9427},
    };
    for (const Row& Each : Cases)
        CHECK(CalcAngle(Each.A, Each.B, Each.C) * 180 / std::numbers::pi ==
              doctest::Approx(Each.Degrees).epsilon(1e-6));
    CHECK_THROWS_AS(CalcAngle({1, 1}, {5, 7}, {1, 1}), RunError);
    CHECK((IsFolded({0, 0}, {3, 0}, {1, 0}) && !JointAngle({0, 0}, {3, 0}, {1, 0})));
}

TEST_CASE_FIXTURE(Digitising, "clicks place the points in turn, the fifth begins again, and dragging corrects one")
{
    Click({Leg[0], Leg[1]});
    CHECK((Placed() == "100 200 - - 3" && Digit.NextName() == "Ankle, outer"));
    Click({{198.5, 101.5}}); // on the knee: it is chosen, nothing is placed
    CHECK(Placed() == "100 200 - - 2");
    Click({{201.26, 120}, Leg[2], Leg[3]});
    CHECK(Placed() == "100 201.3 200 260 1");
    Digit.Press(262, 200, 3);
    Digit.Move(300.04, 210, 3);
    Digit.Release();
    CHECK(Placed() == "100 201.3 200 300 1"); // and the hip is next again
    Click({{90, 100}});
    CHECK(Placed() == "90 201.3 200 300 2");
    Digit.Move(300, 213, 3);
    CHECK(Digit.HoverDot() == 4);
    Digit.Move(300, 213.1, 3);
    CHECK(Digit.HoverDot() == 0);
}

TEST_CASE_FIXTURE(Digitising, "three clicks give an angle, a fourth drops the oldest corner")
{
    Digit = Begun(DigItAngle, "S1");
    Click({{0, 100}, {0, 0}});
    CHECK(!Digit.CornerAngle());
    Click({{100, 0}});
    CHECK(Digit.CornerAngle() == doctest::Approx(90));
    Click({{100, 100}});
    CHECK((Digit.Corners()[0].X == 0 && Digit.Corners()[0].Y == 0 && Digit.CornerAngle() == doctest::Approx(90)));
    Digit.Press(99, 99, 3);
    Digit.Move(200, 0, 3);
    Digit.Release();
    CHECK(Digit.CornerAngle() == doctest::Approx(180));
    CHECK((Digit.Undo() && Digit.Corners().size() == 2));
    CHECK((!Digit.NeedsSaving() && gVideoID.UBound() == 0));
}

TEST_CASE_FIXTURE(Digitising,
                  "a frame's angles are formed from its own points, one that is left unchanged writes nothing")
{
    Click(Leg);
    CHECK(Digit.ShownAngle(2) == doctest::Approx(90));
    Digit.SetNewFrame(1);
    CHECK((Digit.All().Frames() == std::vector<int>{0} && Digit.LastDot() == 0));
    // Knee ahead of the hip: it is shown with the hip of the frame before, and kept with its own.
    Digit.SelectDot(2);
    Click({{200, 150}, {200, 250}});
    CHECK(Digit.ShownAngle(2) == doctest::Approx(116.565));
    Digit.SelectDot(1);
    Click({{100, 150}});
    Digit.SetNewFrame(5);
    Digit.SetNewFrame(12); // past the last picture: that one
    CHECK((Digit.Frame() == 9 && Digit.All().Frames() == std::vector<int>{0, 1}));
    CHECK(Digit.All().On(1)[2].Angle == doctest::Approx(90));
    CHECK(!Digit.All().On(1)[3].Angle); // no toe on this frame
    Digit.SetNewFrame(0);
    CHECK(Digit.ShownAngle(2) == doctest::Approx(90)); // not with the hip of frame 1
    CHECK(Digit.All().Table() == "frame,point,name,x,y,angle\r\n0,HIP,Hip,100,100,\r\n0,KNEE,Knee,200,100,90\r\n"
                                 "0,ANK,\"Ankle, outer\",200,200,90\r\n0,TOE,Toe,260,200,\r\n1,HIP,Hip,100,150,\r\n"
                                 "1,KNEE,Knee,200,150,90\r\n1,ANK,\"Ankle, outer\",200,250,\r\n");
}

TEST_CASE_FIXTURE(Digitising, "a folded joint is reported once and stays where it is, without an angle")
{
    Click({{100, 100}, {200, 100}, {150, 100}});
    Digit.SetNewFrame(1);
    Digit.SetNewFrame(0);
    Digit.SelectDot(3);
    Click({{150, 100.4}});
    Digit.Undo();
    Digit.SetNewFrame(1);
    CHECK((Dialogs.Told.size() == 1 && Dialogs.Told[0].find("Knee on frame 0") != std::string::npos));
    CHECK((Digit.All().On(0)[2].Place.X == 200 && !Digit.All().On(0)[2].Angle));
}

TEST_CASE_FIXTURE(Digitising, "the last steps are undone across frames, a deleted frame comes back")
{
    Click({Leg[0], Leg[1]});
    Digit.SetNewFrame(3);
    Click({Leg[0]});
    Digit.Press(Leg[0].X, Leg[0].Y, 3);
    Digit.Move(50, 50, 3);
    Digit.Release();
    CHECK((Digit.DeleteFrame() && !Digit.DeleteFrame() && Digit.All().Frames() == std::vector<int>{0}));
    const char* const After[] = {"50 - - - 2", "100 - - - 2", "- - - - 1", "100 - - - 2", "- - - - 1"};
    for (const char* Wanted : After) {
        CHECK(Digit.Undo());
        CHECK(Placed() == Wanted);
    }
    CHECK((!Digit.Undo() && Digit.Frame() == 0));
    Digit.SaveFrame();
    CHECK(Digit.All().Frames().empty());
}

TEST_CASE_FIXTURE(Digitising, "points are kept with the session and go on after a restart, by name or by sample")
{
    Click(Leg);
    REQUIRE(Digit.SaveRower());
    CHECK(!Digit.NeedsSaving());
    Restart();
    REQUIRE(gVideoID.UBound() == 1);
    CHECK((gVideoID[1].SampleID == "T" && gVideoID[1].VideoFN == "clip" && gVideoID[1].FrameCnt == 10));
    CHECK((gVideoID[1].FirstFrame == 1 && gVideoID[1].DotCnt == 4 && gVideoID[1].Length == 0.4F));
    Digit = Begun(DigItBody);
    CHECK((Digit.IsFound() && Placed() == "100 200 200 260 1"));

    cDigit Other = Begun(DigItBody, "", "clip2");
    CHECK((!Other.IsFound() && Other.All().Frames().empty()));
    Other.SetDot(7, 7, 1);
    REQUIRE(Other.SaveRower());
    CHECK((gVideoID.UBound() == 2 && Begun(DigItBody).Marks()[1].Place.X == 100));

    // The clip of a sample has another name now.
    cDigit Sampled = Begun(DigItPlayBody, "S1", "old");
    Sampled.SetDot(5, 5, 1);
    REQUIRE(Sampled.SaveRower());
    Dialogs.AnswerYes = false;
    CHECK(!Begun(DigItPlayBody, "S1", "new").IsFound());
    Dialogs.AnswerYes = true;
    Sampled = Begun(DigItPlayBody, "S1", "new");
    CHECK((Sampled.Marks()[1].Place.X == 5 && Sampled.SaveRower()));
    Restart();
    CHECK((gVideoID.UBound() == 3 && gVideoID[3].VideoFN == "new"));
    CHECK(PointsFile().find("S1,new,0,HIP,5,5,\r\n") != std::string::npos);
}

TEST_CASE_FIXTURE(Digitising, "Save Data asks before it rewrites, a failed save leaves the session as it was")
{
    Click(Leg);
    CHECK((Digit.SaveData() && Dialogs.Told.empty()));
    Click({{90, 100}});
    Dialogs.AnswerYes = false;
    CHECK((!Digit.SaveData() && Digit.NeedsSaving()));
    CHECK(Dialogs.Told == Texts{"Video data for the sample T and video file clip already exists!: Would you like to  "
                                "rewrite/append the video data?",
                                "Warning!: Video ID data was not saved!"});
    CHECK(PointsFile().find(",HIP,100,100,") != std::string::npos);
    REQUIRE(SaveWhole(Folder.Path("s_points.csv"), "foreign"));
    CHECK((!Digit.SaveRower() && Digit.NeedsSaving() && gVidCoords[1].Values[0].X == 100));
    gCurFile = Folder.Path("other.txt");
    CHECK((!Digit.SaveRower() && Dialogs.Told.back().find("belong to the session") != std::string::npos));
}

TEST_CASE_FIXTURE(Digitising, "faults of the figure are reported when digitising begins")
{
    gSegs.Grow() = {"X", "Odd", "HIP", "EAR"};
    gDots.Grow() = {"HIP", "Hip again", 0};
    Begun(DigItBody);
    REQUIRE(Dialogs.Told.size() == 1);
    CHECK(Dialogs.Told[0].find("Segment X: there is no point EAR") != std::string::npos);
    CHECK(Dialogs.Told[0].find("Two points have the identifier \"HIP\"") != std::string::npos);
    CHECK((gSegs[1].StartPoint == 1 && gSegs[1].EndPoint == 2 && gSegs[4].EndPoint == 0));
}
