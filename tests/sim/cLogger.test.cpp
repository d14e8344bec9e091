// The stream of the simulated logger: the same for the same seed, and what faults do to it.
#include "sim/cLogger.h"

#include "files/mFrame.h"
#include "support/Case.h"

#include <algorithm>

namespace {
constexpr int FrameCount = 3000;

// A master with one slave that has an oar and a channel of no known kind.
DataFile SmallSession()
{
    DataFile File;
    File.Model = 61;
    File.SlaveCnt = 1;
    File.SlaveChans = 8;
    File.BoatType = "1x";
    File.Calibr.Resize(24);
    for (int16_t Chan = 1; Chan <= 24; ++Chan) {
        CalibrRow& Row = File.Calibr[Chan];
        Row.Chan = Chan;
        Row.ParamID = Chan == 17 ? "A1" : Chan == 18 ? "H1" : Chan == 15 ? "Vs" : Chan == 5 ? "Acc" : "X";
        Row.Q0 = Chan == 17 ? -100 : Chan == 18 ? -150 : Chan == 5 ? -20 : 0;
        Row.Q1 = Chan == 17 ? 0.0122 : Chan == 18 ? 0.1 : Chan == 5 ? 0.0024 : 0.001;
    }
    return File;
}

std::vector<uint8_t> Sent(const DataFile& File, const LoggerSettings& Settings, FaultCounts* Done = nullptr)
{
    cLogger Logger(File, Settings);
    std::vector<uint8_t> Bytes;
    for (int i = 0; i < FrameCount; ++i)
        Logger.NextFrame(Bytes);
    if (Done) *Done = Logger.FaultsDone();
    return Bytes;
}

using Sample = std::vector<double>; // time and the session's channels

// The samples of a stream as a live receiver gets them: a frame ends at the latest where another one begins.
std::vector<Sample> Decoded(const std::vector<uint8_t>& Bytes)
{
    gFile.Model = 61;
    const auto IsSync = [](uint8_t Byte) { return Byte >= SyncLimit; };
    std::vector<Sample> Samples;
    Stream Kept;
    SampleVector Data{};
    auto From = std::find_if(Bytes.begin(), Bytes.end(), IsSync);
    while (From != Bytes.end()) {
        const auto To = std::find_if(From + 1, Bytes.end(), IsSync);
        const auto Size = static_cast<std::size_t>(To - From);
        Frame Taken{{&*From, Size}};
        const std::size_t Wanted = Size < FrameHeadSize ? Size : static_cast<std::size_t>(Taken.Length()) + 5;
        if (Size >= FrameHeadSize && Size >= Wanted) {
            Taken.Bytes = Taken.Bytes.first(Wanted);
            if (DecodeFrame(FrameSource::File, Taken, Kept, Data))
                Samples.emplace_back(Data.begin(), Data.begin() + 25);
        }
        From = To;
    }
    return Samples;
}
} // namespace

TEST_CASE("the same seed gives the same bytes and another one others")
{
    const DataFile File = SmallSession();
    LoggerSettings Settings;
    Settings.Faults = {20, 20, 20, 20};
    const auto Bytes = Sent(File, Settings);
    CHECK(Bytes == Sent(File, Settings));
    Settings.Seed = 2;
    CHECK(Bytes != Sent(File, Settings));
}

TEST_CASE("faults hit as often as asked for and spare the other frames")
{
    const FreshState State;
    const DataFile File = SmallSession();
    const LoggerSettings Clean;
    const auto Whole = Decoded(Sent(File, Clean));
    REQUIRE(Whole.size() == FrameCount);
    const auto IsThere = [&](const Sample& Each) { return std::find(Whole.begin(), Whole.end(), Each) != Whole.end(); };
    FaultCounts Done;

    LoggerSettings Faulty = Clean;
    Faulty.Faults = {.Junk = 300};
    CHECK(Decoded(Sent(File, Faulty, &Done)) == Whole);
    CHECK(std::abs(Done.Junk - 900) < 100);

    Faulty.Faults = {.Drop = 50};
    const auto Left = Decoded(Sent(File, Faulty, &Done));
    CHECK(Left.size() == static_cast<std::size_t>(FrameCount - Done.Drop));
    CHECK(std::all_of(Left.begin(), Left.end(), IsThere));
    CHECK(std::abs(Done.Drop - 150) < 45);

    Faulty.Faults = {.Corrupt = 50};
    const auto Broken = Decoded(Sent(File, Faulty, &Done));
    const auto Good = static_cast<int>(std::count_if(Broken.begin(), Broken.end(), IsThere));
    CHECK(std::abs(Done.Corrupt - 150) < 45);
    CHECK(Broken.size() < FrameCount); // some cannot be decoded at all
    CHECK(Good >= FrameCount - Done.Corrupt);
    CHECK(Good < FrameCount - Done.Corrupt / 2);

    Faulty.Faults = {.Spikes = 50};
    const auto Spiked = Decoded(Sent(File, Faulty, &Done));
    REQUIRE(Spiked.size() == FrameCount);
    int Differ = 0;
    for (std::size_t i = 0; i < Spiked.size(); ++i)
        for (std::size_t Chan = 1; Chan <= 24; ++Chan)
            Differ += Spiked[i][Chan] != Whole[i][Chan] ? 1 : 0;
    CHECK(Differ == Done.Spikes);
    CHECK(std::abs(Done.Spikes - 150) < 45);
}
