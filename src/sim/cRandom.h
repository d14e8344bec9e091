// The simulator's own random numbers: the standard distributions give other numbers with another library.
#pragma once

#include <cstdint>

/// One stream of random numbers. Equal seeds and streams give equal numbers on every machine.
class cRandom
{
public:
    explicit cRandom(uint64_t Seed, uint64_t Stream = 0);

    /// Any 64 bits.
    uint64_t Bits();

    /// 0 <= x < 1.
    double Uniform();

    /// Low <= x < High.
    double Between(double Low, double High) { return Low + (High - Low) * Uniform(); }

    /// A bell curve of mean 0 and deviation 1 that ends at 3.5 on both sides, so that nobody rows an absurd stroke.
    double Bell();

    /// A whole number, 0 <= x < Count.
    int Below(int Count) { return static_cast<int>(Uniform() * Count); }

private:
    uint64_t State;
};
