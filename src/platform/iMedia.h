// A video clip, as the video windows ask for it: its pictures by number, and when each is to be seen.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// A picture as it is to be seen: turned upright, its pixels square. Rows from the top, 0xFFRRGGBB a pixel.
struct Picture
{
    int Width = 0;
    int Height = 0;
    std::vector<uint32_t> Pixels; // Width x Height

    bool operator==(const Picture&) const = default;
};

/// What is known of a clip. Before the index is whole, Frames and Duration are what its file says.
struct ClipInfo
{
    int Width = 0; // pixels as displayed
    int Height = 0;
    double Duration = 0; // s, from the first picture to the end of the last
    double Step = 0;     // s, average time of a picture
    int Frames = 0;      // pictures that decode
    std::string Codec;   // its short name
    bool IsCut = false;  // the file ends before it should; Frames are those that are left of it
};

/// All calls come from one thread. Pictures are numbered from 0 in the order in which they are seen; number N is the
/// same picture however it was reached.
class iMedia
{
public:
    virtual ~iMedia() = default;

    /// Opens a clip in place of the one that is open; its index is made in the background. False when it cannot be
    /// rendered (Reason says why); nothing is open then.
    virtual bool Open(const std::string& Path) = 0;

    /// Closes the clip and ends its index's making.
    virtual void Close() = 0;

    /// Why the last call failed, or gave another picture than it was asked for, in words; empty when it did not.
    virtual std::string Reason() const = 0;

    virtual ClipInfo Info() const = 0;

    /// Share of the index that is made, 0 to 1. At 1 it is whole: Info is final, each picture has its number.
    virtual double IndexDone() const = 0;

    /// Waits until the index is whole.
    virtual void WaitForIndex() = 0;

    /// When picture Frame is seen, s from the first picture on. A number past the ends counts as the nearest.
    virtual double TimeOf(int Frame) = 0;

    /// The picture that is seen at Time (s).
    virtual int FrameAt(double Time) = 0;

    /// Picture Frame. A number past the last gives the last, in place of one that is damaged comes one before it, null
    /// when nothing can be decoded (Reason says so).
    virtual std::shared_ptr<const Picture> Frame(int Frame) = 0;
};
