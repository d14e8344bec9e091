// Figures from the force and the way of the handle, and the frame that carries them.
#include "sim/cMonitor.h"

#include "ergometer/mPMI.h"
#include "platform/mMonitorFrame.h"
#include "sim/cErgRower.h"
#include "sim/cTruth.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr double HandleTravel = 1.4;           // m, of a rower of mean length
constexpr double PoundForce = 4.4482216152605; // N
constexpr double DragPower = 2.8;              // W at 1 m/s; the wheel takes its third power
constexpr double DwellShare = 0.1;             // of the recovery
constexpr int DriveSteps = 400;
constexpr double Tiny = 1e-6; // of a count: what arithmetic may lose of a whole one

// Cut, not rounded, and kept within the bytes that an answer has for it.
int Count(double X, int Bytes)
{
    const int Most = Bytes == 1 ? 0xFF : 0xFFFF;
    return std::clamp(static_cast<int>(X + Tiny), 0, Most);
}

void AppendLow(std::vector<uint8_t>& Bytes, int64_t Number, int Length)
{
    for (int i = 0; i < Length; ++i, Number /= 256)
        Bytes.push_back(static_cast<uint8_t>(Number % 256));
}

// A count and a second one that is added to it.
void AppendSum(std::vector<uint8_t>& Bytes, int64_t Number, int Second)
{
    const int64_t Rest = Number % Second;
    AppendLow(Bytes, Number - Rest, 4);
    AppendLow(Bytes, Rest, 1);
}

std::vector<uint8_t> StatsOf(const MonitorFigures& From)
{
    std::vector<uint8_t> Bytes;
    for (const auto& [Number, Length] : {std::pair{From.StrokeDistance, 2},
                                         {From.Drive, 1},
                                         {From.Recovery, 2},
                                         {From.Length, 1},
                                         {From.Drives, 2},
                                         {From.PeakForce, 2},
                                         {0, 2},
                                         {From.MeanForce, 2},
                                         {From.Work, 2}})
        AppendLow(Bytes, Number, Length);
    return Bytes;
}

void AppendAnswer(std::vector<uint8_t>& Bytes, uint8_t Command, std::span<const uint8_t> Data)
{
    Bytes.push_back(Command);
    Bytes.push_back(static_cast<uint8_t>(Data.size()));
    Bytes.insert(Bytes.end(), Data.begin(), Data.end());
}

// A number of two bytes with its unit behind it.
void AppendMeasure(std::vector<uint8_t>& Bytes, uint8_t Command, int Number, uint8_t Unit)
{
    std::vector<uint8_t> Data;
    AppendLow(Data, Number, 2);
    Data.push_back(Unit);
    AppendAnswer(Bytes, Command, Data);
}

std::vector<uint8_t> ReplyOf(const MonitorFigures& From, bool Toggle)
{
    constexpr uint8_t SecondsPerKm = 57;
    constexpr uint8_t StrokesPerMinute = 84;
    constexpr uint8_t Watts = 88;
    std::vector<uint8_t> Bytes = {static_cast<uint8_t>(Toggle ? 0x81 : 0x01)};
    AppendMeasure(Bytes, CommandPace, From.Pace, SecondsPerKm);
    AppendMeasure(Bytes, CommandCadence, From.Cadence, StrokesPerMinute);
    AppendMeasure(Bytes, CommandPower, From.Power, Watts);
    std::vector<uint8_t> Own;
    const auto State = static_cast<uint8_t>(From.State);
    AppendAnswer(Own, OwnStrokeState, {&State, 1});
    std::vector<uint8_t> Time;
    AppendSum(Time, From.Time, 100);
    AppendAnswer(Own, OwnWorkTime, Time);
    std::vector<uint8_t> Distance;
    AppendSum(Distance, From.Distance, 10);
    AppendAnswer(Own, OwnWorkDist, Distance);
    AppendAnswer(Own, OwnStrokeStats, StatsOf(From));
    AppendAnswer(Bytes, CommandUserCfg, Own);
    return PackFrame(Bytes);
}

std::string HexText(std::span<const uint8_t> Bytes)
{
    constexpr const char* Digits = "0123456789ABCDEF";
    std::string Text;
    for (const uint8_t Byte : Bytes) {
        if (!Text.empty()) Text += ' ';
        Text += Digits[Byte / 16];
        Text += Digits[Byte % 16];
    }
    return Text;
}
} // namespace

