// A counter whose bits are mixed: small, quick, and the same everywhere.
#include "sim/cRandom.h"

#include <numbers>

namespace {
constexpr uint64_t GoldenStep = 0x9E3779B97F4A7C15;

uint64_t Mixed(uint64_t X)
{
    X = (X ^ (X >> 30)) * 0xBF58476D1CE4E5B9;
    X = (X ^ (X >> 27)) * 0x94D049BB133111EB;
    return X ^ (X >> 31);
}
} // namespace

cRandom::cRandom(uint64_t Seed, uint64_t Stream) : State(Mixed(Seed + GoldenStep) ^ Mixed(Stream)) {}

uint64_t cRandom::Bits()
{
    State += GoldenStep;
    return Mixed(State);
}

double cRandom::Uniform()
{
    constexpr double Step = 1.0 / (1ULL << 53);
    return static_cast<double>(Bits() >> 11) * Step;
}

double cRandom::Bell()
{
    // The sum of four uniform numbers has the variance 4/12.
    return (Uniform() + Uniform() + Uniform() + Uniform() - 2) * std::numbers::sqrt3;
}
