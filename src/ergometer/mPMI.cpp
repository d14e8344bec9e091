// Answers found by command and length, and times cut to their digits.
#include "ergometer/mPMI.h"

#include "base/mNumText.h"
#include "platform/mMonitorFrame.h"

namespace {
constexpr const char* OutOfRange = "Secs Value out of range";
constexpr uint64_t Minute = 60;
constexpr uint64_t Hour = 3600;
constexpr uint64_t LongestTime = 100 * Hour; // s

constexpr double PoundForce = 4.4482216152605; // N
constexpr double HundredthsPerUnit = 100;
constexpr double TenthsPerUnit = 10;

std::string Whole(uint64_t Number, const char* Pattern = "0")
{
    return FormatNum(static_cast<double>(Number), Pattern);
}

// "02:01", of less than an hour.
std::string MinutesText(uint64_t Seconds)
{
    return Whole(Seconds / Minute, "00") + ":" + Whole(Seconds % Minute, "00");
}

// A number of low bytes first, from byte First on.
uint32_t Number(std::span<const uint8_t> Data, std::size_t First, std::size_t Count)
{
    uint32_t Sum = 0;
    for (std::size_t i = Count; i > 0; --i)
        Sum = Sum << 8U | Data[First + i - 1];
    return Sum;
}

void AppendAnswers(std::span<const uint8_t> Bytes, bool IsOwn, std::vector<PMAnswer>& Found)
{
    for (std::size_t i = 0; i + 2 <= Bytes.size();) {
        const PMAnswer Next{IsOwn, Bytes[i], Bytes.subspan(i + 2)};
        const std::size_t Length = Bytes[i + 1];
        if (Length > Next.Data.size()) return;
        if (!IsOwn && Next.Command == CommandUserCfg)
            AppendAnswers(Next.Data.first(Length), true, Found);
        else
            Found.push_back({IsOwn, Next.Command, Next.Data.first(Length)});
        i += 2 + Length;
    }
}

// An answer that a poll needs: the bytes that it has at least, and what is read from them.
struct Wanted
{
    bool IsOwn;
    uint8_t Command;
    std::size_t Length;
    const char* Name;
    void (*Read)(PMFigures& Into, std::span<const uint8_t> Data);
};

void ReadStrokeStats(PMFigures& Into, std::span<const uint8_t> Data)
{
    Into.StrokeDist = Number(Data, 0, 2) / HundredthsPerUnit;
    Into.DriveTime = Data[2] / HundredthsPerUnit;
    Into.RecovTime = Number(Data, 3, 2) / HundredthsPerUnit;
    Into.StrokeLen = Data[5] / HundredthsPerUnit;
    Into.DriveCount = Number(Data, 6, 2);
    constexpr std::size_t WithForces = 16; // the impulse at 10 has no unit that is known
    if (Data.size() < WithForces) return;
    Into.Forces = {Number(Data, 8, 2) / TenthsPerUnit * PoundForce, Number(Data, 12, 2) / TenthsPerUnit * PoundForce,
                   Number(Data, 14, 2) / TenthsPerUnit};
}

constexpr Wanted WantedAnswers[] = {
    {false, CommandPace, 2, "pace",
     [](PMFigures& Into, std::span<const uint8_t> Data) { Into.PaceKm = Number(Data, 0, 2); }},
    {false, CommandCadence, 2, "cadence",
     [](PMFigures& Into, std::span<const uint8_t> Data) { Into.Cadence = Number(Data, 0, 2); }},
    {false, CommandPower, 2, "power",
     [](PMFigures& Into, std::span<const uint8_t> Data) { Into.Power = Number(Data, 0, 2); }},
    {true, OwnStrokeState, 1, "stroke state",
     [](PMFigures& Into, std::span<const uint8_t> Data) { Into.StrokeState = Data[0]; }},
    {true, OwnWorkTime, 5, "work time",
     [](PMFigures& Into, std::span<const uint8_t> Data) { Into.WorkTimeCnt = uint64_t{Number(Data, 0, 4)} + Data[4]; }},
    {true, OwnWorkDist, 5, "work distance",
     [](PMFigures& Into, std::span<const uint8_t> Data) { Into.WorkDistCnt = uint64_t{Number(Data, 0, 4)} + Data[4]; }},
    {true, OwnStrokeStats, 8, "stroke statistics", ReadStrokeStats},
};

const char* FaultText(eFrameFault Fault)
{
    switch (Fault) {
    case eFrameFault::Stuffing:
        return "a byte stands in it that frames do not hold";
    case eFrameFault::Checksum:
        return "the checksum is wrong";
    default:
        return "it is cut";
    }
}

// How the monitor took the frame before: the bits of the status that say so.
const char* StatusText(uint8_t Status)
{
    constexpr const char* Texts[] = {"", "; the monitor refused the command",
                                     "; the command reached the monitor broken", "; the monitor is not ready"};
    return Texts[Status >> 4U & 3U];
}
} // namespace

