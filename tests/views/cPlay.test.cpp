// The play view without its window: curves around the clock, the clock itself, the figure, and the offset of a video.
#include "files/mTextIO.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"
#include "views/play/cPlayPlots.h"
#include "views/play/mPlayOffset.h"

namespace {
constexpr int LastSample = 300;
constexpr double Period = 0.04;

void AddRow(int16_t Oper, const char* Arguments)
{
    ViewRow& Row = gFile.View4.Grow();
    Row.ID = "Row";
    Row.Seat = 1;
    Row.Oper = Oper;
    Row.Arguments = Arguments;
    Row.MaxXPar = 100;
    Row.MinYPar = -50, Row.MaxYPar = 50;
    Row.Y1 = Row.Y2 = 100; // right and bottom
}

// A recording of two channels at 25 Hz and a stored stroke of 2 s, with an angle, a seat, a trunk and an acceleration.
struct Played : FreshState
{
    Played()
    {
        gFile = {};
        for (const char* Name : {"A1", "S1", "T1", "Acc"}) {
            CalibrRow& Channel = gFile.Calibr.Grow();
            Channel.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Channel.ParamID = Name;
            DataRow& Row = gFile.Data.Grow();
            Row.SampleID = "S01";
            Row.ParamID = Name;
            for (int j = 0; j <= 50; ++j) {
                const double Phase = j * 3.14159265358979 / 25;
                Row.Values.push_back(*Name == 'A' && Name[1] == '1' ? -10 - 45 * std::cos(Phase)
                                     : *Name == 'S'                 ? 0.3 - 0.3 * std::cos(Phase)
                                     : *Name == 'T'                 ? -25 * std::cos(Phase)
                                                                    : 4 * std::sin(Phase));
            }
        }
        gFile.Calibr[1].Mode = SensorAngle;
        gFile.Calibr[1].Lever = 0.9;
        gFile.ChanCnt = 4;
        DescRow& Desc = gFile.Desc.Grow();
        Desc.SampleID = "S01";
        Desc.DataCount = 50;
        Desc.Rate = 30;
        gRaw.Create(4, LastSample);
        for (int i = 0; i <= LastSample; ++i) {
            gRaw(0, i) = i * Period;
            for (int Chan = 1; Chan <= 4; ++Chan)
                gRaw(Chan, i) = std::sin(i * 0.1 * Chan) * 40 + i % (Chan + 2);
        }
    }
};
} // namespace

TEST_CASE_FIXTURE(Played, "wherever the clock goes in a recording, the curves are those of a view that begins there")
{
    for (const auto& [Oper, Arguments] :
         {std::pair{0, "A1,A1"}, {1, "A1,S1,T1"}, {3, "A1,S1,T1"}, {6, "A1,A1"}, {8, "A1,A1,S1,T1,Acc"}})
        AddRow(static_cast<int16_t>(Oper), Arguments);
    cPlay Play;
    REQUIRE(Play.InitData({.Mode = PlayPrimary, .FileName = "a.qvn"}));
    CHECK(Play.Caption() == "Primary Data in a.qvn");
    CHECK(gPlayStep == doctest::Approx(Period));
    for (const double Time : {0.5, 0.54, 3.0, 2.98, 2.0, 6.1, 5.9, 9.95, 10.7, 11.99, 40.0, 8.0, 7.9, 0.0, -3.0}) {
        Play.MovePrim(Time);
        const int32_t There = gPlayIdx;
        for (const PlayRow& Each : Play.Rows()) {
            cData04play Fresh;
            Fresh.InitViewID(Each.Number, PlayPrimary, 0, gPlayStep);
            REQUIRE(Fresh.FirstSample() == Each.Plot.FirstSample());
            for (int k = 0; k <= cData04play::PrimPoints; ++k) {
                const int32_t Sample = There - 50 + k;
                const double Y = Each.Plot.Ys()[static_cast<std::size_t>(k)];
                REQUIRE(std::isnan(Y) == (Sample < 1 || Sample >= LastSample));
                if (!std::isnan(Y)) REQUIRE(Y == Fresh.Ys()[static_cast<std::size_t>(k)]);
            }
            CHECK(Each.Plot.Current().has_value() == (There >= 1 && There < LastSample));
        }
    }
    Play.MovePrim(4);
    const int32_t s = gPlayIdx;
    CHECK(*Play.Rows()[3].Plot.Current() ==
          doctest::Approx((gRaw(1, s + 1) - gRaw(1, s)) * 0.9 * 0.017453292519943278 / Period));
}

