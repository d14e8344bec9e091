// Every picture of every kind of clip by its number; times, sizes, broken files and what is no video.
#include "platform/ffmpeg/mMedia.h"
#include "support/Case.h"
#include "support/NumberedClip.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace {
constexpr int Pictures = 60;

struct Clips : TempFolder
{
    std::unique_ptr<iMedia> Clip = MakeMedia();

    // The number that picture N shows, -1 without one.
    int Shown(int N) const
    {
        const auto Found = Clip->Frame(N);
        return Found ? NumberShown(*Found) : -1;
    }
};

struct ClipCase
{
    const char* Name;
    FilmKind Kind;
    int Ticks = 1; // at most, from a picture to the next
};

std::vector<int> Orders(int Kind)
{
    std::vector<int> Numbers(Pictures);
    std::iota(Numbers.begin(), Numbers.end(), 0);
    if (Kind == 1) std::reverse(Numbers.begin(), Numbers.end());
    if (Kind == 2) std::shuffle(Numbers.begin(), Numbers.end(), std::mt19937(7));
    return Numbers;
}

int64_t Uneven(int i)
{
    return i + i / 3 + i / 7 * 2;
}
} // namespace

TEST_CASE_FIXTURE(Clips, "a picture has one number, forwards, backwards and at random, in every kind of clip")
{
    const ClipCase Cases[] = {
        {"mpeg1.mpg", {.Codec = "mpeg1video", .BFrames = 2, .Group = 12}},
        {"mpeg2.mpg", {.Codec = "mpeg2video", .BFrames = 2, .Group = 12}},
        {"mpeg2.ts", {.Codec = "mpeg2video", .BFrames = 2, .Group = 12}},
        {"mpeg2.m2v", {.Codec = "mpeg2video", .BFrames = 2, .Group = 12}},
        {"mjpeg.avi", {.Codec = "mjpeg"}},
        {"mpeg4.avi", {.Codec = "mpeg4", .BFrames = 2, .Group = 12}},
        {"mpeg4.mp4", {.Codec = "mpeg4", .BFrames = 2, .Group = 12}},
        {"h264.mp4", {.Codec = "libx264", .BFrames = 3, .Group = 12}},
        {"h264.mkv", {.Codec = "libx264", .BFrames = 3, .Group = 12}},
        {"h264.avi", {.Codec = "libx264", .BFrames = 3, .Group = 12}},
        {"h264.ts", {.Codec = "libx264", .BFrames = 3, .Group = 12}},
        {"h264.h264", {.Codec = "libx264", .BFrames = 3, .Group = 12}},
        {"one group.mp4", {.Codec = "libx264", .Rate = 240, .BFrames = 3, .Group = 250}},
        {"vp8.webm", {.Codec = "libvpx", .Group = 12}},
        {"late.mkv", {.Codec = "libx264", .BFrames = 3, .Group = 12, .FirstTick = 250}},
        {"late.mp4", {.Codec = "libx264", .BFrames = 3, .Group = 12, .FirstTick = 250}},
        {"uneven.mp4", {.Codec = "libx264", .Rate = 50, .BFrames = 3, .Group = 12}, 4},
        {"uneven.mkv", {.Codec = "libx264", .Rate = 50, .BFrames = 3, .Group = 12}, 4},
    };
    for (const ClipCase& Each : Cases) {
        CAPTURE(std::string(Each.Name));
        const auto TickOf = [&](int i) { return Each.Ticks > 1 ? Uneven(i) : i; };
        REQUIRE(WriteClip(Path(Each.Name), Each.Kind, Pictures, TickOf) == "");
        for (const int Order : {0, 1, 2}) {
            REQUIRE(Clip->Open(Path(Each.Name)));
            CHECK(Shown(0) == 0);
            Clip->WaitForIndex();
            CHECK(Clip->Info().Frames == Pictures);
            std::vector<int> Found;
            for (const int N : Orders(Order))
                Found.push_back(Shown(N));
            CHECK(Found == Orders(Order));
        }
        CHECK(Shown(Pictures + 5) == Pictures - 1);
        const double Step = 1 / Each.Kind.Rate;
        double Worst = 0;
        for (int i = 0; i < Pictures; ++i) {
            Worst = std::max(Worst, std::abs(Clip->TimeOf(i) - static_cast<double>(TickOf(i)) * Step));
            CHECK(Clip->FrameAt(static_cast<double>(TickOf(i)) * Step + 0.002) == i);
        }
        CHECK(Worst < 0.0011); // a clip may count in milliseconds
        CHECK(std::abs(Clip->Info().Duration - static_cast<double>(TickOf(Pictures - 1) + 1) * Step) < 0.021);
    }
}

