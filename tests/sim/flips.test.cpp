// Recordings with a bit turned over, of every logger model: no reader leaves frames out without a word, and a mended
// copy is read to its end.
#include "files/mBinIO.h"
#include "files/mMend.h"
#include "files/mQVN.h"
#include "files/mTextIO.h"
#include "sim/mRecord.h"
#include "support/Case.h"

#include <random>

namespace {
struct Flipped : FreshState
{
    std::string Intact; // bytes of the recording
    int Frames = 0;
    std::string Raw = Folder.Path("a.qvn"), Copy = Folder.Path("b.qvn");

    void Record(const std::string& Session, int Model)
    {
        SimOptions Options;
        Options.Session = SOURCE_FOLDER "/demo/" + Session;
        Options.Recording = Raw;
        Options.Model = Model;
        Options.Strokes = 0;
        Options.Seconds = 4;
        SetCurFile(Options.Session);
        REQUIRE(ReadDataFile(Options.Session, gFile, SectionFilter::Non));
        REQUIRE_FALSE(RecordFile(Options, gFile).empty());
        gFile.Model = static_cast<int16_t>(Model);
        gFile.ChanCnt = 8; // a slave alone has no more
        Intact = ReadWhole(Raw).value();
        Frames = Read(Raw);
        REQUIRE(Frames >= 100);
        REQUIRE(Dialogs.Told.empty());
    }

    // Number of frames that are read; messages afresh.
    int Read(const std::string& Path)
    {
        int32_t Start = 0, Stop = 0;
        Dialogs.Told.clear();
        REQUIRE(ReadRawFile(Path, Start, Stop));
        return gRaw.UBound() + 1;
    }
};
} // namespace

TEST_CASE_FIXTURE(Flipped,
                  "whatever bit is turned over, no frame is left out without a word, and a mended copy is whole")
{
    std::mt19937 Random(12);
    int Stopped = 0, Lost = 0;
    for (const int Model : {60, 61, 65, 66, 67, 68}) {
        Record(Model == 61 ? "eight.txt" : "single.txt", Model);
        for (int i = 0; i < 150; ++i) {
            std::string Bytes = Intact;
            const std::size_t At = Random() % Bytes.size();
            const unsigned Bit = i % 2 == 0 ? 7 : Random() % 8;
            Bytes[At] = static_cast<char>(Bytes[At] ^ (1 << Bit));
            REQUIRE(SaveWhole(Raw, Bytes, Durability::Fast));
            CAPTURE(Model);
            CAPTURE(At);
            CAPTURE(Bit);
            const int Count = Read(Raw);
            if (Count < Frames) {
                ++Lost;
                REQUIRE(Dialogs.Told.size() == 1);
                Stopped += Dialogs.Told[0].find("stopped at byte ") != std::string::npos ? 1 : 0;
            }
            const auto Result = MendRawFile(Raw, Copy);
            REQUIRE(Result);
            CHECK(Result->Kept >= Frames - 1);
            CHECK(Result->Kept + Result->Frames == Frames);
            CHECK(Read(Copy) == Result->Kept);
            CHECK(Dialogs.Told.empty());
        }
    }
    CHECK(Stopped > 100);
    CHECK(Lost > Stopped);
}