TEST_CASE_FIXTURE(Played, "a cycle's value stands between two points, and a whole cycle is none")
{
    AddRow(0, "A1,S1");
    cPlay Play;
    REQUIRE(Play.InitData({.Mode = PlayTypical, .Sample = 1}));
    CHECK(Play.Caption() == "Typical Data at Stroke Rate 30.0");
    const auto Ys = Play.Rows()[0].Plot.Ys();
    const auto At = [&](double Frac) {
        Play.CalcNorm(Frac);
        return *Play.Rows()[0].Plot.Current();
    };
    for (const auto& [Frac, Point] :
         {std::pair{0.0, 0.0}, {1.0, 0.0}, {2.0, 0.0}, {0.25, 12.25}, {0.5, 24.5}, {0.99, 48.51}, {-0.5, 24.5}}) {
        const auto k = static_cast<std::size_t>(Point);
        CHECK(At(Frac) == doctest::Approx(Ys[k] + (Point - std::floor(Point)) * (Ys[k + 1] - Ys[k])));
    }
    // A correction moves the data, not the clock.
    Play.SetTime(0.5);
    Play.SetCorrection(0.2);
    CHECK(gPlayTime == 0.5);
    CHECK(*Play.Rows()[0].Plot.Current() == doctest::Approx(At(0.7 / 2)));
    Play.SetCorrection(-2.3);
    CHECK(Play.TimeText() == "0.20");
    CHECK(Play.ShareText() == "10%");
}

TEST_CASE_FIXTURE(Played,
                  "the clock steps, runs by the time that has passed, begins a cycle again and ends a recording")
{
    AddRow(0, "A1,S1");
    cPlay Play;
    REQUIRE(Play.InitData({.Mode = PlayTypical, .Sample = 1}));
    CHECK(gPlayStep == doctest::Approx(2.0 / 25));
    Play.StepBy(-1);
    CHECK(gPlayFrame == 24);
    CHECK(Play.StepBy(1));
    CHECK(std::pair(gPlayFrame, gPlayTime) == std::pair(0, 0.0));
    for (int i = 0; i < 7; ++i)
        Play.Advance(0.03); // 0.21 s: two steps and a rest
    CHECK(gPlayFrame == 2);
    Play.ToEnd();
    CHECK(gPlayTime == doctest::Approx(1.92));
    // A video of three strokes in 7.5 s at 50 pictures a second gives step and cycle.
    REQUIRE(Play.InitData(
        {.Mode = PlayTypical, .Sample = 1, .Duration = 7.5, .Strokes = 3, .Frames = 375, .FrameTime = 0.02}));
    Play.SetTime(3.75);
    CHECK(Play.Share() == doctest::Approx(0.5));
    CHECK(gPlayFrame == 188);
    CHECK(Play.Length() == doctest::Approx(7.5));
    Play.SetShare(0.1); // of the cycle in which the clock is
    CHECK(gPlayTime == doctest::Approx(2.75));
    REQUIRE(Play.InitData({.Mode = PlayComplex, .Sample = 1, .Frames = 60, .FrameTime = 0.04}));
    CHECK(Play.Caption() == "Complex Data at Stroke Rate 30.0");
    gPlayFrame = 45; // as a playback control moves it
    Play.GoCurTime();
    CHECK(Play.Share() == doctest::Approx(0.75));
    REQUIRE(Play.InitData({.Mode = PlayPrimary}));
    Play.ToEnd();
    CHECK(gPlayIdx == LastSample - 1);
    CHECK(Play.ShareText() == "100%");
    CHECK_FALSE(Play.StepBy(1));
    CHECK_FALSE(Play.Advance(9));
    Play.ToStart();
    CHECK_FALSE(Play.StepBy(-1));
    CHECK(Play.TimeText() == "0.00");
}

TEST_CASE_FIXTURE(Played, "what cannot be played is reported, and a row that cannot be computed leaves the others")
{
    cPlay Play;
    CHECK_FALSE(Play.InitData({.Mode = 7}));
    CHECK(Dialogs.Told.back() == "Error: Wrong Play View parameter");
    AddRow(2, "A1,S1"); // takes two
    AddRow(0, "A1,S1");
    AddRow(0, "");
    AddRow(1, "A1,Zz,None,S1");
    for (const int16_t Mode : {PlayPrimary, PlayTypical}) {
        REQUIRE(Play.InitData({.Mode = Mode, .Sample = 1}));
        CHECK(Play.Rows().size() == 2);
        CHECK(Play.Notes().size() == 2);
    }
    CHECK(Play.Notes()[1].find("no channel Zz") != std::string::npos);
    CHECK(Play.Renew());
    gFile.Desc[1].SampleID = "other";
    CHECK_FALSE(Play.Renew());
    gRaw.Create(4, 2);
    CHECK_FALSE(Play.InitData({.Mode = PlayPrimary}));
}

