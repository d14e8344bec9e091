// The clocks of the video window, the animation control and the MPEG player on real clips.
#include "video/cVideo.h"

#include "core/mGlobData.h"
#include "core/mVideoFile.h"
#include "platform/ffmpeg/mMedia.h"
#include "support/Case.h"
#include "support/NumberedClip.h"
#include "support/ScriptedDialogs.h"
#include "support/TestClock.h"
#include "video/cControl.h"
#include "video/cMovie.h"

namespace {
constexpr int Pictures = 60;

struct Clock : FreshState
{
    TestClock Time;
    cVideo Video{MakeMedia()};

    Clock() { gHost.Clock = &Time; }

    // A clip of 2.4 s, or an uneven one, whose index is whole.
    void Open(cVideo& In, bool IsUneven = false)
    {
        const auto TickOf = [&](int i) { return int64_t{IsUneven && i >= 30 ? i + 20 : i}; };
        REQUIRE(WriteClip(Folder.Path("a.mp4"), {.Codec = "libx264", .BFrames = 2, .Group = 12}, Pictures, TickOf) ==
                "");
        REQUIRE(In.VideoFileOpen(Folder.Path("a.mp4")));
        while (In.IndexDone() < 1) {
        }
        In.TakeIndex();
    }
    int Shown() const { return Video.Shown() ? NumberShown(*Video.Shown()) : -1; }
};
} // namespace

TEST_CASE_FIXTURE(Clock, "buttons step, wrap at both ends and show the picture of the frame number")
{
    Open(Video);
    CHECK((Video.Duration() == 2.4 && Video.Frames() == 60 && gPlayStep == 0.04 && Video.VideoTitle() == "a"));
    struct Press
    {
        int Code;
        int Frame;
        double Time;
        int Picture;
    };
    for (const Press& Each : {Press{VideoPrev, 60, 2.4, 59}, Press{VideoNext, 0, 0, 0}, Press{VideoNext, 1, 0.04, 1},
                              Press{VideoNext, 2, 0.08, 2}, Press{VideoPrev, 1, 0.04, 1},
                              Press{VideoToEnd, 60, 2.4, 59}, Press{VideoPrev, 59, 2.36, 59},
                              Press{VideoPrev, 58, 2.32, 58}, Press{VideoToStart, 0, 0, 0}, Press{99, 0, 0, 0}}) {
        CAPTURE(Each.Code);
        Video.DoAction(Each.Code);
        CHECK(gPlayFrame == Each.Frame);
        CHECK(gPlayTime == doctest::Approx(Each.Time));
        CHECK(Shown() == Each.Picture);
    }
    Video.GoFrame(41);
    CHECK((Shown() == 41 && Video.Elapsed() == "1.64"));
    gPlayFrame = 7;
    Video.GoCurTime();
    CHECK((Shown() == 7 && Video.Elapsed() == "0.281" && gPlayTime == doctest::Approx(0.281)));
    gPlayStep = 0.08; // another window's clock
    gPlayFrame = 5;
    Video.GoCurTime();
    CHECK((Shown() == 10 && gPlayFrame == 5));
}

TEST_CASE_FIXTURE(Clock, "a clip runs by the clock, at the rate that is set, and begins again at its end")
{
    Open(Video);
    Video.DoAction(VideoPlay);
    for (const int Second : {1, 2}) {
        Time.Wait(1010);
        CHECK(Shown() == 25 * Second);
        CHECK(gPlayFrame == 25 * Second);
    }
    Time.Wait(600); // past the end
    CHECK(Shown() < 10);
    Video.DoAction(VideoPause);
    const int Held = Shown();
    Time.Wait(500);
    CHECK((Shown() == Held && !Video.IsRunning()));
    Video.DoAction(VideoToStart);
    Video.SetPlaybackRate(0.5);
    Video.DoAction(VideoPlay);
    Time.Wait(1010);
    CHECK(Shown() == 12);
    Video.GoFrame(50);
    Video.DoAction(VideoPlay); // in the last second: from the start
    CHECK(gPlayFrame == 0);
}

