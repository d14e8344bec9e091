// Bytes received and not yet taken.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class ByteQueue
{
public:
    std::size_t Count() const { return Bytes.size() - Taken; }

    void Add(std::span<const uint8_t> More)
    {
        Bytes.erase(Bytes.begin(), Bytes.begin() + static_cast<std::ptrdiff_t>(Taken));
        Taken = 0;
        Bytes.insert(Bytes.end(), More.begin(), More.end());
    }

    /// Moves up to Room.size() bytes into Room and gives their number.
    std::size_t Take(std::span<uint8_t> Room)
    {
        const std::size_t Moved = std::min(Room.size(), Count());
        std::copy_n(Bytes.begin() + static_cast<std::ptrdiff_t>(Taken), Moved, Room.begin());
        Taken += Moved;
        return Moved;
    }

    void Clear()
    {
        Bytes.clear();
        Taken = 0;
    }

private:
    std::vector<uint8_t> Bytes; // the first Taken ones are done with
    std::size_t Taken = 0;
};
