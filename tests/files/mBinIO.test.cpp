#include "files/mBinIO.h"

#include "support/Case.h"
#include "support/Hex.h"

#include <algorithm>
#include <fstream>

namespace {
// A program with a session of one slave of 8 channels, of which the first three are calibrated differently.
class Recording : public FreshState
{
public:
    Recording()
    {
        gFile = DataFile{};
        gFile.Model = 67;
        gFile.ChanCnt = 3;
        gFile.Calibr.Resize(3);
        gFile.Calibr[1].Q0 = -10;
        gFile.Calibr[1].Q1 = 0.5;
        gFile.Calibr[2].ProcMode = 2;
        gFile.Calibr[2].Qup0 = 1;
        gFile.Calibr[2].Qdn0 = 2;
        gFile.Calibr[3].ProcMode = 1;
        gFile.Calibr[3].Qup2 = 0.25;
        gRaw.Create(3, 0);
    }

    std::string File(const std::string& Bytes)
    {
        std::ofstream(Folder.Path("a.qvn"), std::ios::binary) << Bytes;
        return Folder.Path("a.qvn");
    }

    // Reads a file of these bytes between two positions. The samples as lines, or "false".
    std::string Read(const std::string& Bytes, int32_t From = 0, int32_t To = 0)
    {
        Start = From;
        Stop = To;
        return ReadRawFile(File(Bytes), Start, Stop) ? Samples() : "false";
    }

    static std::string Samples()
    {
        std::string Text;
        for (int i = 0; i <= gRaw.UBound(); ++i, Text += "| ")
            for (int Chan = 0; Chan <= gRaw.ChannelUBound(); ++Chan)
                Text += FormatShortest(gRaw(Chan, i)) + " ";
        return Text;
    }

    int32_t Start = 0;
    int32_t Stop = 0;
};

// A short frame of 33 bytes: stamp in milliseconds, three channels.
std::string Short(int Stamp, int A = 0, int B = 0, int C = 0)
{
    const auto Word = [](int X) { return std::string{static_cast<char>(X % 128), static_cast<char>(X / 128 % 128)}; };
    return HexText("80 00 1C 00") + Word(Stamp) + Word(Stamp / 16384) + std::string(8, '\0') + Word(A) + Word(B) +
           Word(C) + std::string(11, '\0');
}
} // namespace

TEST_CASE_FIXTURE(Recording, "samples are calibrated and timed from the first stamp that moves")
{
    CHECK(Read(HexText("01 02") + Short(0, 20, 5, 2) + Short(0, 22, 6, 4) + HexText("7F 00") + Short(125, 24, 4, 6) +
               Short(250, 26, 4, 8)) == "0 0 1 1 | 0 1 1 4 | 0 2 2 9 | 0.125 3 1.5 16 | ");
    CHECK(Start == 1);
    CHECK(Stop == 136);
    CHECK(Read(Short(250, 20) + Short(375, 20)) == "0 0 1.5 0 | 0.125 0 1.5 0 | ");
}

TEST_CASE_FIXTURE(Recording, "a frame cut off at any byte is dropped")
{
    const std::string Whole = Short(0) + Short(40) + Short(80);
    const char* Places[] = {"byte 1 of ", "byte 34 of ", "byte 67 of "};
    const char* Frames[] = {" (frame 0, 0.0 s): ", " (frame 1, 0.0 s): ", " (frame 2, 0.0 s): "};
    for (std::size_t Size = 1; Size <= Whole.size(); ++Size) {
        CAPTURE(Size);
        Dialogs.Told.clear();
        Read(Whole.substr(0, Size));
        const std::size_t Count = Size / 33;
        CHECK(gRaw.UBound() == static_cast<int>(Count) - 1);
        if (Size % 33 == 0 || Size == 34 || Size == 67) // a single byte is not waited for
            CHECK(Dialogs.Told.empty());
        else
            CHECK(Dialogs.Told ==
                  Texts{"Warning!: " + Folder.Path("a.qvn") + ": stopped at " + Places[Count] +
                        FormatShortest(static_cast<double>(Size)) + Frames[Count] + "the rest was not read"});
    }
}

