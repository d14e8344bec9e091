#include "files/mDecode.h"

#include "support/Case.h"
#include "support/Hex.h"

namespace {
const std::string Time = "5C 0B 00 00 00 "; // 1500 ms
const std::string Master = "01 00 02 00 03 00 04 01 00 00 01 00 7F 3F 00 40 7F 7F 05 00 ";
const std::string MasterCounts = "0=1.5 1=1 2=2 3=3 4=132 5=8192 6=8193 7=16383 9=8191 10=8197";

// A long body with that block count and kind, and what follows the master words.
std::vector<uint8_t> LongBody(const std::string& Blocks, const std::string& Kind, const std::string& Rest)
{
    return Hex(Time + Blocks + " " + Kind + " 00 00 00 " + Master + Rest);
}

// A stream of frames.
class Decoding
{
public:
    bool Long(std::span<const uint8_t> Body) { return DecodeLong(Body, Kept, Data); }
    bool Short(std::span<const uint8_t> Body) { return DecodeShort(Body, Kept, Data); }

    // The channels that are not 0.
    std::string Counts() const
    {
        std::string Text;
        for (std::size_t Chan = 0; Chan < Data.size(); ++Chan)
            if (Data[Chan] != 0) Text += " " + std::to_string(Chan) + '=' + FormatShortest(Data[Chan]);
        return Text.substr(Text.empty() ? 0 : 1);
    }

    // What a body with slave blocks of the given bytes puts behind the master's channels.
    std::string BlockCounts(const std::string& Blocks, const std::string& Count = "02")
    {
        Data.fill(0);
        CHECK(Long(LongBody(Count, "00", Blocks + " 00")));
        CHECK(Counts().starts_with(MasterCounts));
        return Counts().substr(MasterCounts.size());
    }

    FreshState State;
    Stream Kept;
    SampleVector Data{};
};

const std::string Words4 = "01 00 7F 7F 00 40 03 00";
const std::string Words8 = Words4 + " 05 00 06 00 07 00 08 00";
const std::string Words16 = Words8 + " 09 00 0A 00 0B 00 0C 00 0D 00 0E 00 0F 00 10 00";
} // namespace

TEST_CASE_FIXTURE(Decoding, "channels 11 to 16 come by frame kind and otherwise keep what was last received")
{
    const std::array<const char*, 3> Frames[] = {
        {"1A", "0B 00 0C 00", " 11=11 12=12"},
        {"22", "01 01 01 01 7F 7F 7F 7F 02 01 10 00", " 11=11 12=12 13=2113665 14=268435455 15=130 16=16"},
        {"24", "15 00 16 00 01 01 01 01 7F 7F 7F 7F 02 01", " 11=21 12=22 13=2113665 14=268435455 15=130 16=16"},
        {"26", "1F 00 20 00 00 00 00 00 01 00 00 00 00 01 24 00", " 11=31 12=32 14=1 15=128 16=36"},
        {"00", "", " 11=31 12=32 14=1 15=128 16=36"}};
    for (const auto& [Kind, Block, Optional] : Frames) {
        CAPTURE(Kind);
        CHECK(Long(LongBody("01", Kind, std::string(Block) + " 00")));
        CHECK(Counts() == MasterCounts + Optional);
    }
    // The vector made anew for a file gets the values held as soon as a frame carries any of them.
    Data.fill(0);
    CHECK(Long(LongBody("01", "1A", "0B 00 0C 00 00")));
    CHECK(Counts() == MasterCounts + " 11=11 12=12 14=1 15=128 16=36");
}

TEST_CASE_FIXTURE(Decoding, "a slave block's flags give its size, its sign and its extra words")
{
    CHECK(BlockCounts("01 00 00 1E " + Words4) == " 17=1 18=16383 19=8192 20=3");
    CHECK_FALSE(Kept.SignedADC);
    CHECK(BlockCounts("01 00 00 3E " + Words4) == " 17=8193 18=8191 20=8195");
    CHECK(Kept.SignedADC);
    CHECK(BlockCounts("01 00 00 1A " + Words8) == " 17=1 18=16383 19=8192 20=3 21=5 22=6 23=7 24=8");
    CHECK(BlockCounts("01 00 00 1C " + Words8) == BlockCounts("01 00 00 1A " + Words8));
    CHECK(BlockCounts("01 00 00 30 " + Words16).ends_with(" 30=8206 31=8207 32=8208"));
    CHECK(BlockCounts("01 00 00 0E " + Words4 + " 63 00 64 00") == " 17=1 18=16383 19=8192 20=3 21=99 22=100");
    // A size that says nothing keeps the size of the block before, of which there is none in the first block.
    CHECK(BlockCounts("01 00 00 05 63 00 64 00") == " 17=99 18=100");
}

