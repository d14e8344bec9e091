// The list of loaded windows: frames, stale values and unloading.
#include "core/mDataWindow.h"

#include "support/Case.h"
#include "support/ScriptedLink.h"

namespace {
// Notes in which order windows were unloaded.
struct NamedWindow : CountingWindow
{
    NamedWindow(const char* InitName, Texts& InitOrder) : Name(InitName), Order(InitOrder) {}
    void Unload() override { Order.emplace_back(Name); }

    const char* Name;
    Texts& Order;
};
} // namespace

TEST_CASE_FIXTURE(LinkState, "windows that receive frames are unloaded from the last to the first, others stay")
{
    Texts Order;
    NamedWindow First("first", Order), Second("second", Order), Other("other", Order);
    Other.Tag.clear();
    CloseDForms();
    CHECK(Order == Texts{"second", "first"});
}

TEST_CASE_FIXTURE(LinkState, "a window turns stale once when no frame has come for a second, and live with the next")
{
    CountingWindow Window;
    Clock.Wait(5000);
    DrawDataWindows();
    CHECK(Window.IsShownLive);
    Clock.Wait(800);
    CheckLive();
    CHECK(Window.IsShownLive);
    Clock.Wait(400);
    CheckLive();
    CHECK_FALSE(Window.IsShownLive);
    Window.IsShownLive = true; // would be taken back by another call
    CheckLive();
    CHECK(Window.IsShownLive);
    DrawDataWindows();
    CHECK(Window.Drawn == 2);
}
