// The frames of a performance monitor, and the USB reports that carry them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Why bytes are no whole frame.
enum class eFrameFault
{
    None,
    Cut,      // start or end is missing
    Stuffing, // a byte stands in it that frames do not hold
    Checksum
};

/// What stands between start and end of a frame, without stuffing and checksum.
struct FrameContents
{
    eFrameFault Fault = eFrameFault::None;
    std::vector<uint8_t> Bytes; // empty when there is a fault
};

/// A whole frame around Contents.
std::vector<uint8_t> PackFrame(std::span<const uint8_t> Contents);

/// The contents of a whole frame.
FrameContents UnpackFrame(std::span<const uint8_t> Frame);

/// A report: its number, and the bytes behind it.
struct ReportSize
{
    uint8_t Number;
    std::size_t Bytes;
};
inline constexpr std::array<ReportSize, 3> ReportSizes = {{{1, 20}, {4, 62}, {2, 120}}};

/// The smallest report that holds a frame: its number, the frame, zeros. Empty when none does.
std::vector<uint8_t> PackReport(std::span<const uint8_t> Frame);

/// The frame in a report, from its start to its end; empty when there is none.
std::vector<uint8_t> FrameInReport(std::span<const uint8_t> Report);