TEST_CASE_FIXTURE(Clips, "pictures are counted on before the index is whole, and keep their numbers")
{
    REQUIRE(WriteClip(Path("a.mp4"), {.Codec = "libx264", .BFrames = 3, .Group = 12}, Pictures) == "");
    REQUIRE(Clip->Open(Path("a.mp4")));
    for (const int N : {0, 3, 20, 10, 59, 30, 200, 0})
        CHECK(Shown(N) == std::min(N, Pictures - 1));
}

TEST_CASE_FIXTURE(Clips, "pictures are upright and their pixels square")
{
    struct Look
    {
        int Turn;
        double Aspect;
        int Width, Height;
        int White; // the corner where the only white block stands: 0 top left, 1 top right, 2 bottom right, 3 bottom
                   // left
    };
    constexpr int OnlyTopLeft = 0x80;
    for (const Look& Each : {Look{0, 1, 160, 96, 0}, Look{90, 1, 96, 160, 1}, Look{180, 1, 160, 96, 2},
                             Look{270, 1, 96, 160, 3}, Look{0, 2, 320, 96, 0}, Look{0, 0.75, 120, 96, 0}}) {
        CAPTURE(Each.Turn);
        sFilm Film;
        REQUIRE(Film.Begin(Path("a.mp4"), {.Codec = "libx264", .PixelAspect = Each.Aspect, .Turn = Each.Turn},
                           ClipWidth, ClipHeight) == "");
        REQUIRE(Film.Add(NumberedPicture(OnlyTopLeft), 0) == "");
        REQUIRE(Film.End() == "");
        REQUIRE(Clip->Open(Path("a.mp4")));
        const auto Seen = Clip->Frame(0);
        REQUIRE(Seen);
        CHECK((Seen->Width == Each.Width && Seen->Height == Each.Height));
        CHECK((Clip->Info().Width == Each.Width && Clip->Info().Height == Each.Height));
        const bool IsRight = Each.White == 1 || Each.White == 2;
        const bool IsBelow = Each.White >= 2;
        for (const bool Right : {false, true})
            for (const bool Below : {false, true}) {
                const int X = Right ? Seen->Width - 8 : 8;
                const int Y = Below ? Seen->Height - 8 : 8;
                const uint32_t Pixel = Seen->Pixels[static_cast<std::size_t>(Y * Seen->Width + X)];
                CHECK(((Pixel & 0xFF) > 127) == (Right == IsRight && Below == IsBelow));
                CHECK((Pixel >> 24) == 0xFF);
            }
    }
}

TEST_CASE_FIXTURE(Clips,
                  "a clip that is cut anywhere plays up to its end, and says that it is cut where the file shows it")
{
    struct Cut
    {
        ClipCase Of;
        bool SaysSo; // others state no sizes
        int First;   // percent of the file behind which there are pictures
    };
    const Cut Cases[] = {
        {{"a.mp4", {.Codec = "libx264", .BFrames = 3, .Group = 12, .TableBytes = 4000}}, true, 50},
        {{"b.mp4", {.Codec = "mpeg4", .BFrames = 2, .Group = 12, .TableBytes = 4000}}, true, 30},
        {{"a.mkv", {.Codec = "libx264", .BFrames = 3, .Group = 12}}, true, 20},
        {{"a.webm", {.Codec = "libvpx", .Group = 12}}, true, 20},
        {{"a.avi", {.Codec = "libx264", .BFrames = 2, .Group = 12}}, true, 50},
        {{"b.avi", {.Codec = "mjpeg"}}, true, 20},
        {{"c.avi", {.Codec = "mpeg4", .BFrames = 2, .Group = 12}}, true, 30},
        {{"a.mpg", {.Codec = "mpeg2video", .BFrames = 2, .Group = 12}}, false, 20},
        {{"b.mpg", {.Codec = "mpeg1video", .BFrames = 2, .Group = 12}}, false, 20},
        {{"a.ts", {.Codec = "libx264", .BFrames = 3, .Group = 12}}, false, 20},
        {{"a.h264", {.Codec = "libx264", .BFrames = 3, .Group = 12}}, false, 20},
    };
    for (const auto& [Of, SaysSo, First] : Cases) {
        const std::string Name = Of.Name;
        CAPTURE(Name);
        REQUIRE(WriteClip(Path(Name), Of.Kind, Pictures) == "");
        const std::string Whole = ReadWhole(Path(Name)).value_or("");
        REQUIRE(Clip->Open(Path(Name)));
        Clip->WaitForIndex();
        CHECK_FALSE(Clip->Info().IsCut);
        for (int Percent = 2; Percent < 96; Percent += 4) {
            CAPTURE(Percent);
            const std::size_t Size = Whole.size() * static_cast<std::size_t>(Percent) / 100;
            REQUIRE(SaveWhole(Path("cut_" + Name), Whole.substr(0, Size)));
            const bool IsOpened = Clip->Open(Path("cut_" + Name));
            if (SaysSo && !IsOpened) CHECK(Clip->Reason().starts_with("it breaks off"));
            CHECK((IsOpened || Percent < First));
            if (!IsOpened) continue;
            Clip->WaitForIndex();
            const int Frames = Clip->Info().Frames;
            CAPTURE(Frames);
            CHECK((Frames > 0 && Frames <= Pictures));
            if (SaysSo) CHECK(Clip->Info().IsCut);
            // One of the last ones, which are seen in another order than they stand in the file, lacks a part of
            // itself.
            for (int N = Frames - 5; N >= 0; N -= 3)
                CHECK(Shown(N) == N);
            CHECK(Clip->Frame(Frames - 1));
        }
    }
}

