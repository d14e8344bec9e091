// Frames and answers of a performance monitor, as tables.
#include "ergometer/mPMI.h"

#include "support/Case.h"
#include "support/ScriptedMonitor.h"

namespace {
// The fault of a poll's answer with these contents; empty when it is read.
std::string FaultOf(const std::vector<uint8_t>& Frame)
{
    std::string Fault;
    return DecodePoll(Frame, Fault) ? "" : Fault;
}

PMFigures Decoded(const std::vector<uint8_t>& Contents)
{
    std::string Fault;
    const auto Figures = DecodePoll(PackFrame(Contents), Fault);
    REQUIRE_MESSAGE(Figures, Fault);
    return *Figures;
}
} // namespace

TEST_CASE("frames are stuffed, summed and unpacked again, and every broken one is known")
{
    const std::vector<std::pair<const char*, const char*>> Frames = {
        {"91", "F1 91 91 F2"},
        {"F0 F1 F2 F3", "F1 F3 00 F3 01 F3 02 F3 03 00 F2"},
        {"02 F3", "F1 02 F3 03 F3 01 F2"}, // the checksum itself is stuffed
        {"A6 A7 B4 1A 05 BF A0 A3 6E 00", "F1 A6 A7 B4 1A 05 BF A0 A3 6E 00 78 F2"},
    };
    for (const auto& [Contents, Frame] : Frames) {
        CAPTURE(std::string(Contents));
        CHECK(PackFrame(Hex(Contents)) == Hex(Frame));
        CHECK(UnpackFrame(Hex(Frame)).Bytes == Hex(Contents));
    }
    const std::vector<std::pair<const char*, eFrameFault>> Broken = {
        {"", eFrameFault::Cut},
        {"F1", eFrameFault::Cut},
        {"F1 F2", eFrameFault::Cut},
        {"F1 91 91", eFrameFault::Cut},
        {"91 91 F2", eFrameFault::Cut},
        {"F1 91 91 F2 00", eFrameFault::Cut},
        {"F1 91 90 F2", eFrameFault::Checksum},
        {"F1 91 F3 04 95 F2", eFrameFault::Stuffing},
        {"F1 91 F0 61 F2", eFrameFault::Stuffing},
        {"F1 91 F3 F2", eFrameFault::Stuffing},
    };
    for (const auto& [Frame, Fault] : Broken) {
        CAPTURE(std::string(Frame));
        CHECK(UnpackFrame(Hex(Frame)).Fault == Fault);
    }
}

TEST_CASE("a frame goes out in the smallest report that holds it, and is found again in a report")
{
    const std::vector<std::tuple<std::size_t, std::size_t, int>> Sizes = {{20, 21, 1},  {21, 63, 4},   {62, 63, 4},
                                                                          {63, 121, 2}, {120, 121, 2}, {121, 0, 0}};
    for (const auto& [Length, Size, Number] : Sizes) {
        CAPTURE(Length);
        std::vector<uint8_t> Frame(Length, 7);
        Frame.front() = 0xF1;
        Frame.back() = 0xF2;
        const std::vector<uint8_t> Report = PackReport(Frame);
        REQUIRE(Report.size() == Size);
        if (Size == 0) continue;
        CHECK(Report[0] == Number);
        CHECK(FrameInReport(std::span(Report).subspan(1)) == Frame);
    }
    CHECK(FrameInReport(Hex("00 F1 01 02")).empty());
}

TEST_CASE("a poll's answer gives the words of the line, whatever a newer monitor adds or reorders")
{
    const char* Line = "02:01.0, 28, 175, 2, 0:00:10.10, 50.7, 8.75, 0.94, 1.22, 1.4, 9";
    CHECK(Decoded(PollContents(2, 9)).Line() == Line);
    CHECK_FALSE(Decoded(PollContents(2, 9)).Forces);
    // Unknown answers between, the order turned, each own answer in a wrapper of its own, longer answers.
    const PMFigures Newer = Decoded(Hex(
        "81 1A 12 6E 10 6B 03 5E 7A 00 8C 09 00 21 03 00 00 B8 01 C4 09 C1 02 77 66 1A 07 A3 05 F4 01 00 00 07 B4 05 "
        "AF 00 58 01 02 1A 07 A0 05 E8 03 00 00 0A 1A 04 BF 02 02 00 A7 03 1C 00 54 A6 03 F2 00 39 7F 00"));
    CHECK(Newer.Line() == Line);
    REQUIRE(Newer.Forces);
    CHECK(Newer.Forces->PeakForce == doctest::Approx(80.1 * 4.4482216));
    CHECK(Newer.Forces->AverForce == doctest::Approx(44 * 4.4482216));
    CHECK(Newer.Forces->Work == doctest::Approx(250));
}

