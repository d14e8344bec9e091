// The decoders of frame bodies: from 7-bit groups to raw counts in a sample vector.
#pragma once

#include "files/mStream.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>

/// Reads the numbers of a frame body one after another. A read past the end clears FrameOK and gives 0; from then on
/// every read gives 0 and does not move.
class BodyReader
{
public:
    explicit BodyReader(std::span<const uint8_t> Body) : Rest(Body) {}

    /// One byte.
    int ReadByte() { return static_cast<int>(ReadGroups<1>()); }

    /// Two bytes: b0 + 128 b1.
    int ReadWord() { return static_cast<int>(ReadGroups<2>()); }

    /// A word in 14-bit two's complement, moved up by 8192.
    int ReadCentred()
    {
        const int Word = ReadWord();
        return FrameOK ? Centred(Word) : 0;
    }

    /// Four bytes. Unlike the other reads it needs one more byte after it.
    int64_t ReadLong() { return Rest.size() > 4 ? ReadGroups<4>() : Fail(); }

    /// The frame's time in milliseconds, five bytes.
    int64_t ReadTime() { return ReadGroups<5>(); }

    /// A run of words, each through the same formula from uint16_t to int16_t.
    template <class Formula>
    void ReadWords(std::span<double> Values, const Formula& Of)
    {
        if (Rest.size() < 2 * Values.size()) return ReadTornWords(Values, Of);
        std::size_t i = 0;
        for (; i + Block <= Values.size(); i += Block)
            ConvertBlock(Rest.data() + 2 * i, Values.data() + i, Of);
        for (; i < Values.size(); ++i)
            Values[i] = Of(static_cast<uint16_t>(Rest[2 * i] + 128 * Rest[2 * i + 1]));
        Rest = Rest.subspan(2 * Values.size());
    }

    static int Centred(int Word) { return Word > 8191 ? Word - 8192 : Word + 8192; }

    bool FrameOK = true;

private:
    // Words that are converted at once by the processor's vector instructions.
    static constexpr std::size_t Block = 16;

    // All steps stay in 16 bits, and the function stays apart: unrolled into another loop it would lose its vectors.
    template <class Formula>
    [[gnu::noinline]] static void ConvertBlock(const uint8_t* Words, double* Values, const Formula& Of)
    {
        static_assert(std::endian::native == std::endian::little);
        std::array<uint16_t, Block> Pairs;
        std::memcpy(Pairs.data(), Words, sizeof Pairs);
        std::array<int16_t, Block> Results;
        for (std::size_t i = 0; i < Block; ++i)
            Results[i] = Of(static_cast<uint16_t>((Pairs[i] & 255) + (Pairs[i] >> 8) * 128));
        std::copy(Results.begin(), Results.end(), Values);
    }

    template <class Formula>
    void ReadTornWords(std::span<double> Values, const Formula& Of)
    {
        for (double& Value : Values) {
            const int Word = ReadWord();
            Value = FrameOK ? Of(static_cast<uint16_t>(Word)) : 0;
        }
    }

    template <std::size_t Count>
    int64_t ReadGroups()
    {
        if (Rest.size() < Count) return Fail();
        int64_t Value = 0;
        for (std::size_t i = Count; i > 0; --i)
            Value = Value * 128 + Rest[i - 1];
        Rest = Rest.subspan(Count);
        return Value;
    }

    // What is left would be read as something that it is not.
    int64_t Fail()
    {
        FrameOK = false;
        Rest = {};
        return 0;
    }

    std::span<const uint8_t> Rest;
};

/// Decodes a body of a master with slaves into Data, in place, and counts the frame in its stream. A body with a byte
/// of 128 or above ahead of the last one is refused and changes nothing. False also for a body that ends too early;
/// what it held is in Data.
bool DecodeLong(std::span<const uint8_t> Body, Stream& Kept, SampleVector& Data);

/// Decodes a body of a slave without a master in the same way. False for one that ends too early.
bool DecodeShort(std::span<const uint8_t> Body, Stream& Kept, SampleVector& Data);