cMonitor::cMonitor(const DataFile& File, cRowerModel& Model)
    : Strokes(Model.Strokes()), OnErg(Model.IsErg()), Rower(Model.OarOf(ChannelOfSeat1(File, OnErg ? 'L' : 'A'))),
      Force(Model.OarOf(ChannelOfSeat1(File, 'H')))
{
}

cMonitor::Measured cMonitor::Measure(const Stroke& In) const
{
    Measured Sum = OnErg ? MeasureErg(In) : MeasureOar(In);
    Sum.Speed = std::cbrt(Sum.Work / In.Period / DragPower);
    return Sum;
}

cMonitor::Measured cMonitor::MeasureErg(const Stroke& In) const
{
    Measured Sum;
    Sum.Length = ErgFinish(Rower, In) - ErgCatch(Rower, In);
    Sum.Work = ErgWork(Force, In);
    for (int i = 0; i < DriveSteps; ++i)
        Sum.MeanForce += ErgForce(Force, {&In, true, (i + 0.5) / DriveSteps}) / DriveSteps;
    return Sum;
}

// The work is the sum over the handle's way of the force on it.
cMonitor::Measured cMonitor::MeasureOar(const Stroke& In) const
{
    Measured Sum;
    Sum.Length = HandleTravel * Rower.Length * (In.Finish - In.Catch) / (MeanFinish - MeanCatch);
    const double MetresPerDegree = Sum.Length / (FinishAngle(Rower, In) - CatchAngle(Rower, In));
    double Before = CatchAngle(Rower, In);
    for (int i = 0; i < DriveSteps; ++i) {
        const double Pull = HandleForce(Force, {&In, true, (i + 0.5) / DriveSteps});
        const double Angle = OarAngle(Rower, {&In, true, (i + 1.0) / DriveSteps});
        Sum.Work += Pull * (Angle - Before) * MetresPerDegree;
        Sum.MeanForce += Pull / DriveSteps;
        Before = Angle;
    }
    return Sum;
}

void cMonitor::EndDrive(const Stroke& In)
{
    Now.Drive = Count(In.DriveT * 100, 1);
    Now.Length = Count(Running.Length * 100, 1);
    Now.PeakForce = Count(PeakForce(Force, In) / PoundForce * 10, 2);
    Now.MeanForce = Count(Running.MeanForce / PoundForce * 10, 2);
    Now.Work = Count(Running.Work * 10, 2);
    ++Now.Drives;
}

void cMonitor::EndStroke(const Stroke& In)
{
    Rowed += Running.Speed * In.Period;
    Now.Recovery = Count((In.Period - In.DriveT) * 100, 2);
    Now.StrokeDistance = Count(Running.Speed * In.Period * 100, 2);
    Now.Cadence = Count(std::round(60 / In.Period), 2);
    Now.Power = Count(std::round(Running.Work / In.Period), 2);
    Now.Pace = Count(std::round(1000 / Running.Speed), 2);
}

void cMonitor::Begin(int Number)
{
    const Stroke& In = Strokes.At(Number);
    Counted = Number;
    Counts = In.Start + Rower.Lag >= 0;
    HasDriven = false;
    Running = Counts ? Measure(In) : Measured();
}

const MonitorFigures& cMonitor::At(double T)
{
    const double Crew = T - Rower.Lag;
    const int Number = Strokes.NumberAt(Crew);
    if (Counted < 0) Begin(Number);
    const auto Drive = [this](const Stroke& In) {
        if (Counts && !std::exchange(HasDriven, true)) EndDrive(In);
    };
    while (Counted < Number) {
        Drive(Strokes.At(Counted));
        if (Counts) EndStroke(Strokes.At(Counted));
        Begin(Counted + 1);
    }
    const StrokePhase Phase = Strokes.PhaseAt(Crew);
    if (!Phase.IsDrive) Drive(*Phase.In);
    Now.State = Phase.IsDrive ? StateDriving : Phase.Part < DwellShare ? StateDwelling : StateRecovery;
    Now.Time = static_cast<int64_t>(T * 100 + Tiny);
    Now.Distance = static_cast<int64_t>((Rowed + Running.Speed * (Crew - Phase.In->Start)) * 10 + Tiny);
    return Now;
}

std::string cMonitor::NextReply()
{
    const bool Toggle = Polls % 2 != 0;
    return HexText(ReplyOf(At(static_cast<double>(Polls++) * Step), Toggle));
}
