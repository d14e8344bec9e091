// Frames of every logger model, against bytes typed by hand and through the engine's own decoders.
#include "sim/cFrameEncoder.h"

#include "files/mFrame.h"
#include "sim/cRandom.h"
#include "support/Case.h"

namespace {
using Bytes = std::vector<uint8_t>;

// Decodes into gData the one frame that Sent holds, as a raw file's reader would.
bool Decode(const Bytes& Sent)
{
    Stream Kept;
    return DecodeFrame(FrameSource::File, Frame{Sent}, Kept, gData);
}
} // namespace

TEST_CASE("frames have the bytes that a logger sends")
{
    const std::vector<int32_t> Counts = {0, 1, 129, 16383, 300, 8192, 0, 16383, 8191, 8193, 8192, 5, 6};
    Bytes Sent;

    cFrameEncoder Slave({67, 0, 0, false});
    Slave.Append(Sent, 40, Counts, KindNone);
    const Bytes Short = {0x80, 0,  28, 0,                   // sync and head
                         40,   0,  0,  0, 0,                // time
                         0,    0,  0,  0, 0,   0,   0,      // unused header items
                         1,    0,  1,  1, 127, 127, 44,  2, // words 1 to 4
                         0,    64, 0,  0, 127, 127, 127, 63};
    CHECK(Bytes(Sent.begin(), Sent.end() - 1) == Short);

    Sent.clear();
    cFrameEncoder Master({61, 1, 4, true});
    Master.Append(Sent, 3000000000, {Counts}, KindWords);
    const Bytes Long = {0x80, 0,  46, 0,                                  // sync and head
                        0,    60, 65, 22, 11,                             // time
                        2,    26, 0,  0,  0,                              // blocks, kind, spare
                        1,    0,  1,  1,  127, 127, 44,  2,               // words 1 to 4
                        0,    0,  0,  64, 127, 63,  127, 127, 1, 0, 0, 0, // centred 5 to 10
                        5,    0,  6,  0,                                  // words 11 and 12
                        1,    0,  0,  62,                                 // slave 1, signed, 4 channels
                        0,    64, 0,  64, 0,   64,  0,   64};
    CHECK(Bytes(Sent.begin(), Sent.end() - 1) == Long);
}

TEST_CASE("the decoders give back every count of every model's frames")
{
    const FreshState State;
    const std::vector<FrameLayout> Layouts = {{60, 0, 0, false},  {61, 8, 8, false}, {61, 1, 8, true},
                                              {62, 4, 16, false}, {63, 2, 4, true},  {64, 2, 10, false},
                                              {65, 3, 6, true},   {60, 2, 18, true}, {66, 0, 0, false},
                                              {67, 0, 0, false},  {68, 0, 0, false}};
    cRandom Random(3);
    for (const FrameLayout& Layout : Layouts) {
        CAPTURE(Layout.Model);
        CAPTURE(Layout.SlaveChans);
        REQUIRE(cFrameEncoder::IsPossible(Layout));
        gFile.Model = static_cast<int16_t>(Layout.Model);
        cFrameEncoder Encoder(Layout);
        for (int Round = 0; Round < 20; ++Round) {
            std::vector<int32_t> Counts = {0};
            for (int Chan = 1; Chan <= Encoder.LastChan(); ++Chan) {
                const int32_t Max = Encoder.MaxCount(Chan);
                Counts.push_back(Round == 0 ? 0 : Round == 1 ? Max : Random.Below(Max + 1));
            }
            Bytes Sent;
            const int64_t Time = 12345678901 + Round * 1000;
            Encoder.Append(Sent, Time, Counts, KindAll);
            REQUIRE(Decode(Sent));
            const std::vector<double> Got(gData.begin() + 1, gData.begin() + 1 + Encoder.LastChan());
            CHECK(Got == std::vector<double>(Counts.begin() + 1, Counts.end()));
            const int64_t Shown = Layout.Model == 66 ? Time / 1000 % 16384 * 1000 : Time;
            CHECK(gData[0] == static_cast<double>(Shown) / 1000);
        }
    }
}
