// The simulated logger: what its sensors see, frame by frame, as the bytes that it would send.
#pragma once

#include "core/mGlobData.h"
#include "core/mModes.h"
#include "sim/cFaults.h"
#include "sim/cFrameEncoder.h"
#include "sim/cRig.h"
#include "sim/cRowerModel.h"

#include <string>
#include <vector>

/// How a simulated logger works and how its crew rows.
struct LoggerSettings
{
    int Model = ModelMaster;
    int Freq = 25;     // Hz: 25, 50 or 100
    double Rate = 28;  // strokes per minute
    double Spread = 2; // standard deviation of the stroke periods, per cent
    uint64_t Seed = 1;
    std::vector<int> Kinds = {KindAll}; // frame kinds of a master, in turn
    FaultRates Faults;
    std::vector<RigSettings> Rigs; // none: the crew rows
};

/// The layout of a session's logger when it is of that model.
FrameLayout LayoutOf(const DataFile& File, int Model);

/// A logger with the channels of a session. Where the frames go, and when, is the business of who asks for them.
class cLogger
{
public:
    /// The layout must be possible. Reference tables of the session must be loaded.
    cLogger(const DataFile& File, const LoggerSettings& Settings);
    cLogger(const cLogger&) = delete;
    cLogger& operator=(const cLogger&) = delete;

    /// Time of the next frame in seconds from the first.
    double Time() const;

    /// Appends what arrives of the next frame: nothing when it is lost.
    void NextFrame(std::vector<uint8_t>& Out);

    /// Frames sent so far, those lost included.
    int64_t FrameCnt() const { return Sent; }

    /// The loads that have come to rest on rigs since the last call, a line each.
    std::string News();

    /// The rigs' own curves as a table.
    std::string RigTruth() const;

    const FaultCounts& FaultsDone() const { return Faults.Done(); }
    cRowerModel& Model() { return Rower; }

private:
    struct Channel
    {
        CalibrRow Row;
        Sensor Source;
        double Rest = 0; // count of a channel without a known sensor
        int32_t MaxCount = 0;
        double Last = 0; // count sent before
    };

    int64_t Millis() const { return (Sent + 1) * (1000 / Settings.Freq); }
    void MountRigs(const DataFile& File);
    int32_t CountNow(Channel& Each, double T);

    LoggerSettings Settings;
    cRowerModel Rower;
    cFrameEncoder Encoder;
    cFaults Faults;
    cRandom Noise;
    std::vector<Channel> Channels; // from channel 1
    std::vector<int32_t> Counts;   // by channel number
    std::vector<cRig> Rigs;
    std::vector<uint8_t> Frame;
    int64_t Sent = 0;
};
