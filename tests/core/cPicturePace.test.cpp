// The pace of pictures.
#include "core/cPicturePace.h"

#include "support/Case.h"

TEST_CASE_FIXTURE(FreshState, "a picture is due at once after a rest, otherwise a period behind the one before")
{
    gPictureRate = 25;
    cPicturePace Pace;
    CHECK(Pace.Wait(5) == 0);
    Pace.Shown(1000);
    const std::pair<int64_t, int> Waits[] = {{1000, 40}, {1001, 39}, {1039, 1}, {1040, 0}, {9000, 0}, {-5000, 40}};
    for (const auto& [Now, Wait] : Waits)
        CHECK(Pace.Wait(Now) == Wait);
    gPictureRate = 0; // as slow as can be rather than never
    CHECK(Pace.Wait(1400) == 600);
    gPictureRate = 10000;
    CHECK(Pace.Wait(1003) == 1);
}
