// The index of a clip: its packets in the order of the file, and which of them is which picture.
#pragma once

#include "platform/ffmpeg/mFFmpeg.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// What is kept of a packet.
struct PacketRow
{
    int64_t Pts = 0; // AV_NOPTS_VALUE: not known
    int64_t Dts = 0;
    int64_t Place = 0; // byte in the file, -1: not known
    int64_t Duration = 0;
    uint64_t Print = 0; // of its data
    bool IsKey = false;
    bool IsHidden = false; // decoded, never seen
};

class sClipTable
{
public:
    /// Adds a packet of the stream, the next in the file.
    void Add(const AVPacket& Packet, AVCodecID Codec);

    /// Whether the time stamps alone tell the order of the pictures.
    bool HasOrder() const;

    /// The pictures are all packets that are seen, but for those in Missing, ordered by time.
    void OrderByTime(std::span<const int32_t> Missing);

    /// The pictures are those of these packets, in that order.
    void SetOrder(std::vector<int32_t> Packets);

    /// Finds when each picture is seen. Base: s, of the time stamps; Usual: s, time of a picture where nothing else is
    /// known.
    void FindTimes(double Base, double Usual);

    /// Whether the file ends before it should.
    bool IsCut() const { return Cut; }
    void SetCut(bool On) { Cut = On; }

    int32_t Pictures() const { return static_cast<int32_t>(PacketOf.size()); }
    double Duration() const { return Length; }
    double Step() const;
    double TimeOf(int32_t Picture) const { return Times[static_cast<std::size_t>(Picture)]; }
    int32_t PictureAt(double Time) const;

    int32_t PacketOfPicture(int32_t Picture) const { return PacketOf[static_cast<std::size_t>(Picture)]; }

    /// Number of the packet's picture, -1 when it has none.
    int32_t PictureOf(int64_t Packet) const;

    /// The packet that decoding a picture begins with: the last key packet ahead of it whose own picture is not later;
    /// pictures that follow a key packet and are seen before it need the group before. Before: only earlier ones than
    /// that count. 0 when there is none.
    int32_t KeyFor(int32_t Picture, int32_t Before) const;

    /// Number of a packet that was read anywhere in the file; nothing when it is none of the table or cannot be told
    /// from another.
    std::optional<int32_t> Find(const AVPacket& Packet) const;

    const std::vector<PacketRow>& Packets() const { return Rows; }

private:
    bool StampsIn(int64_t PacketRow::*Stamp, std::vector<int64_t>& Into) const;
    void FindLength(double Base, double Usual);

    std::vector<PacketRow> Rows;
    std::vector<int32_t> PacketOf; // by picture
    std::vector<int32_t> NumberOf; // by packet
    std::vector<int32_t> Keys;     // packets
    std::vector<std::pair<uint64_t, int32_t>> Prints;
    std::vector<double> Times; // s, from the first picture on
    double Length = 0;
    bool Cut = false;
};
