// The list of loaded windows.
#include "core/mDataWindow.h"

#include "platform/mHost.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int64_t StaleAfter = 1000; // ms

std::vector<cDataWindow*> Windows;
int64_t LastFrame = 0; // ms of the clock

// A window that closes may take others with it.
template <class Work>
void FromLast(const Work& Do)
{
    for (std::size_t i = Windows.size(); i-- > 0;)
        if (i < Windows.size()) Do(*Windows[i]);
}
} // namespace

cDataWindow::cDataWindow(std::string InitTag) : Tag(std::move(InitTag))
{
    Windows.push_back(this);
}

cDataWindow::~cDataWindow()
{
    std::erase(Windows, this);
}

void cDataWindow::TakeFrame()
{
    if (!IsLive) SetLive(true);
    IsLive = true;
    DrawData();
}

void cDataWindow::LoseFrames()
{
    if (IsLive) SetLive(false);
    IsLive = false;
}

const std::vector<cDataWindow*>& LoadedWindows()
{
    return Windows;
}

void DrawDataWindows()
{
    LastFrame = gHost.Clock->Milliseconds();
    // A window may close while it draws, so the list is walked by index.
    for (std::size_t i = 0; i < Windows.size(); ++i)
        if (Windows[i]->Tag == DataTag) Windows[i]->TakeFrame();
}

void CheckLive()
{
    if (gHost.Clock->Milliseconds() - LastFrame < StaleAfter) return;
    for (cDataWindow* Window : Windows)
        Window->LoseFrames();
}

void CloseDForms()
{
    FromLast([](cDataWindow& Each) {
        if (Each.Tag == DataTag) Each.Unload();
    });
}

void TellNewSession()
{
    FromLast([](cDataWindow& Each) { Each.NewSession(); });
}
