// The list of listeners.
#include "core/mNotice.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {
std::vector<cListener*> Listeners;
} // namespace

cListener::cListener(std::function<void(eNotice)> InitAction) : Action(std::move(InitAction))
{
    Listeners.push_back(this);
}

cListener::~cListener()
{
    std::erase(Listeners, this);
}

void Notify(eNotice What)
{
    const std::vector<cListener*> Known = Listeners;
    for (auto Each = Known.rbegin(); Each != Known.rend(); ++Each)
        if (std::find(Listeners.begin(), Listeners.end(), *Each) != Listeners.end()) (*Each)->Action(What);
}
