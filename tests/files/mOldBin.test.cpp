#include "files/mOldBin.h"

#include "support/Case.h"
#include "support/Hex.h"

#include <fstream>

namespace {
// Two samples of a time and one channel between 0.5 and 2.5 s.
std::string OldFile(const std::string& LastSample)
{
    return std::string(12, 'x') + HexText(LastSample) + HexText("00 00 00 00 00 00 E0 3F 00 00 00 00 00 00 04 40") +
           std::string(768, 'x') + HexText("00 00 00 00 00 00 00 00 00 00 00 00 00 00 F0 3F") +
           HexText("00 00 00 00 00 00 E0 3F 00 00 00 00 00 00 00 C0");
}
} // namespace

TEST_CASE_FIXTURE(FreshState, "an old file gives its samples, one that is too short for them changes nothing")
{
    const std::string Path = Folder.Path("old.bin");
    const auto Read = [&](const std::string& Bytes) {
        std::ofstream(Path, std::ios::binary) << Bytes;
        return ReadOldFile(Path);
    };
    gFile.ChanCnt = 1;
    const std::string Whole = OldFile("01 00 00 00");
    CHECK(Read(Whole + "tail"));
    CHECK((gRaw.ChannelUBound() == 1 && gRaw.UBound() == 1));
    CHECK((gRaw(0, 0) == 0 && gRaw(1, 0) == 1 && gRaw(0, 1) == 0.5 && gRaw(1, 1) == -2));
    CHECK((gRawStart == 0.5 && gRawStop == 2.5));
    gRawStop = 7;
    for (const std::size_t Size : {0U, 15U, 799U, 800U, 831U})
        CHECK_FALSE(Read(Whole.substr(0, Size)));
    for (const char* LastSample : {"02 00 00 00", "FE FF FF FF", "FF FF FF 7F", "C9 7D 00 00"})
        CHECK_FALSE(Read(OldFile(LastSample)));
    gFile.ChanCnt = -2;
    CHECK_FALSE(Read(Whole));
    CHECK_FALSE(ReadOldFile(Folder.Path("")));
    CHECK(Dialogs.Told.back() == "Error: Can't open file: " + Folder.Path(""));
    CHECK(Dialogs.Told.size() == 11);
    CHECK(gRaw(1, 1) == -2);
    CHECK(gRawStop == 7);
}
