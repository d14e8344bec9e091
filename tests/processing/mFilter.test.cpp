// Zeroing of the time column and repair of spikes on literal rows.
#include "processing/mFilter.h"

#include "processing/Recording.h"
#include "support/Case.h"

namespace {
std::vector<double> Samples(int Chan)
{
    const auto X = gRaw.Channel(Chan);
    return {X.begin(), X.end()};
}
} // namespace

TEST_CASE("times are shifted from the first one above zero to the last row but one")
{
    MakeRecording({{0, 0, 0, 0, 0}});
    gRaw(0, 0) = -3;
    CHECK(ZeroTime());
    CHECK(Samples(0) == std::vector<double>{-3, 0, 1, 2, 4});
    CHECK(ZeroTime());
    CHECK(Samples(0) == std::vector<double>{-3, 0, 0, 1, 4});
    MakeRecording({{0, 0, 0}});
    CHECK(!ZeroTime());
    CHECK(!SpikeFilter());
    CHECK(Samples(0) == std::vector<double>{0, 1, 2});
}

TEST_CASE_FIXTURE(FreshState,
                  "spikes become the mean of their neighbours, a repaired sample is the next one's neighbour")
{
    const std::tuple<std::string, double, double, std::vector<double>, std::vector<double>> Cases[] = {
        // Steps 1 1 98 -98 1 1 1 1, divided by 7: mean 6/7, deviation 52.36, mean step 28.86: the limit is 81.2.
        {"one spike", -1e9, 1e9, {0, 1, 2, 100, 2, 3, 4, 5, 6}, {0, 1, 2, 2, 2, 3, 4, 5, 6}},
        // Steps of 90 and -90 among zeros: the limit is 90 (sqrt(2/5) + 2/5) = 93, with a sample more 82.
        {"a spike that is within the limit it makes", -1e9, 1e9, {0, 0, 0, 90, 0, 0, 0}, {0, 0, 0, 90, 0, 0, 0}},
        {"the same among one more", -1e9, 1e9, {0, 0, 0, 90, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {"a step is no spike", -1e9, 1e9, {0, 0, 0, 90, 90, 90, 90}, {0, 0, 0, 90, 90, 90, 90}},
        {"the ends stay", -5, 5, {50, 1, 2, 3, 50}, {50, 1, 2, 3, 50}},
        {"two adjacent wild samples, one after the other", -5, 5, {0, 1, 40, 80, 1, 2}, {0, 1, 40.5, 20.75, 1, 2}},
        {"no range is a range of zero", 0, 0, {4, 0, 0, 8, 8, 0}, {4, 0, 0, 4, 2, 0}},
        {"an evenly rising channel has no spread", -1e9, 1e9, {1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}},
    };
    for (const auto& [What, Min, Max, Before, After] : Cases) {
        CAPTURE(What);
        MakeRecording({Before});
        gFile.Calibr[1].Min = Min;
        gFile.Calibr[1].Max = Max;
        CHECK(SpikeFilter());
        CHECK(Samples(1) == After);
    }
    MakeRecording({{9, 9, 9, 9}, {9, 9, 9, 9}});
    gFile.Calibr.Resize(1);
    CHECK_THROWS_AS(SpikeFilter(), RunError);
    CHECK(Samples(1) == std::vector<double>{9, 9, 9, 9});
}