TEST_CASE_FIXTURE(Clock, "where a clip's pictures stray from its rate their own times count")
{
    Open(Video, true);
    Video.GoFrame(40);
    CHECK((Shown() == 40 && gPlayTime == doctest::Approx(2.4)));
    Video.DoAction(VideoNext);
    CHECK((Shown() == 41 && gPlayFrame == 41));
    Video.DoAction(VideoToStart);
    Video.DoAction(VideoPlay);
    Time.Wait(1500); // in the gap
    CHECK((Shown() == 29 && gPlayFrame == 29));
    Time.Wait(520);
    CHECK((Shown() == 30 && gPlayFrame == 30));
}

TEST_CASE_FIXTURE(Clock, "a file that cannot be shown is reported, and nothing is open then")
{
    Open(Video);
    REQUIRE(SaveWhole(Folder.Path("t.avi"), "no video"));
    CHECK_FALSE(Video.VideoFileOpen(Folder.Path("t.avi")));
    REQUIRE(Dialogs.Told.size() == 1);
    CHECK(Dialogs.Told[0].find("t.avi (") != std::string::npos);
    CHECK((!Video.IsOpen() && !Video.Shown()));
    Video.DoAction(VideoNext);
}

TEST_CASE_FIXTURE(Clock,
                  "a file that goes while it is shown is reported once, the clip stands, and its last picture stays")
{
    const std::string Path = Folder.Path("a.m2v");
    REQUIRE(WriteClip(Path, {.Codec = "mpeg2video", .Group = 12}, Pictures) == "");
    REQUIRE(Video.VideoFileOpen(Path));
    while (Video.IndexDone() < 1) {
    }
    Video.TakeIndex();
    Video.GoFrame(30);
    Video.DoAction(VideoPlay);
    std::filesystem::resize_file(Path, 0);
    std::filesystem::remove(Path);
    const auto Before = Video.Shown();
    Time.Wait(3000);
    CHECK((!Video.IsRunning() && Video.Shown() && !Video.Trouble().empty()));
    Video.DoAction(VideoToEnd);
    REQUIRE(Dialogs.Told.size() == 1);
    CHECK(Dialogs.Told[0].find("Can't read file: " + Path + " (picture ") != std::string::npos);
}

TEST_CASE_FIXTURE(Clock, "a clip that is cut says how many pictures are left, and both players end there")
{
    REQUIRE(WriteClip(Folder.Path("a.mkv"), {.Codec = "libx264", .Group = 12}, Pictures) == "");
    const std::string Whole = ReadWhole(Folder.Path("a.mkv")).value_or("");
    REQUIRE(SaveWhole(Folder.Path("a.mkv"), Whole.substr(0, Whole.size() / 2)));
    REQUIRE(Video.VideoFileOpen(Folder.Path("a.mkv")));
    while (!Video.IsCut())
        Video.TakeIndex();
    const int Left = Video.Pictures();
    CHECK((Left > 5 && Left < Pictures));
    const std::string Said = "breaks off after " + FormatNum(Left, "0") + " pictures";
    CHECK(Status.Shown.back().find(Said) != std::string::npos);
    Video.DoAction(VideoToEnd);
    CHECK(Shown() == Left - 1);
    Status.Shown.clear();
    cMovie Movie(MakeMedia());
    REQUIRE(Movie.VideoFileOpen(Folder.Path("a.mkv")));
    while (Status.Shown.empty())
        Movie.Pause();
    CHECK(Movie.FrameCnt() == Left);
    Movie.Play();
    Time.Wait(5000);
    CHECK((NumberShown(*Movie.Shown()) == Left - 1 && !Movie.IsRunning()));
}

