// Raw counts as the bytes of a logger's frame, for every logger model.
#pragma once

#include "core/mModes.h"

#include <cstdint>
#include <span>
#include <vector>

/// What a logger sends: its model and its slaves.
struct FrameLayout
{
    int Model = ModelMaster; // eModel
    int SlaveCnt = 0;        // of a master
    int SlaveChans = 8;      // 4, 8 or 16, and 2 more with the extra words
    bool Signed = false;     // slaves send offset values

    bool operator==(const FrameLayout&) const = default;
};

/// Frame kinds: which items of the optional block a master's frame carries.
inline constexpr int KindNone = 0;
inline constexpr int KindWords = 26;  // channels 11 and 12
inline constexpr int KindPlace = 34;  // channels 13 to 16
inline constexpr int KindNoDist = 36; // channels 11 to 15
inline constexpr int KindAll = 38;    // channels 11 to 16

/// Turns counts into frames of one layout.
class cFrameEncoder
{
public:
    /// The layout must be one that IsPossible.
    explicit cFrameEncoder(const FrameLayout& Layout);

    /// Whether some logger sends that layout.
    static bool IsPossible(const FrameLayout& Layout);

    /// Highest channel that a frame can carry.
    int LastChan() const;

    /// Highest count that a frame can carry for a channel.
    int32_t MaxCount(int Chan) const;

    /// Appends a frame: sync byte, head and body. Time in milliseconds; Counts by channel number, a missing one is 0;
    /// each within 0 to MaxCount. Kind matters to a master only.
    void Append(std::vector<uint8_t>& Out, int64_t Time, std::span<const int32_t> Counts, int Kind);

private:
    void AppendLong(std::span<const int32_t> Counts, int Kind);
    void AppendSlave(int Number, std::span<const int32_t> Counts);
    void AppendShort(int64_t Time, std::span<const int32_t> Counts);
    void PutGroups(int64_t Value, int Groups);
    void PutWords(std::span<const int32_t> Counts, int From, int To);
    void PutCentred(std::span<const int32_t> Counts, int From, int To);

    FrameLayout Layout;
    int BlockChans = 0; // of a slave block, without the extra words
    bool HasExtras = false;
    int FrameNo = 0;
    std::vector<uint8_t> Body;
};
