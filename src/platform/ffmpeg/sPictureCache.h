// The pictures that were asked for last, up to an amount of memory.
#pragma once

#include "platform/iMedia.h"

#include <algorithm>
#include <list>
#include <utility>

class sPictureCache
{
public:
    static constexpr std::size_t MostBytes = 96UL * 1024 * 1024;

    /// Null when it is not kept.
    std::shared_ptr<const Picture> Find(int32_t Number)
    {
        const auto Found =
            std::find_if(Kept.begin(), Kept.end(), [&](const auto& Each) { return Each.first == Number; });
        if (Found == Kept.end()) return nullptr;
        Kept.splice(Kept.begin(), Kept, Found);
        return Kept.front().second;
    }

    /// Keeps a picture. Those that were not asked for the longest give way: gives the last of them, null without one.
    std::shared_ptr<const Picture> Keep(int32_t Number, std::shared_ptr<const Picture> Shown)
    {
        std::shared_ptr<const Picture> Last;
        if (Find(Number)) return Last;
        Most = MostOf(*Shown);
        Kept.emplace_front(Number, std::move(Shown));
        for (; Kept.size() > Most; Kept.pop_back())
            Last = std::move(Kept.back().second);
        return Last;
    }

    /// How many pictures of that size are kept.
    static std::size_t MostOf(const Picture& Each)
    {
        constexpr std::size_t Least = 2;
        constexpr std::size_t Highest = 250; // a longer list takes long to search
        return std::clamp(MostBytes / std::max<std::size_t>(Each.Pixels.size() * sizeof(uint32_t), 1), Least, Highest);
    }

    /// How many pictures ahead of one that is asked for are worth keeping.
    int32_t Depth() const { return static_cast<int32_t>(Most / 2); }

    void Clear() { Kept.clear(); }

private:
    std::list<std::pair<int32_t, std::shared_ptr<const Picture>>> Kept;
    std::size_t Most = 2;
};
