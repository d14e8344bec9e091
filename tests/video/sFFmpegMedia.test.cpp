// Every picture of every kind of clip by its number; times, sizes, broken files and what is no video.
#include "platform/ffmpeg/mMedia.h"
#include "support/Case.h"
#include "support/NumberedClip.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <fstream>
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

TEST_CASE_FIXTURE(Clips, "a clip that breaks off plays up to its end")
{
    for (const std::string Name : {"a.mkv", "a.avi", "a.mpg", "b.avi", "a.ts"}) {
        CAPTURE(Name);
        const bool IsMpeg = Name == "a.mpg";
        const FilmKind Kind{.Codec = IsMpeg            ? "mpeg2video"
                                     : Name == "b.avi" ? "mjpeg"
                                                       : "libx264",
                            .BFrames = Name == "b.avi" ? 0 : 2,
                            .Group = 12};
        REQUIRE(WriteClip(Path(Name), Kind, Pictures) == "");
        for (const int Share : {50, 65, 77}) {
            const auto Size = std::filesystem::file_size(Path(Name));
            std::filesystem::copy_file(Path(Name), Path("cut_" + Name),
                                       std::filesystem::copy_options::overwrite_existing);
            std::filesystem::resize_file(Path("cut_" + Name), Size * static_cast<std::uintmax_t>(Share) / 100);
            CAPTURE(Share);
            CAPTURE(Size);
            CHECK(Clip->Open(Path("cut_" + Name)));
            CAPTURE(Clip->Reason());
            Clip->WaitForIndex();
            const int Frames = Clip->Info().Frames;
            CAPTURE(Frames);
            CHECK((Frames > 5 && Frames < Pictures));
            // One of the last ones, which are seen in another order than they stand in the file, lacks a part of
            // itself.
            for (int N = Frames - 4; N >= 0; --N)
                CHECK(Shown(N) == N);
            CHECK(Clip->Frame(Frames - 1));
        }
    }
}

TEST_CASE_FIXTURE(Clips, "what is no video is refused in words")
{
    REQUIRE(SaveWhole(Path("empty.mp4"), ""));
    std::string Text;
    for (int i = 0; i < 200; ++i)
        Text += "Session\t1\tcoach\r\n";
    for (const char* Name : {"text.txt", "text.mp4", "text.mpg", "text.avi"})
        REQUIRE(SaveWhole(Path(Name), Text));
    for (const char* Name : {"empty.mp4", "text.txt", "text.mp4", "text.mpg", "text.avi", "none.mp4", ""}) {
        CAPTURE(std::string(Name));
        CHECK_FALSE(Clip->Open(Path(Name)));
        CHECK_FALSE(Clip->Reason().empty());
        CHECK(Clip->Frame(0) == nullptr);
        CHECK(Clip->IndexDone() == 1);
    }
}