TEST_CASE_FIXTURE(Clock, "the last picture of a fast clip is reached where its length is rounded down")
{
    REQUIRE(WriteClip(Folder.Path("f.mp4"), {.Codec = "libx264", .Rate = 240}, 6) == "");
    REQUIRE(Video.VideoFileOpen(Folder.Path("f.mp4")));
    while (Video.IndexDone() < 1) {
    }
    Video.TakeIndex();
    CHECK((Video.Duration() == 0.02 && Video.Frames() == 5)); // 0.025 s
    Video.GoFrame(5);
    CHECK(Shown() == 5);
    gPlayFrame = 5;
    Video.GoCurTime();
    CHECK(Shown() == 5);
    Video.DoAction(VideoPrev);
    Video.DoAction(VideoNext);
    CHECK(Shown() == 5);
    Video.DoAction(VideoNext);
    CHECK(Shown() == 0);
}

TEST_CASE_FIXTURE(Clock, "the animation control drives its videos by one timer and binds the video to the sample")
{
    Open(Video);
    cControl Control;
    int Views = 0;
    Control.PlayView = [&] { return Played{nullptr, [&] { ++Views; }, {}}; };
    CHECK(Control.VideoCnt() == -1);
    Control.AddVideo({&Video, [&] { Video.GoCurTime(); }, {}});
    Control.DoCommand(VideoNext);
    CHECK((gPlayFrame == 1 && Shown() == 1 && Views == 1));
    Control.SetSpeed("50");
    CHECK(Control.Interval() == 20);
    for (const char* Bad : {"", "x", "-3", "0"})
        Control.SetSpeed(Bad);
    CHECK(Control.Speed() == 2);
    Control.DoCommand(VideoPlay);
    Time.Wait(200);
    Control.DoCommand(VideoPause);
    CHECK((gPlayFrame == 11 && Shown() == 11));
    Control.DoCommand(VideoToEnd);
    CHECK(gPlayFrame == 11);

    gVideoFN = "/videos/row.mp4";
    gVideoStrokes = 3;
    CHECK_FALSE(cControl::BaundAndSave());
    gFile.Desc.Grow().SampleID = "Sample 1";
    SetCurFile(Folder.Path("s.txt"));
    gCurSample = 1;
    Control.DoCommand(ControlBound);
    CHECK((gFile.Desc[1].VideoFN == "row.mp4" && gFile.Desc[1].VideoStrN == 3));
    CHECK(ReadWhole(gCurFile).value_or("").find("row.mp4") != std::string::npos);
    Control.RemoveVideo(&Video);
    CHECK(Control.VideoCnt() == -1);
}

TEST_CASE_FIXTURE(Clock,
                  "the MPEG player steps by milliseconds, says what it was asked and wraps as the play view wants")
{
    Open(Video);
    cMovie Movie(MakeMedia());
    const auto Seen = [&] { return NumberShown(*Movie.Shown()); };
    REQUIRE(Movie.VideoFileOpen("\"" + Folder.Path("a.mp4") + "\""));
    CHECK((Movie.LengthMs() == 2400 && Movie.FrameCnt() == 60 && Seen() == 0 && gVidMs == 40));
    gPlayFrame = 7;
    Movie.Next();
    Movie.Next();
    CHECK((gPlayFrame == 7 && Seen() == 2 && Movie.SetPos() == "SetPos=80" && Movie.RetPos() == "RetPos=80" &&
           Movie.RetVal() == "RetVal=0"));
    Movie.Prev();
    Movie.Prev();
    Movie.Prev(); // ahead of the start
    CHECK((Seen() == 0 && Movie.SetPos() == "SetPos=-40" && Movie.RetPos() == "RetPos=0" &&
           Movie.RetVal() == "RetVal=1"));
    const std::tuple<int, int, int> Moves[] = {{12, 12, 12}, {0, 60, 59}, {60, 1, 0}, {-5, 60, 59}, {59, 59, 59}};
    for (const auto& [Frame, After, Picture] : Moves) {
        CAPTURE(Frame);
        gPlayFrame = Frame;
        Movie.GoCurTime();
        CHECK((gPlayFrame == After && Seen() == Picture));
    }
    gPlayFrame = 1;
    Movie.GoCurTime();
    Movie.Play();
    Time.Wait(405);
    Movie.Pause();
    CHECK((Seen() == 11 && !Movie.IsRunning()));
    Movie.Play();
    Time.Wait(5000);
    CHECK((Seen() == 59 && !Movie.IsRunning()));
}