TEST_CASE_FIXTURE(Recording,
                  "what a reader leaves out is reported with its place, and is a failure to whoever wants it so")
{
    const std::string A = Short(1000, 2), B = Short(2000, 4), C = Short(4000, 6), D = Short(6000, 8);
    const std::string Refused = HexText("80 00 02 00 01 80 01"), NoSync = '\x7F' + B.substr(1);
    const std::string Doubtful = B.substr(0, 20) + '\x80' + B.substr(21);
    const std::tuple<std::string, const char*> Cases[] = {
        {"xy" + A + "z" + B + "end", ""}, // stray bytes are nothing unusual
        {A + B + Refused + D, "stopped at byte 67 of 106 (frame 2, 1.0 s): the rest was not read"},
        {A + NoSync + C + D, "1 frame that could not be decoded left out (33 bytes), the first at byte 34 of 132 "
                             "(frame 1, 0.0 s)"},
        {A + C + NoSync + NoSync, "1 frame that could not be decoded left out (66 bytes), the first at byte 67 of 132 "
                                  "(frame 2, 3.0 s)"},
        {A + Doubtful + C, "1 frame with a sync byte inside, wrong or lying over others, the first at byte 34 of 99 "
                           "(frame 1, 0.0 s)"},
        {A + NoSync + Refused + D, "stopped at byte 67 of 106 (frame 1, 0.0 s): the rest was not read; 1 frame that "
                                   "could not be decoded left out "
                                   "(33 bytes), the first at byte 34 of 106 (frame 1, 0.0 s)"},
    };
    for (const auto& [Bytes, Words] : Cases) {
        CAPTURE(Words);
        Dialogs.Told.clear();
        const std::string Samples = Read(Bytes);
        CHECK(Samples != "false");
        const bool IsWhole = std::string_view(Words).empty();
        CHECK(Dialogs.Told == (IsWhole ? Texts{} : Texts{"Warning!: " + File(Bytes) + ": " + Words}));
        gStrictReading = true;
        Read(Short(40, 2));
        CHECK(Read(Bytes) == (IsWhole ? Samples : "false"));
        if (!IsWhole) CHECK(Recording::Samples() == "0 -9 1.5 0 | ");
        gStrictReading = false;
    }
    // A reader that says it itself.
    Dialogs.Told.clear();
    Unread Left;
    REQUIRE(ReadRawFile(File(A + Refused + D), Start = 0, Stop = 0, &Left));
    CHECK((Dialogs.Told.empty() && Left.IsShort() && Left.IsMendable()));
    REQUIRE(ReadRawFile(File(A + B.substr(0, 20)), Start = 0, Stop = 0, &Left));
    CHECK((Left.IsShort() && !Left.IsMendable()));                  // there is nothing behind it
    REQUIRE(ReadRawFile(File(A + B), Start = 20, Stop = 0, &Left)); // from within a frame on
    CHECK(Left.Text().empty());
}

TEST_CASE_FIXTURE(Recording, "bytes without a frame give an empty recording, a refused frame ends it")
{
    CHECK(Read(HexText("00 01 7F")).empty());
    CHECK(Read("").empty());
    CHECK(gRaw.UBound() == -1);
    CHECK(gRaw.ChannelUBound() == 3);
    // A frame of another size goes to the long decoder, which refuses the sync byte within it.
    CHECK(Read(Short(0, 20) + HexText("80 00 02 00 01 80 01") + Short(40, 20)) == "0 0 1.5 0 | ");
}

TEST_CASE_FIXTURE(Recording, "a stretch begins at the next frame and ends with the one that reaches Stop")
{
    const std::string Four = Short(125, 2) + Short(250, 4) + Short(375, 6) + Short(500, 8);
    const std::tuple<int32_t, int32_t, const char*> Stretches[] = {
        {34, 100, "0 -8 1.5 0 | 0.125 -7 1.5 0 | "}, // whole frames; position 100 is the third's end
        {35, 67, "0 -7 1.5 0 | "},
        {-5, 34, "0 -9 1.5 0 | "},
        {-5, 35, "0 -9 1.5 0 | 0.125 -8 1.5 0 | "},
        {100, 9999, "0 -6 1.5 0 | "},
        {120, 0, ""},
        {500, 0, ""},
        {34, 3, "0 -8 1.5 0 | "},
    };
    for (const auto& [From, To, Samples] : Stretches) {
        CAPTURE(From);
        CAPTURE(To);
        CHECK(Read(Four, From, To) == Samples);
        CHECK(Start == std::max(From, 1));
        CHECK(Stop == (To < 1 ? 132 : To));
    }
    gFrameMin = 33; // while more than a frame is to come
    CHECK(Read(Four, 1, 67) == "0 -9 1.5 0 | ");
    gFrameMin = 133;
    CHECK(Read(Four).empty());
}

