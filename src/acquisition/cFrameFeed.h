// The frames that arrive over a port or a socket: each is taken once it is whole, and until then it is known how many
// bytes are missing.
#pragma once

#include "files/mFrame.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

class cFrameFeed
{
public:
    /// Input takes bytes of the port into a room, InBufferCount gives how many wait there.
    cFrameFeed(ByteSource::Refill Input, std::function<std::size_t()> InBufferCount);

    /// The next frame, once it is whole and at least so many bytes wait; bytes ahead of its sync byte are dropped. A
    /// frame that claims more bytes than an input buffer holds comes as it is, for the decoders to refuse. Valid until
    /// the next call.
    std::optional<Frame> Take(std::size_t Least);

    /// How many bytes must wait in the port before the frame that Take has not given can be taken.
    std::size_t Missing() const { return Needed - Source.Held(); }

    /// All bytes that wait, whatever they are.
    std::vector<uint8_t> TakeBytes();

    /// The stream begins anew: what is held of the former one is discarded.
    void Begin() { Source.Skip(Source.Held()); }

private:
    ByteSource Source;
    std::function<std::size_t()> InPort;
    std::size_t Needed = 0; // bytes from the frame's sync byte on
};