std::string PMFigures::Pace500Text() const
{
    const uint64_t Tenths = uint64_t{PaceKm} * 5;
    return Tenths / 10 < Hour ? MinutesText(Tenths / 10) + "." + Whole(Tenths % 10) : OutOfRange;
}

std::string PMFigures::WorkTimeText() const
{
    const uint64_t Seconds = WorkTimeCnt / 100;
    if (Seconds >= LongestTime) return OutOfRange;
    return Whole(Seconds / Hour) + ":" + MinutesText(Seconds % Hour) + "." + Whole(WorkTimeCnt % 100, "00");
}

std::string PMFigures::WorkDistText() const
{
    return Whole(WorkDistCnt / 10) + "." + Whole(WorkDistCnt % 10);
}

std::string PMFigures::Line() const
{
    std::string Text = Pace500Text();
    for (const std::string& Cell :
         {Whole(Cadence), Whole(Power), Whole(StrokeState), WorkTimeText(), WorkDistText(), FormatShortest(StrokeDist),
          FormatShortest(DriveTime), FormatShortest(RecovTime), FormatShortest(StrokeLen), Whole(DriveCount)})
        Text += ", " + Cell;
    return Text;
}

std::string StrokeStateName(int State)
{
    constexpr std::array<const char*, 5> Names = {"waiting", "starting", "drive", "dwelling", "recovery"};
    if (State >= 0 && static_cast<std::size_t>(State) < Names.size()) return Names[static_cast<std::size_t>(State)];
    return FormatNum(State, "0");
}

std::vector<PMAnswer> ParseAnswers(std::span<const uint8_t> Contents)
{
    std::vector<PMAnswer> Found;
    if (!Contents.empty()) AppendAnswers(Contents.subspan(1), false, Found);
    return Found;
}

std::optional<PMFigures> DecodePoll(std::span<const uint8_t> Reply, std::string& Fault)
{
    const FrameContents Inner = UnpackFrame(Reply);
    if (Inner.Fault != eFrameFault::None || Inner.Bytes.empty()) {
        Fault = FaultText(Inner.Fault);
        return {};
    }
    const std::vector<PMAnswer> Answers = ParseAnswers(Inner.Bytes);
    PMFigures Figures;
    for (const Wanted& Each : WantedAnswers) {
        const PMAnswer* Answer = nullptr;
        for (const PMAnswer& Has : Answers)
            if (!Answer && Has.IsOwn == Each.IsOwn && Has.Command == Each.Command && Has.Data.size() >= Each.Length)
                Answer = &Has;
        if (!Answer) {
            Fault = std::string("it lacks the answer on ") + Each.Name + StatusText(Inner.Bytes[0]);
            return {};
        }
        Each.Read(Figures, Answer->Data);
    }
    return Figures;
}

void cPMLines::Take(const PMFigures& New, int64_t Tick, std::vector<PMLine>& Lines)
{
    if (New.StrokeState != Prev.StrokeState) Lines.push_back({Tick, 1, New.Line()});
    if (New.StrokeDist != Prev.StrokeDist || New.DriveTime != Prev.DriveTime || New.RecovTime != Prev.RecovTime ||
        New.StrokeLen != Prev.StrokeLen || New.DriveCount != Prev.DriveCount)
        Lines.push_back({Tick, 2, New.Line()});
    Prev = New;
}
