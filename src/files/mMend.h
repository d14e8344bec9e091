// A copy of a recording without its broken bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// What a mended copy holds and what was left out of it.
struct Mending
{
    int32_t Kept = 0;    // frames in the copy
    int32_t Frames = 0;  // left out; where only bytes show it, by the size of the frame behind them
    int64_t Bytes = 0;   // left out, those between frames among them
    int32_t FirstAt = 0; // one-based position of the first of these bytes, 0 when there are none

    /// "3 frames (171 bytes) left out, the first at byte 1205; 2106 frames kept".
    std::string Words() const;
};

/// Copies the frames of a recording that can be decoded into Dest, which is written whole. Where a frame is broken the
/// copy goes on at the next sync byte, be it within that frame, so that it costs its neighbours nothing. A frame of a
/// length that no undisturbed frame of the recording has is broken too: a bit of its length was turned over. Nothing
/// when there is no frame, a file cannot be read or written, Dest is the recording itself, or the user gave up
/// (reported to the user): Dest is as it was.
std::optional<Mending> MendRawFile(const std::string& Path, const std::string& Dest);