TEST_CASE_FIXTURE(Clips, "what is no video is refused in words")
{
    std::string Text;
    for (int i = 0; i < 200; ++i)
        Text += "Session\t1\tcoach\r\n";
    std::string Unknown; // a codec that nobody knows
    REQUIRE(WriteClip(Path("a.avi"), {.Codec = "mjpeg"}, 3) == "");
    Unknown = ReadWhole(Path("a.avi")).value_or("");
    for (std::size_t At = Unknown.find("MJPG"); At != std::string::npos; At = Unknown.find("MJPG"))
        Unknown.replace(At, 4, "Q9Z7");
    // A second of silence: 8000 bytes.
    std::string Sound("RIFF\x64\x1F\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1F\0\0\x40\x1F\0\0\1\0\x08\0data\x40\x1F\0\0",
                      44);
    Sound.append(8000, '\x80');
    const std::tuple<const char*, std::string, const char*> Cases[] = {
        {"empty.mp4", "", "it is empty"},
        {"text.txt", Text, "it is not a video, or it is damaged"},
        {"text.mp4", Text, "it is not a video, or it is damaged"},
        {"text.mpg", Text, "it is not a video, or it is damaged"},
        {"text.avi", Text, "it is not a video, or it is damaged"},
        {"sound.wav", Sound, "there is no video in it, only sound or data"},
        {"unknown.avi", Unknown, "there is no decoder for its codec Q9Z7"},
    };
    for (const auto& [Name, Bytes, Reason] : Cases) {
        CAPTURE(std::string(Name));
        REQUIRE(SaveWhole(Path(Name), Bytes));
        CHECK_FALSE(Clip->Open(Path(Name)));
        CHECK(Clip->Reason() == std::string(Reason));
        CHECK(Clip->Frame(0) == nullptr);
        CHECK(Clip->IndexDone() == 1);
    }
    CHECK_FALSE(Clip->Open(Path("none.mp4")));
    CHECK(Clip->Reason() == "there is no such file");
    CHECK_FALSE(Clip->Open(Path("")));
    CHECK(Clip->Reason() == "it is no file");
}

TEST_CASE_FIXTURE(Clips, "a file that is removed while it plays is reported, and nothing falls over")
{
    for (const char* Name : {"a.m2v", "a.mpg", "a.mp4", "a.avi"}) {
        CAPTURE(std::string(Name));
        const bool IsMpeg = std::string(Name).find("m2v") != std::string::npos || Name[2] == 'm';
        REQUIRE(WriteClip(Path(Name), {.Codec = IsMpeg ? "mpeg2video" : "mpeg4", .Group = 12}, Pictures) == "");
        REQUIRE(Clip->Open(Path(Name)));
        Clip->WaitForIndex();
        std::filesystem::resize_file(Path(Name), 0);
        std::filesystem::remove(Path(Name));
        for (const int N : {40, 3, 0, 59, 0, 20})
            if (!Clip->Frame(N)) CHECK_FALSE(Clip->Reason().empty());
        CHECK_FALSE(Clip->Open(Path(Name)));
    }
}
