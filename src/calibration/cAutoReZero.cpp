// The two passes of automatic re-zeroing.
#include "calibration/cAutoReZero.h"

#include "acquisition/mComFast.h"
#include "platform/mHost.h"

namespace {
constexpr eReZeroGroup Groups[] = {GroupHorizontal, GroupForces};
constexpr int WaitMs = 1000; // for frames to arrive

// A wireless link takes a moment to be made.
void AwaitLink()
{
    constexpr int StepMs = 50, Steps = 100;
    for (int i = 0; i < Steps && gLinkWatch.State() == cLinkWatch::eState::Connecting; ++i)
        gHost.Clock->Wait(StepMs);
}
} // namespace

bool cAutoReZero::Run()
{
    Zeroed.clear();
    if (!OpenLink()) return false;
    SendRun();
    AwaitLink();
    for (const eReZeroGroup Group : Groups)
        if (!ZeroGroup(Group)) return false;
    return true;
}

bool cAutoReZero::ZeroGroup(eReZeroGroup Group)
{
    View.Begin(Group);
    gHost.Clock->Wait(WaitMs);
    cReZero* const Rows = View.Rows();
    if (!Rows) return false;
    const bool IsDone = Rows->Rows().empty() || (Rows->ReZero() && Rows->SaveData());
    View.Show();
    if (!IsDone) return false;
    for (const ReZeroRow& Row : Rows->Rows())
        Zeroed += (Zeroed.empty() ? "" : ", ") + Row.Name;
    View.End();
    return true;
}
