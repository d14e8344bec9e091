// Mended copies of recordings, byte by byte.
#include "files/mMend.h"

#include "support/Case.h"
#include "support/Hex.h"

namespace {
std::string Word(int X)
{
    return {static_cast<char>(X % 128), static_cast<char>(X / 128 % 128)};
}

std::string Framed(const std::string& Body)
{
    return HexText("80 00") + Word(static_cast<int>(Body.size()) - 1) + Body;
}

// A frame of a master without slaves, of 35 bytes; Value goes into its first channels.
std::string Long(int Stamp, int Value = 7)
{
    return Framed(Word(Stamp) + std::string(3, '\0') + HexText("01 00 00 00 00") + Word(Value) + Word(Value) +
                  std::string(17, '\0'));
}

// A frame of the old slave, which the long decoder takes for one of 64 blocks.
std::string Old(int Stamp)
{
    return Framed(Word(Stamp) + std::string(3, '\0') + HexText("40 00") + std::string(42, '\5'));
}

std::string With(std::string Bytes, std::size_t At, int Bit)
{
    Bytes[At] = static_cast<char>(Bytes[At] ^ (1 << Bit));
    return Bytes;
}

struct Workshop : FreshState
{
    std::string Raw = Folder.Path("a.qvn"), Copy = Folder.Path("copy.qvn");

    Workshop() { gFile = {}; }

    std::optional<Mending> Mend(const std::string& Bytes)
    {
        REQUIRE(SaveWhole(Raw, Bytes, Durability::Fast));
        auto Result = MendRawFile(Raw, Copy);
        CHECK(ReadWhole(Raw) == Bytes);
        return Result;
    }
};
} // namespace

TEST_CASE_FIXTURE(Workshop, "a broken frame costs itself alone, wherever its bit was turned over")
{
    const std::string A = Long(40), B = Long(80), C = Long(120), D = Long(160);
    const std::tuple<const char*, std::string, std::string, int, int, int> Cases[] = {
        {"nothing is broken", A + B + C, A + B + C, 0, 0, 0},
        {"bytes between frames", "xy" + A + "z" + B + C + "end", A + B + C, 0, 6, 1},
        {"a byte of the body", A + With(B, 20, 7) + C + D, A + C + D, 1, 35, 36},
        {"the sync byte", A + With(B, 0, 7) + C + D, A + C + D, 1, 35, 36},
        {"a length that reaches over the next frames", A + With(B, 2, 6) + C + D, A + C + D, 1, 35, 36},
        {"a length beyond the end", A + B + With(C, 3, 6) + D, A + B + D, 1, 35, 71},
        {"a length that is too short", A + With(B, 2, 4) + C + D, A + C + D, 1, 35, 36},
        {"a length that makes a frame of a slave alone", A + With(B, 2, 1) + C + D, A + C + D, 1, 35, 36},
        {"a length that takes the next sync byte for its end", A + With(B, 2, 0) + C + D, A + C + D, 1, 35, 36},
        {"the byte of the head that nobody looks at", A + With(B, 1, 7) + C, A + With(B, 1, 7) + C, 0, 0, 0},
        {"the last byte, which nobody looks at either", A + With(B, 34, 7) + C, A + With(B, 34, 7) + C, 0, 0, 0},
        {"two frames side by side", A + With(B, 9, 7) + With(C, 20, 7) + D, A + D, 2, 70, 36},
        {"the first frame", With(A, 9, 7) + B + C, B + C, 1, 35, 1},
        {"the last frame", A + B + With(C, 9, 7), A + B, 1, 35, 71},
        {"a frame cut off", A + B + C.substr(0, 20), A + B, 1, 20, 71},
    };
    for (const auto& [What, Bytes, Copied, Frames, Count, At] : Cases) {
        CAPTURE(What);
        const auto Result = Mend(Bytes);
        REQUIRE(Result);
        CHECK(ReadWhole(Copy) == Copied);
        CHECK(Result->Kept == static_cast<int>(Copied.size() / 35));
        CHECK(Result->Frames == Frames);
        CHECK(Result->Bytes == Count);
        CHECK(Result->FirstAt == At);
    }
    CHECK(Dialogs.Told.empty());
    CHECK(Mend(A + With(B, 20, 7) + C)->Words() == "1 frame (35 bytes) left out, the first at byte 36; 2 frames kept");
    CHECK(Mend(A)->Words() == "Nothing was left out of 1 frame");
}

TEST_CASE_FIXTURE(Workshop, "frames of the old slave are kept by what they are, with a session and without")
{
    const std::string Bytes = Old(40) + With(Old(80), 30, 7) + Old(120) + With(Old(160), 2, 4) + Old(200);
    for (const int Model : {0, 66}) {
        gFile.Model = static_cast<int16_t>(Model);
        REQUIRE(Mend(Bytes));
        CHECK(ReadWhole(Copy) == Old(40) + Old(120) + Old(200));
    }
    gFile.Model = 61; // a session that says a master sent them
    CHECK_FALSE(Mend(Bytes));
}

TEST_CASE_FIXTURE(Workshop, "nothing is written without a frame, over the recording itself, or when it is given up")
{
    REQUIRE(SaveWhole(Copy, "kept"));
    CHECK_FALSE(Mend("no frame"));
    CHECK_FALSE(MendRawFile(Folder.Path("none.qvn"), Copy));
    REQUIRE(Mend(Long(40)));
    REQUIRE(SaveWhole(Copy, "kept"));
    std::filesystem::create_symlink(Raw, Folder.Path("link.qvn"));
    for (const std::string& Dest : {Raw, Folder.Path("link.qvn")})
        CHECK_FALSE(MendRawFile(Raw, Dest));
    CHECK(ReadWhole(Raw) == Long(40));
    Status.CancelAt = 60;
    CHECK_FALSE(Mend(Long(40) + Long(80) + Long(120)));
    Status.CancelAt = 101;
    CHECK_FALSE(MendRawFile(Raw, Folder.Path("nowhere/b.qvn")));
    CHECK(ReadWhole(Copy) == "kept");
    CHECK(Dialogs.Told ==
          Texts{"Error: There are no frames of a logger in the file: " + Raw,
                "Error: Can't open file: " + Folder.Path("none.qvn"),
                "Error: The recording itself is never changed: choose another file than " + Raw,
                "Error: The recording itself is never changed: choose another file than " + Raw,
                "Error: Can't write file: " + Folder.Path("nowhere/b.qvn") + " (No such file or directory)"});
}