TEST_CASE("an answer that is missing, cut or too short is named")
{
    const std::vector<uint8_t> Whole = PollContents(2, 9);
    CHECK(FaultOf({}) == "it is cut");
    CHECK(FaultOf(Hex("F1 00 F2")) == "it is cut");
    std::vector<uint8_t> Frame = PackFrame(Whole);
    Frame[5] ^= 1;
    CHECK(FaultOf(Frame) == "the checksum is wrong");
    // The contents up to a byte: each answer that is not whole counts as missing.
    const std::vector<std::pair<std::size_t, const char*>> Lengths = {{1, "pace"},
                                                                      {5, "pace"},
                                                                      {6, "cadence"},
                                                                      {15, "power"},
                                                                      {20, "stroke state"},
                                                                      {43, "stroke state"},
                                                                      {0, "pace; the monitor refused the command"}};
    for (const auto& [Length, Name] : Lengths) {
        CAPTURE(Length);
        const std::vector<uint8_t> Part(Whole.begin(), Whole.begin() + static_cast<std::ptrdiff_t>(Length));
        CHECK(FaultOf(PackFrame(Length == 0 ? std::vector<uint8_t>{0x91} : Part)) ==
              std::string("it lacks the answer on ") + Name);
    }
    CHECK(FaultOf(PackFrame(Hex("01 A6 01 F2 A7 03 1C 00 54"))) == "it lacks the answer on pace");
    // The same commands outside the wrapper are others.
    CHECK(FaultOf(PackFrame(Hex("01 A6 03 F2 00 39 A7 03 1C 00 54 B4 03 AF 00 58 BF 01 02"))) ==
          "it lacks the answer on stroke state");
}

TEST_CASE("times are cut to their digits, counts are unsigned, and what does not fit is said")
{
    const std::vector<std::pair<uint32_t, const char*>> Paces = {
        {0, "00:00.0"}, {243, "02:01.5"}, {7199, "59:59.5"}, {7200, "Secs Value out of range"}};
    for (const auto& [Pace, Text] : Paces)
        CHECK(PMFigures{.PaceKm = Pace}.Pace500Text() == Text);
    const std::vector<std::pair<uint64_t, const char*>> Times = {{0, "0:00:00.00"},
                                                                 {6234, "0:01:02.34"},
                                                                 {4500000, "12:30:00.00"},
                                                                 {35999999, "99:59:59.99"},
                                                                 {36000000, "Secs Value out of range"},
                                                                 {0xFFFFFFFF + 255ULL, "Secs Value out of range"}};
    for (const auto& [Count, Text] : Times)
        CHECK(PMFigures{.WorkTimeCnt = Count}.WorkTimeText() == Text);
    CHECK(PMFigures{.WorkDistCnt = 20009}.WorkDistText() == "2000.9");
    // The highest counts, and round ones without a point.
    const PMFigures Highest = Decoded(
        Hex("01 A6 03 FF FF 39 A7 03 FF FF 54 B4 03 00 80 58 1A 1B BF 01 F0 A0 05 FF FF FF FF FF A3 05 FF FF FF FF "
            "FF 6E 08 E8 03 FF 64 00 0A FF FF"));
    CHECK(Highest.Line() ==
          "Secs Value out of range, 65535, 32768, 240, Secs Value out of range, 429496755.0, 10, 2.55, 1, "
          "0.1, 65535");
    CHECK(Highest.WorkTime() == doctest::Approx(42949675.5));
}

TEST_CASE("the first answer compares with zeros, and each box takes its own changes")
{
    const std::vector<std::tuple<int, int, std::vector<int>>> Answers = {{0, 0, {2}},    {0, 0, {}},  {2, 0, {1}},
                                                                         {3, 1, {1, 2}}, {3, 2, {2}}, {0, 2, {1}}};
    cPMLines Changes;
    int64_t Tick = 40;
    for (const auto& [State, Drives, Boxes] : Answers) {
        CAPTURE(Tick);
        std::vector<PMLine> Lines;
        Changes.Take(Decoded(PollContents(State, Drives)), Tick, Lines);
        REQUIRE(Lines.size() == Boxes.size());
        for (std::size_t i = 0; i < Boxes.size(); ++i) {
            CHECK(Lines[i].Box == Boxes[i]);
            CHECK(Lines[i].Tick == Tick);
        }
        ++Tick;
    }
    std::vector<PMLine> Lines;
    cPMLines().Take(PMFigures(), 0, Lines);
    CHECK(Lines.empty());
}
