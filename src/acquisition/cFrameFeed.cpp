// Whole frames out of bytes that wait.
#include "acquisition/cFrameFeed.h"

#include <algorithm>
#include <utility>

namespace {
constexpr std::size_t InBufferSize = 2000; // bytes; a longer frame is never waited for
} // namespace

cFrameFeed::cFrameFeed(ByteSource::Refill Input, std::function<std::size_t()> InBufferCount)
    : Source(std::move(Input), Reading::AsAsked), InPort(std::move(InBufferCount))
{
}

std::optional<Frame> cFrameFeed::Take(std::size_t Least)
{
    FindSync(Source);
    Needed = std::max(Least, FrameHeadSize);
    const std::size_t Waiting = Source.Held() + InPort();
    if (Waiting < FrameHeadSize) return {};
    const std::size_t Size = Frame{Source.Peek(FrameHeadSize)}.Size();
    if (Size <= InBufferSize) Needed = std::max(Least, Size);
    return Waiting < Needed ? std::nullopt : TakeFrame(Source);
}

std::vector<uint8_t> cFrameFeed::TakeBytes()
{
    std::vector<uint8_t> Taken;
    for (auto Bytes = Source.Ready(); !Bytes.empty(); Bytes = Source.Ready()) {
        const std::size_t Count = Bytes.size();
        Taken.insert(Taken.end(), Bytes.begin(), Bytes.end());
        Source.Skip(Count);
    }
    return Taken;
}
