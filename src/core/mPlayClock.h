// Windows that follow the play clock, gPlayTime and gPlayFrame: whoever moves the clock has all the others follow.
#pragma once

#include <functional>

/// Follows the play clock from when it is made until it is gone; as a member it subscribes the object that it belongs
/// to.
class cPlayFollower
{
public:
    /// GoCurTime shows what belongs to the clock as it is now.
    explicit cPlayFollower(std::function<void()> InitGoCurTime);
    ~cPlayFollower();
    cPlayFollower(const cPlayFollower&) = delete;
    cPlayFollower& operator=(const cPlayFollower&) = delete;

private:
    friend void FollowPlayClock(const cPlayFollower* Mover);
    std::function<void()> GoCurTime;
};

/// Calls GoCurTime of each follower but the one that moved the clock, in the order in which they were made. A call from
/// within one of them does nothing: the clock has been moved for all already.
void FollowPlayClock(const cPlayFollower* Mover = nullptr);
