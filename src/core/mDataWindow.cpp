// The list of loaded windows.
#include "core/mDataWindow.h"

#include "platform/mHost.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {
constexpr int64_t StaleAfter = 1000; // ms

std::vector<cDataWindow*> Windows;
int64_t LastFrame = 0; // ms of the clock
int64_t Handed = 0;    // times that frames were handed to the windows

// A window that closes may take others with it.
template <class Work>
void FromLast(const Work& Do)
{
    for (std::size_t i = Windows.size(); i-- > 0;)
        if (i < Windows.size()) Do(*Windows[i]);
}

bool IsLoaded(const cDataWindow* Window)
{
    return std::find(Windows.begin(), Windows.end(), Window) != Windows.end();
}

bool TakesFrames(const cDataWindow& Window)
{
    return Window.Tag == DataTag && !Window.HasFailed && !Window.IsAtWork;
}

// Hands the frame in gData to one window, which may close meanwhile.
void Hand(cDataWindow& Window, const char* What, void (cDataWindow::*Work)(), std::vector<std::string>& Failures)
{
    Window.IsAtWork = true;
    const auto Call = [&] {
        (Window.*Work)();
        return true;
    };
    const bool IsDone = Guard(What, Failures, std::ref(Call));
    if (!IsLoaded(&Window)) return;
    Window.IsAtWork = false;
    if (IsDone) return;
    Window.HasFailed = true;
    Window.LoseFrames();
}

// Failures are reported when all windows have had the frame: further frames may come while a message stands. The same
// holds for a question that a window asks: the frames that came meanwhile were handed to the other windows then.
void HandToAll(const char* What, void (cDataWindow::*Work)())
{
    const int64_t Number = ++Handed;
    std::vector<std::string> Failures;
    // A window may close while it works, so the list is walked by index.
    for (std::size_t i = 0; i < Windows.size() && Number == Handed; ++i)
        if (TakesFrames(*Windows[i])) Hand(*Windows[i], What, Work, Failures);
    for (const std::string& Failure : Failures)
        MsgBox(Failure + ". Nothing that was stored has been changed.", TitleError);
}
} // namespace

cDataWindow::cDataWindow(std::string InitTag)
    : Tag(std::move(InitTag)), Session([this](eNotice What) {
          if (What != eNotice::SessionReplaced) return;
          LoseFrames();
          NewSession();
      })
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

void InitDataWindows()
{
    LastFrame = 0;
}

const std::vector<cDataWindow*>& LoadedWindows()
{
    return Windows;
}

bool IsLinkNeeded()
{
    return std::any_of(Windows.begin(), Windows.end(), [](const cDataWindow* Each) { return Each->NeedsLink(); });
}

void SampleDataWindows()
{
    HandToAll("Taking the frame", &cDataWindow::TakeSample);
}

void BeginRun()
{
    HandToAll("Beginning a new run", &cDataWindow::NewRun);
}

void DrawDataWindows()
{
    LastFrame = gHost.Clock->Milliseconds();
    HandToAll("Showing the frame", &cDataWindow::TakeFrame);
}

void RetryDataWindows()
{
    for (cDataWindow* Window : Windows)
        Window->HasFailed = false;
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
        if (Each.Tag == DataTag || Each.Tag == ViewTag) Each.Unload();
    });
}
