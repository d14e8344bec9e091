// What decoding carries from one frame of a stream to the next, and the streams whose values the windows show.
#pragma once

#include "core/mGlobData.h"

#include <array>
#include <cstdint>
#include <optional>

/// A sample as a frame brings it: element 0 the time in seconds, element Chan the raw count of a channel.
using SampleVector = std::array<double, LastDataChan + 1>;

/// What decoding carries from one frame of a stream to the next. The link, the replay and the file being read each have
/// one of their own.
struct Stream
{
    bool IsOpen = false;             // the link or the replay that it belongs to is open
    std::array<double, 6> LastGPS{}; // last values received of channels 11 to 16, which frames may leave out
    bool SignedADC = false;          // the last slave block held signed samples
    int SlaveChans = 0;              // channels of the last slave block, 0 before any
    double LongTime = 0;             // s, of the last long frame
    double ShortTime = 0;            // s, of the last short frame
    double SampleTime = 0;           // s, as gSampleTime
    double Frequency = 0;            // Hz
    std::optional<double> DeltaT;    // s between the last two frames, the last of which was long
    int32_t FrameCnt = 0;            // frames decoded
    int32_t Missed = 0;              // frames counted as lost
};

/// The streams of the link and of the replay, which exclude each other. Their frames are decoded into gData.
extern Stream gLinkStream;
extern Stream gReplayStream;

/// Whether the last slave block of the link or the replay held signed samples. Lives as long as the program.
extern bool gSignedADC;

/// The last values received of channels 11 to 16. They live as long as the program, so that a stream goes on with those
/// of the stream before. A file that is read beside an open link or replay leaves them alone.
extern std::array<double, 6> gLastGPS;

/// Whether a link or a replay is open.
bool IsLive();

/// A new stream: with the values of channels 11 to 16, the losses and the frequency of the one before.
Stream NewStream();

/// Shows in the documented globals what the last frame of the link or the replay has left in its stream. gFrameCnt is
/// the caller's: windows set it back.
void PublishLive(const Stream& From);

/// Shows what a file that was read to its end has left, unless a link or a replay is open. The link's counts stay.
void PublishFile(const Stream& From);