TEST_CASE_FIXTURE(Decoding, "an empty first block leaves out as many channels as a slave of the stream has")
{
    const std::string Block4 = "01 00 00 1E 01 00 02 00 03 00 04 00";
    const std::string Block8 = "01 00 00 1A " + Words8;
    const std::string Second = " 21=1 22=2 23=3 24=4";
    // Dead from the start: as many as the session says.
    gFile.SlaveCnt = 2;
    const std::tuple<int16_t, int16_t, std::string> Sessions[] = {{24, 2, Second},
                                                                  {25, 2, " 17=1 18=2 19=3 20=4"},
                                                                  {16, 2, " 17=1 18=2 19=3 20=4"},
                                                                  {8, 2, " 17=1 18=2 19=3 20=4"},
                                                                  {24, 0, " 17=1 18=2 19=3 20=4"},
                                                                  {20, 1, Second}};
    for (const auto& [ChanCnt, SlaveCnt, Wanted] : Sessions) {
        CAPTURE(ChanCnt);
        CAPTURE(SlaveCnt);
        gFile.ChanCnt = ChanCnt;
        gFile.SlaveCnt = SlaveCnt;
        Kept = {};
        CHECK(BlockCounts("00 00 " + Block4, "03") == Wanted);
    }
    // One that falls silent: as many as the last block that came, whatever the session says.
    gFile.ChanCnt = 48;
    gFile.SlaveCnt = 2;
    CHECK(BlockCounts(Block8 + Block4, "03").ends_with(" 24=8 25=1 26=2 27=3 28=4"));
    CHECK(BlockCounts("00 00 " + Block4, "03") == Second);
    // A later empty block leaves out as many as the block before it in the frame.
    CHECK(BlockCounts("00 00 00 00 " + Block4, "04") == " 25=1 26=2 27=3 28=4");
    CHECK(BlockCounts(Block8 + "00 00 " + Block4, "04").ends_with(" 24=8 33=1 34=2 35=3 36=4"));
    CHECK(BlockCounts("00 00") == "");
}

TEST_CASE_FIXTURE(Decoding, "slave blocks follow each other by their sizes alone")
{
    // Extra words lie where the next block begins; an identifier of 0 leaves out as many channels as the block before.
    CHECK(Long(LongBody("05", "00",
                        "01 00 00 0E 01 00 02 00 03 00 04 00 63 00 64 00 "
                        "01 00 00 05 05 00 06 00 07 00 08 00 61 00 62 00 "
                        "00 00 "
                        "01 00 00 2E 01 00 02 00 03 00 04 00 65 00 66 00 00")));
    CHECK(Counts() == MasterCounts + " 17=1 18=2 19=3 20=4 21=5 22=6 23=7 24=8 25=97 26=98 29=8193 30=8194 31=8195"
                                     " 32=8196 33=101 34=102");
    // Six blocks of 16 reach beyond channel 84.
    std::string Blocks;
    for (int i = 0; i < 6; ++i)
        Blocks += "01 00 00 00 " + Words16 + " 63 00 64 00 ";
    CHECK(Long(LongBody("07", "00", Blocks + "00")));
    CHECK(Counts().ends_with(" 80=16 81=1 82=16383 83=8192 84=3"));
}

TEST_CASE_FIXTURE(Decoding, "an unsigned value beyond 14 bits is 0, a master's word beyond 15 bits negative")
{
    // Only the last byte may be of 128 or above, so the frame ends too early.
    CHECK_FALSE(Long(LongBody("02", "00", "01 00 00 1E 01 00 02 00 03 00 04 80")));
    CHECK(Counts() == MasterCounts + " 17=1 18=2 19=3");
    gFile.Model = 67;
    CHECK(Short(Hex(Time + "00 00 00 00 00 00 00 FF FF " + Words8.substr(6) + " 00")));
    CHECK(Data[1] == -32641);
}

