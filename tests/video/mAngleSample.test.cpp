// Angles of a digitised clip as curves of a sample.
#include "video/mAngleSample.h"

#include "support/Figure.h"

namespace {
// Knee angles of two strokes at 30 a minute, 25 frames a second, in frames 10 to 110; the toe's are on one frame only.
struct TwoStrokes : FigureSession
{
    TwoStrokes()
    {
        FrameMarks Marks;
        Marks.Resize(4);
        for (int Frame = 10; Frame <= 110; ++Frame) {
            Marks[2] = {{0, 0}, Angle((Frame - 10) / 50.0)};
            All.Put(Frame, Marks);
        }
        gFile.Desc[1].Rate = 30;
    }
    static double Angle(double Phase) { return 110 + 60 * std::cos(2 * 3.14159265358979 * Phase); }
    std::vector<AngleCourse> Courses() const
    {
        return AngleCourses(All, [](int Frame) { return Frame * 0.04; });
    }

    cMarks All;
};
} // namespace

TEST_CASE_FIXTURE(TwoStrokes, "whole strokes become the mean cycle of 51 points, stored as a row of the sample")
{
    auto Found = Courses();
    REQUIRE((Found.size() == 1 && Found[0].Dot == 2 && StrokesIn(Found[0], 30) == 2));
    for (int Times = 0; Times < 2; ++Times) // the second time in place of the first
        REQUIRE(StoreAngles(Found, 1, 2));
    Restart();
    REQUIRE((gFile.Data.UBound() == 1 && gFile.Desc[1].ParCount == 1));
    CHECK((gFile.Data[1].ParamID == "KNEE" && gFile.Data[1].Values.size() == 51));
    for (std::size_t i = 0; i <= 50; ++i)
        CHECK(gFile.Data[1].Values[i] == doctest::Approx(Angle(static_cast<double>(i) / 50)).epsilon(1e-4));
}

TEST_CASE_FIXTURE(TwoStrokes, "what is no number of whole strokes is refused with the reason")
{
    const auto Whole = Courses()[0];
    AngleCourse Part = Whole;
    Part.Angles.back() = 60;
    AngleCourse Few{2, {0, 4}, {100, 100}};
    const std::tuple<AngleCourse, int, std::string> Cases[] = {
        {Whole, 2, ""},
        {Whole, 0, "one stroke or more"},
        {Whole, 3, "the frames last 4.00 s, 3 strokes at the sample's rate 6.00 s"},
        {Part, 2, "ends 110.0 degrees off"},
        {Few, 2, "2 frames are too few"},
    };
    for (const auto& [Course, Strokes, Wanted] : Cases)
        CHECK((Wanted.empty() ? WhyNoStrokes(Course, Strokes, 30).empty()
                              : WhyNoStrokes(Course, Strokes, 30).find(Wanted) != std::string::npos));
    CHECK((!StoreAngles({Part}, 1, 2) && gFile.Data.UBound() == 0 && Dialogs.Told.size() == 1));
}
