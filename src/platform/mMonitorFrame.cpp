// Stuffing, checksum and the choice of a report.
#include "platform/mMonitorFrame.h"

#include <algorithm>
#include <utility>

namespace {
constexpr uint8_t LowestFlag = 0xF0; // this and the flags below it never stand within a frame
constexpr uint8_t StartFlag = 0xF1;
constexpr uint8_t EndFlag = 0xF2;
constexpr uint8_t StuffFlag = 0xF3; // F0 to F3 are written as this and 0 to 3
constexpr uint8_t HighestStuffed = StuffFlag - LowestFlag;

bool IsFlag(uint8_t Byte)
{
    return Byte >= LowestFlag && Byte <= StuffFlag;
}

void AppendStuffed(std::vector<uint8_t>& Frame, uint8_t Byte)
{
    if (IsFlag(Byte)) {
        Frame.push_back(StuffFlag);
        Byte = static_cast<uint8_t>(Byte - LowestFlag);
    }
    Frame.push_back(Byte);
}

// Takes the stuffing out. False when a byte stands there that frames do not hold.
bool TakeStuffing(std::span<const uint8_t> Inner, std::vector<uint8_t>& Bytes)
{
    for (std::size_t i = 0; i < Inner.size(); ++i) {
        if (Inner[i] == StuffFlag) {
            if (++i == Inner.size() || Inner[i] > HighestStuffed) return false;
            Bytes.push_back(static_cast<uint8_t>(LowestFlag + Inner[i]));
        } else if (IsFlag(Inner[i])) {
            return false;
        } else {
            Bytes.push_back(Inner[i]);
        }
    }
    return true;
}
} // namespace

std::vector<uint8_t> PackFrame(std::span<const uint8_t> Contents)
{
    std::vector<uint8_t> Frame = {StartFlag};
    uint8_t Sum = 0;
    for (const uint8_t Byte : Contents) {
        AppendStuffed(Frame, Byte);
        Sum ^= Byte;
    }
    AppendStuffed(Frame, Sum);
    Frame.push_back(EndFlag);
    return Frame;
}

FrameContents UnpackFrame(std::span<const uint8_t> Frame)
{
    if (Frame.size() < 2 || Frame.front() != StartFlag || Frame.back() != EndFlag) return {eFrameFault::Cut, {}};
    std::vector<uint8_t> Bytes;
    if (!TakeStuffing(Frame.subspan(1, Frame.size() - 2), Bytes)) return {eFrameFault::Stuffing, {}};
    if (Bytes.empty()) return {eFrameFault::Cut, {}};
    uint8_t Sum = 0;
    for (const uint8_t Byte : Bytes)
        Sum ^= Byte; // with the checksum itself this comes to 0
    if (Sum != 0) return {eFrameFault::Checksum, {}};
    Bytes.pop_back();
    return {eFrameFault::None, std::move(Bytes)};
}

std::vector<uint8_t> PackReport(std::span<const uint8_t> Frame)
{
    for (const ReportSize& Size : ReportSizes) {
        if (Frame.size() > Size.Bytes) continue;
        std::vector<uint8_t> Report = {Size.Number};
        Report.insert(Report.end(), Frame.begin(), Frame.end());
        Report.resize(Size.Bytes + 1);
        return Report;
    }
    return {};
}

std::vector<uint8_t> FrameInReport(std::span<const uint8_t> Report)
{
    const auto Start = std::find(Report.begin(), Report.end(), StartFlag);
    const auto End = std::find(Start, Report.end(), EndFlag);
    if (End == Report.end()) return {};
    return {Start, End + 1};
}
