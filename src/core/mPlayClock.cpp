// The list of followers.
#include "core/mPlayClock.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {
std::vector<cPlayFollower*> Followers;
bool IsMoving = false;

// Resets the flag even when a follower fails.
struct Moving
{
    Moving() { IsMoving = true; }
    ~Moving() { IsMoving = false; }
    Moving(const Moving&) = delete;
    Moving& operator=(const Moving&) = delete;
};
} // namespace

cPlayFollower::cPlayFollower(std::function<void()> InitGoCurTime) : GoCurTime(std::move(InitGoCurTime))
{
    Followers.push_back(this);
}

cPlayFollower::~cPlayFollower()
{
    std::erase(Followers, this);
}

void FollowPlayClock(const cPlayFollower* Mover)
{
    if (IsMoving) return;
    const Moving Now;
    for (cPlayFollower* const Each : std::vector(Followers))
        if (Each != Mover && std::find(Followers.begin(), Followers.end(), Each) != Followers.end()) Each->GoCurTime();
}
