// The frames' own clock as a rate, and the question which rate is meant.
#include "files/mFrameRate.h"

#include "support/Case.h"
#include "support/Hex.h"

#include <cmath>

namespace {
struct Clock : FreshState
{
    std::string Raw = Folder.Path("a.qvn");

    Clock()
    {
        gFile = {};
        gFile.Model = 67;
    }

    // The rate of short frames with these stamps, in milliseconds.
    std::string Rate(const std::vector<int>& Stamps)
    {
        std::string Bytes;
        for (const int Stamp : Stamps)
            Bytes += HexText("80 00 1C 00") + static_cast<char>(Stamp % 128) + static_cast<char>(Stamp / 128 % 128) +
                     static_cast<char>(Stamp / 16384) + std::string(26, '\0');
        REQUIRE(SaveWhole(Raw, Bytes, Durability::Fast));
        const auto Found = FrameRate(Raw);
        return Found ? RateText(*Found) : "none";
    }

    static std::vector<int> Steady(double Hertz, int Count)
    {
        std::vector<int> Stamps;
        for (int i = 0; i < Count; ++i)
            Stamps.push_back(static_cast<int>(std::lround(5000 + 1000 * i / Hertz)));
        return Stamps;
    }
};
} // namespace

TEST_CASE_FIXTURE(Clock, "the rate is that of the usual step, whatever is lost or set back")
{
    CHECK(Rate(Steady(25, 100)) == "25");
    CHECK(Rate(Steady(100, 500)) == "100");
    CHECK(Rate(Steady(33.3, 500)) == "33.3");
    CHECK(Rate(Steady(99.9, 2500)) == "100"); // a clock that runs a little slow
    std::vector<int> Lossy = Steady(50, 300);
    for (std::size_t i = 10; i < Lossy.size(); i += 4)
        Lossy.erase(Lossy.begin() + static_cast<std::ptrdiff_t>(i));
    for (std::size_t i = Lossy.size() / 2; i < Lossy.size(); ++i)
        Lossy[i] -= 6000;
    CHECK(Rate(Lossy) == "50");
    CHECK(Rate(Steady(25, 20)) == "none"); // too few
    CHECK(Rate(std::vector<int>(100, 40)) == "none");
    gFile.Model = 66;
    CHECK(Rate(Steady(25, 100)) == "none");
    CHECK_FALSE(FrameRate(Folder.Path("none.qvn")));
}

TEST_CASE_FIXTURE(Clock, "a rate is asked about when it is more than two per cent off the setting")
{
    gDataFreq = 50;
    for (const double Near : {50.0, 49.1, 51.0})
        CHECK_FALSE(IsOffDataFreq(Near));
    for (const double Off : {25.0, 48.9, 51.1, 100.0})
        CHECK(IsOffDataFreq(Off));
    CHECK_FALSE(SessionRate());
    gFile.TimeStep = 0.01;
    CHECK(SessionRate() == 100);
    gFile.TimeStep = -1;
    CHECK_FALSE(SessionRate());
}
