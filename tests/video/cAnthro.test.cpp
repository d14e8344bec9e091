// Body segments measured on a picture.
#include "video/cAnthro.h"

#include "core/mIni.h"
#include "support/Case.h"

namespace {
struct Measuring : FreshState
{
    Measuring() { gAppDir = Folder.Path(""); }
    void Click(const std::vector<VideoPoint>& Places)
    {
        for (const VideoPoint& Each : Places) {
            Body.Press(Each.X, Each.Y, 3);
            Body.Release();
        }
    }

    cAnthro Body;
};
} // namespace

TEST_CASE_FIXTURE(Measuring, "a known length gives the millimetres of the segments, which go to the rower's row")
{
    gAntro.Grow() = {"R1", 100, 1.9F, 80, 250, 430};
    REQUIRE(SaveAntro());
    Click({{0, 0}, {300, 400}}); // 500 pixels
    CHECK((Body.Current() == 1 && !Body.Length(0)));
    CHECK(!Body.Store("R1"));
    Body.SetKnown(1000);
    CHECK(Body.NextName() == "Foot: first end");
    Click({{10, 10}, {10, 140}, {50, 50}});
    CHECK(Body.NextName() == "Shank: other end");
    CHECK((Body.Length(1) == doctest::Approx(260) && !Body.Length(2)));
    Body.Press(11, 139, 3);
    Body.Move(10, 145.04);
    Body.Release();
    CHECK(Body.Length(1) == doctest::Approx(270));
    CHECK(!Body.Store(""));
    REQUIRE(Body.Store("R1"));
    REQUIRE(Body.Store("R1")); // the same day: the same row
    REQUIRE(LoadAntro());
    REQUIRE(gAntro.UBound() == 2);
    CHECK((gAntro[2].Foot == 270 && gAntro[2].Shank == 430 && gAntro[2].Weight == 80 && gAntro[1].Foot == 250));
}

TEST_CASE_FIXTURE(Measuring, "clicks are undone one by one, and a line is measured anew when it is chosen")
{
    Body.SetKnown(100);
    Click({{0, 0}, {100, 0}, {0, 50}, {30, 50}});
    CHECK(Body.Length(1) == doctest::Approx(30));
    Body.Select(1);
    Click({{0, 60}, {40, 60}});
    CHECK((Body.Length(1) == doctest::Approx(40) && Body.Current() == 2));
    CHECK((Body.Undo() && !Body.Length(1) && Body.Undo() && Body.Length(1) == doctest::Approx(30)));
    for (int i = 0; i < 4; ++i)
        CHECK(Body.Undo());
    CHECK((!Body.Undo() && Body.Current() == 0 && !Body.Ends(0).first.IsPlaced()));
}
