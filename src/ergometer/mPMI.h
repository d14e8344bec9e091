// What a performance monitor answers: its figures, decoded from the answers to one poll, and their texts.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// The commands that are sent. Each answer begins with the command that it answers.
enum eMonitorCommand : uint8_t
{
    CommandUserCfg = 0x1A, // the wrapper of the monitor's own commands
    CommandVersion = 0x91,
    CommandSerial = 0x94,
    CommandPace = 0xA6,
    CommandCadence = 0xA7,
    CommandPower = 0xB4
};

/// The monitor's own commands, within the wrapper.
enum eOwnCommand : uint8_t
{
    OwnStrokeStats = 0x6E,
    OwnWorkTime = 0xA0,
    OwnWorkDist = 0xA3,
    OwnStrokeState = 0xBF
};

/// The contents of the frame that asks for all figures.
inline constexpr std::array<uint8_t, 10> PollCommand = {
    CommandPace,    CommandCadence, CommandPower, CommandUserCfg, 5,
    OwnStrokeState, OwnWorkTime,    OwnWorkDist,  OwnStrokeStats, 0};

/// States of the stroke as the monitor numbers them.
enum eStrokeState
{
    StateWaiting = 0, // for the wheel to reach its lowest speed
    StateStarting = 1,
    StateDriving = 2,
    StateDwelling = 3, // after the drive
    StateRecovery = 4
};

/// What the longer answer of a newer monitor says of the drive beyond its length.
struct PMForces
{
    double PeakForce = 0; // N
    double AverForce = 0; // N
    double Work = 0;      // J of the stroke
};

struct PMFigures
{
    uint32_t PaceKm = 0;  // s per km
    uint32_t Cadence = 0; // strokes per minute
    uint32_t Power = 0;   // W
    uint16_t StrokeState = 0;
    uint64_t WorkTimeCnt = 0; // 0.01 s
    uint64_t WorkDistCnt = 0; // 0.1 m
    double StrokeDist = 0;    // m
    double DriveTime = 0;     // s
    double RecovTime = 0;     // s
    double StrokeLen = 0;     // m
    uint32_t DriveCount = 0;
    std::optional<PMForces> Forces{};

    double Pace500() const { return PaceKm / 2.0; } // s per 500 m
    double WorkTime() const { return static_cast<double>(WorkTimeCnt) / 100; }
    double WorkDist() const { return static_cast<double>(WorkDistCnt) / 10; }
    std::string Pace500Text() const;  // "02:01.5"
    std::string WorkTimeText() const; // "0:01:02.34"
    std::string WorkDistText() const; // "1234.5"

    /// All of these as one line, as the text boxes show it.
    std::string Line() const;
};

/// The state in one word for the user, the number itself when it is not known.
std::string StrokeStateName(int State);

/// One answer of a frame.
struct PMAnswer
{
    bool IsOwn = false; // stands within the wrapper
    uint8_t Command = 0;
    std::span<const uint8_t> Data;
};

/// The answers that stand behind the status in the contents of a frame, in their order, up to one that is cut.
std::vector<PMAnswer> ParseAnswers(std::span<const uint8_t> Contents);

/// The figures in a reply, a whole frame. Nothing when it is broken or lacks an answer: Fault then says what is wrong,
/// as "the checksum is wrong".
std::optional<PMFigures> DecodePoll(std::span<const uint8_t> Reply, std::string& Fault);

/// A line for the text boxes.
struct PMLine
{
    int64_t Tick = 0; // exchange that it came with, from 0
    int Box = 0;      // 1: the stroke state has changed, 2: a figure of the stroke; 0: a message for both
    std::string Text;
};

/// Which lines a poll adds: remembers the figures before, zeros at first.
class cPMLines
{
public:
    void Take(const PMFigures& New, int64_t Tick, std::vector<PMLine>& Lines);

private:
    PMFigures Prev;
};