TEST_CASE_FIXTURE(Recording, "a long recording keeps 32,201 samples and reports its progress once a percent")
{
    std::string Bytes;
    for (int i = 0; i < 33000; ++i)
        Bytes += Short(40 + 40 * i, i % 100, i % 3, 0);
    Read(Bytes);
    CHECK(gRaw.UBound() == 32200);
    CHECK(Dialogs.Told ==
          Texts{"Warning!: " + Folder.Path("a.qvn") +
                ": only the first 32201 samples are used, stopped at byte 1062634 of 1089000 "
                "(frame 32201, 1288.0 s): scan it for strokes, or choose a stretch, to reach the rest"});
    bool IsRight = true;
    const double Directions[] = {2, 1, 1}; // of counts 0, 1, 2, 0, 1, ...
    for (int i = 1; i <= 32200; ++i)
        IsRight = IsRight && gRaw(0, i) == (40 + 40 * i) / 1000.0 - 0.04 && gRaw(1, i) == i % 100 * 0.5 - 10 &&
                  gRaw(2, i) == Directions[i % 3];
    CHECK(IsRight);
    Texts Percents;
    for (int i = 1; i <= 97; ++i)
        Percents.push_back("3: " + FormatNum(i, "0") + "%");
    CHECK(Status.Shown == Percents);
}

TEST_CASE_FIXTURE(Recording, "what cannot be read is reported and leaves the samples as they were")
{
    CHECK(Read(Short(40, 2)) == "0 -9 1.5 0 | ");
    CHECK_FALSE(ReadRawFile(Folder.Path("missing.qvn"), Start, Stop));
    CHECK_FALSE(ReadRawFile(Folder.Path(""), Start, Stop));
    CHECK(Dialogs.Told ==
          Texts{"Error: Can't open file: " + Folder.Path("missing.qvn"), "Error: Can't open file: " + Folder.Path("")});
    CHECK(Samples() == "0 -9 1.5 0 | ");
    for (const int ChanCnt : {-1, 4, 85}) {
        gFile.ChanCnt = static_cast<int16_t>(ChanCnt);
        CHECK_THROWS_AS(Read(Short(40, 2)), RunError);
        CHECK(Samples() == "0 -9 1.5 0 | ");
    }
}

TEST_CASE_FIXTURE(Recording, "a cut holds the frames between two positions without the bytes between them")
{
    const std::string A = Short(0, 1);
    const std::string B = HexText("90 00 02 00 01 80 01"); // no decoder would take it
    const std::string C = Short(40, 2);
    const std::string Dest = Folder.Path("cut.qvn");
    gRawFN = File("xy" + A + "z" + B + "zz" + C + C.substr(0, 20));
    CHECK(CutRawFile(Dest, 0, 0));
    CHECK(ReadWhole(Dest) == A + B + C);
    CHECK(CutRawFile(Dest, 4, 43)); // the first sync byte is at 3, the second frame's end at 43
    CHECK(ReadWhole(Dest) == B);
    CHECK(CutRawFile(gRawFN, 1, 44));
    CHECK(ReadWhole(gRawFN) == A + B);
    gRawFN = Folder.Path("missing.qvn");
    CHECK_FALSE(CutRawFile(Dest, 0, 0));
    CHECK(ReadWhole(Dest) == B);
    gRawFN = File(A);
    CHECK_FALSE(CutRawFile(Folder.Path("none/cut.qvn"), 0, 0));
    CHECK(Dialogs.Told.size() == 2);
}
