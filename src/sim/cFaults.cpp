// Each fault is drawn frame by frame.
#include "sim/cFaults.h"

namespace {
constexpr uint64_t FaultStream = 2;
constexpr int LongestJunk = 8;
} // namespace

cFaults::cFaults(const FaultRates& Rates_, uint64_t Seed) : Rates(Rates_), Random(Seed, FaultStream) {}

bool cFaults::Hits(double PerMille, int& Count)
{
    if (Random.Uniform() * 1000 >= PerMille) return false;
    ++Count;
    return true;
}

void cFaults::Spike(std::span<int32_t> Values, int32_t MaxCount)
{
    if (Values.size() < 2 || !Hits(Rates.Spikes, Counts.Spikes)) return;
    const int Chan = 1 + Random.Below(static_cast<int>(Values.size()) - 1);
    int32_t& Value = Values[static_cast<std::size_t>(Chan)];
    const auto Jump = static_cast<int32_t>(Random.Between(0.25, 0.5) * MaxCount);
    Value += Value < MaxCount / 2 ? Jump : -Jump;
}

void cFaults::Deliver(std::span<const uint8_t> Frame, std::vector<uint8_t>& Out)
{
    if (Hits(Rates.Drop, Counts.Drop)) return;
    if (Hits(Rates.Junk, Counts.Junk))
        for (int Left = 1 + Random.Below(LongestJunk); Left > 0; --Left)
            Out.push_back(static_cast<uint8_t>(Random.Below(128)));
    const std::size_t Start = Out.size();
    Out.insert(Out.end(), Frame.begin(), Frame.end());
    if (!Hits(Rates.Corrupt, Counts.Corrupt)) return;
    uint8_t& Byte = Out[Start + static_cast<std::size_t>(Random.Below(static_cast<int>(Frame.size())))];
    Byte = static_cast<uint8_t>(Byte ^ (1 << Random.Below(8)));
}