TEST_CASE_FIXTURE(Played, "the figure sits as seat, trunk and oar say, and the boat's position moves all of it")
{
    AddRow(OperFigureXY, "Acc,S1,T1,A1");
    AddRow(OperFigureXZ, "Acc,S1,T1,A1");
    AddRow(OperFigureXY, "None,S1,T1,A1");
    for (int Row = 1; Row <= 3; ++Row) {
        gFile.View4[Row].MinXPar = -2.5, gFile.View4[Row].MaxXPar = 2.5;
        gFile.View4[Row].MinYPar = -1, gFile.View4[Row].MaxYPar = 4;
    }
    const auto Made = [](int Row) {
        cFigure Figure;
        Figure.InitViewID(Row, 1);
        Figure.SetScales({0, 500, 0, 500}, 0.01); // 100 units to the metre
        return Figure;
    };
    const cFigure Side = Made(1), Above = Made(2), Still = Made(3);
    REQUIRE(Side.AnimArr().size() == 51);
    CHECK(Side.Notes().size() == 2); // neither body nor rig
    CHECK(Still.Notes().size() == 3);
    const auto X = [](int Joint) { return static_cast<std::size_t>(2 * Joint + 1); };
    for (std::size_t k = 0; k <= 50; ++k) {
        const auto& Moving = Side.AnimArr()[k];
        const auto& Resting = Still.AnimArr()[k];
        CHECK(std::abs(Moving[0] - 1e4 * Side.Positions()[k]) <= 0.5);
        for (const int Joint : {JointToes, JointKnee, JointHead, JointBlade, JointGate}) {
            CHECK(std::abs(Moving[X(Joint)] - Resting[X(Joint)] - Moving[0]) <= 1);
            CHECK(Moving[X(Joint) + 1] == Resting[X(Joint) + 1]);
        }
        const double Angle = gFile.Data[1].Values[k] * 0.017453292519943278;
        CHECK(Resting[X(JointHand)] - Resting[X(JointGate)] ==
              doctest::Approx(1e4 * 0.9 * std::sin(Angle)).epsilon(1e-3));
        const auto& Top = Above.AnimArr()[k];
        CHECK(Top[X(JointGate) + 1] - Top[X(JointHand) + 1] ==
              doctest::Approx(1e4 * 0.9 * std::cos(Angle)).epsilon(1e-3));
        const double Thigh = std::hypot(Resting[X(JointHip)] - Resting[X(JointKnee)],
                                        Resting[X(JointHip) + 1] - Resting[X(JointKnee) + 1]);
        CHECK(Thigh == doctest::Approx(1e4 * 0.247 * 1.85).epsilon(1e-3));
    }
    // The seat goes 0.6 m from the catch, point 0, to the finish.
    const auto& Catch = Still.AnimArr()[0];
    const auto& Finish = Still.AnimArr()[25];
    CHECK(Finish[X(JointHip)] - Catch[X(JointHip)] == doctest::Approx(6000).epsilon(1e-3));
    CHECK(Catch[X(JointShoulder)] < Catch[X(JointHip)]);
    CHECK(Finish[X(JointShoulder)] > Finish[X(JointHip)]);
    // A row of the crew has its own lengths.
    CrewRow& Rower = gFile.Crew.Grow();
    Rower.Seat = 1;
    Rower.Height = 2;
    Rower.Thigh = 0.6F;
    gFile.Boat.Grow().Seat = 1;
    const cFigure Known = Made(3);
    CHECK(Known.Notes().size() == 1);
    CHECK(std::abs(Known.AnimArr()[0][X(JointHip)] - Known.AnimArr()[25][X(JointHip)] + 6000) <= 1);
}

TEST_CASE_FIXTURE(Played, "two clicks find a video's offset, and the session keeps it with the sample")
{
    AddRow(0, "A1,S1");
    gCurFile = Folder.Path("s.txt");
    PlayData Data{.Mode = PlayTypical, .Sample = 1, .VideoFN = "/clips/b.mp4"};
    Data.Duration = 4, Data.Strokes = 2, Data.Frames = 200, Data.FrameTime = 0.02;
    cPlay Play;
    REQUIRE(Play.InitData(Data));
    SurfaceLog Surface(600, 400);
    DrawPlayGround(Surface, Play);
    const cData04play& Plot = Play.Rows()[0].Plot;
    const auto Click = [&](double Seconds) {
        return *Play.TimeAt({Plot.Middle() + Seconds / 2 * Plot.Rect().Width(), Plot.Rect().Top + 9});
    };
    CHECK(Click(0.3) == doctest::Approx(0.3));
    CHECK_FALSE(Play.TimeAt({2, 2}));
    Play.SetTime(1.3); // the catch on the video
    Play.MatchVideo();
    Play.SetTime(2.5);
    Play.MatchData(Click(-0.4)); // its data stand 0.8 s later, or 1.2 s earlier in the cycle
    CHECK(Play.Correction() == doctest::Approx(0.8));
    CHECK_FALSE(Play.IsMatching());
    CHECK(KeptOffset(1, "/clips/b.mp4") == 0);
    REQUIRE(KeepOffset(Play));
    REQUIRE(KeepOffset(Play));
    CHECK(gVideoID.UBound() == 1);
    gVideoID.Clear();
    REQUIRE(ReadDataFile(gCurFile, gFile, SectionFilter::Any));
    CHECK(KeptOffset(1, "b.mp4") == doctest::Approx(0.8));
    CHECK(KeptOffset(1, "c.mp4") == 0);
    CHECK(KeptOffset(0, "b.mp4") == 0);
}