TEST_CASE_FIXTURE(Decoding, "a byte of 128 or above ahead of the last one refuses a long frame and changes nothing")
{
    const auto Whole = LongBody("02", "1A", "0B 00 0C 00 01 00 00 0E " + Words4 + " 00 00 00 00 7F");
    for (std::size_t i = 0; i + 1 < Whole.size(); ++i) {
        CAPTURE(i);
        auto Broken = Whole;
        Broken[i] = 0x80;
        CHECK_FALSE(Long(Broken));
        CHECK(Counts() == "");
    }
    CHECK(Long(LongBody("00", "00", "FF")));
    CHECK(Counts() == MasterCounts);
    CHECK(Kept.SampleTime == 1.5);
}

TEST_CASE_FIXTURE(Decoding, "a body cut off at any byte fails and leaves the values held as they were")
{
    CHECK(Long(LongBody("01", "26", "0B 00 0C 00 01 00 00 00 01 00 00 00 01 00 01 00 00")));
    const auto Held = Kept.LastGPS;
    const auto Whole = LongBody(
        "02", "26", "7F 7F 7F 7F 7F 7F 7F 7F 7F 7F 7F 7F 7F 7F 7F 7F 01 00 00 00 " + Words16 + " 00 00 00 00 7F");
    gFile.Model = 66;
    for (std::size_t Size = 0; Size < Whole.size(); ++Size) {
        CAPTURE(Size);
        Kept.LastGPS = Held;
        CHECK_FALSE(Long(std::span(Whole).first(Size)));
        for (std::size_t i = 0; i < Held.size(); ++i)
            CHECK((Kept.LastGPS[i] == Held[i] || Kept.LastGPS[i] >= 16383));
        CHECK(Short(std::span(Whole).first(Size)) == (Size >= 49));
    }
    CHECK(Long(Whole));
}

TEST_CASE_FIXTURE(Decoding, "long frames give the time between them, the frequency and the frames missed")
{
    gDataFreq = 25;
    const std::tuple<std::string, double, double, int> Frames[] = {
        {"64 00", 0.02, 10, 0},   // the first frame is not judged and keeps the step
        {"0C 01", 0.04, 25, 0},   // 140 ms
        {"5C 01", 0.08, 12.5, 2}, // 220 ms: 25 / 12.5
        {"5C 01", 0, 0, 2},       // the same time again
        {"3E 00", -0.158, -1 / 0.158, -2},
    };
    for (const auto& [Stamp, DeltaT, Frequency, Missed] : Frames) {
        CAPTURE(Stamp);
        CHECK(Long(Hex(Stamp + " 00 00 00 01 00 00 00 00 " + Master + "00")));
        CHECK(Kept.DeltaT.value_or(0.02) == doctest::Approx(DeltaT).epsilon(1e-12));
        CHECK(Kept.Frequency == doctest::Approx(Frequency).epsilon(1e-12));
        CHECK(Kept.Missed == Missed);
    }
    CHECK(Kept.FrameCnt == 5);
    CHECK_FALSE(Long(Hex("00")));
    CHECK(Kept.FrameCnt == 5);
}

TEST_CASE_FIXTURE(Decoding, "short frames fill the channels of their model")
{
    const std::string Head = Time + "7F 7F 7F 7F 7F 7F 7F ";
    const std::tuple<int16_t, std::string, const char*> Frames[] = {
        {66, Head + Words16 + " 11 00 12 00 00",
         "0=1 1=16383 2=8192 3=3 4=5 5=6 6=7 7=8 8=9 9=10 10=11 11=12 12=13 13=14 14=15 15=16 16=17 17=18"},
        {67, Head + Words8 + " 00", "0=1.5 1=1 2=16383 3=8192 4=3 5=5 6=6 7=7 8=8"},
        {68, Head + Words8 + " 00", "0=1.5 1=1 2=16383 3=8192 4=3 5=5 6=6 7=7 8=8"},
        {61, Head + "00", "0=1.5"}};
    for (const auto& [Model, Body, Channels] : Frames) {
        CAPTURE(Model);
        gFile.Model = Model;
        Data.fill(0);
        CHECK(Short(Hex(Body)));
        CHECK(Counts() == Channels);
        CHECK(Kept.SampleTime == 2); // 1.5 to the even whole number
        CHECK(Kept.Frequency == doctest::Approx(1 / 1.5));
    }
    CHECK(Kept.FrameCnt == 4);
    CHECK(Kept.Missed == 0);
}
