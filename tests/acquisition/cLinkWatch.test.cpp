// When a lost link is tried again.
#include "acquisition/cLinkWatch.h"

#include "support/Case.h"

namespace {
// A link that is lost, and the times of the tries that fail.
struct Watched
{
    cLinkWatch Watch;
    int64_t Now = 0;
    std::vector<int64_t> Tries;

    Watched()
    {
        Watch.Reopen = [this] {
            Tries.push_back(Now);
            Watch.StillLost(Now);
        };
        Watch.Opened("link", Now);
    }

    // Loses the link and gives how long after that it was tried again.
    std::vector<int64_t> Lose(int64_t Milliseconds)
    {
        Tries.clear();
        const int64_t Start = Now;
        Watch.Lost("gone", Now);
        for (; Now <= Start + Milliseconds; Now += 50)
            Watch.Tick(Now);
        for (int64_t& Time : Tries)
            Time -= Start;
        return Tries;
    }
};
} // namespace

TEST_CASE_FIXTURE(Watched, "tries grow apart, and the first frame of a link that is back begins them anew")
{
    const std::vector<int64_t> Growing = {250, 750, 1250, 1750};
    CHECK(Lose(2000) == Growing);
    // A link that only opens has not proved that it works.
    Watch.Opened("link", Now);
    CHECK(Lose(1100) == std::vector<int64_t>{500, 1000});
    Watch.Opened("link", Now);
    Watch.FrameCame(Now);
    CHECK(Lose(2000) == Growing);
}
