// Boundaries found on the model's own curves, finer than any sampling.
#include "sim/cTruth.h"

#include "base/mNumText.h"
#include "core/mModes.h"
#include "sim/cErgRower.h"

#include <array>
#include <functional>

namespace {
constexpr double ScanStep = 0.005;   // s, finer than any movement of an oar
constexpr double SlopeStep = 0.0005; // s to either side
constexpr double TimeError = 1e-7;   // s

using Curve = std::function<double(double)>;

double SlopeOf(const Curve& Signal, double T)
{
    return Signal(T + SlopeStep) - Signal(T - SlopeStep);
}

// A curve that crosses 0 upward where a stroke begins; none for an unknown mode.
Curve BoundaryCurve(const Curve& Signal, int KeyMode, double Threshold)
{
    switch (KeyMode) {
    case KeyDecreasing:
        return [=](double T) { return Threshold - Signal(T); };
    case KeyIncreasing:
        return [=](double T) { return Signal(T) - Threshold; };
    case KeyMinimum:
        return [=](double T) { return SlopeOf(Signal, T); };
    case KeyMaximum:
        return [=](double T) { return -SlopeOf(Signal, T); };
    default:
        return {};
    }
}

std::vector<double> UpwardZeros(const Curve& Signal, double Stop)
{
    std::vector<double> Zeros;
    double Low = 0;
    double Before = Signal(0);
    while (Low + ScanStep <= Stop) {
        const double High = Low + ScanStep;
        const double Now = Signal(High);
        if (Before < 0 && Now >= 0) {
            double From = Low;
            double To = High;
            while (To - From > TimeError) {
                const double Middle = (From + To) / 2;
                (Signal(Middle) < 0 ? From : To) = Middle;
            }
            Zeros.push_back(To);
        }
        Before = Now;
        Low = High;
    }
    return Zeros;
}
} // namespace

CalibrRow ChannelOfSeat1(const DataFile& File, char Kind)
{
    for (const CalibrRow& Row : File.Calibr)
        if (Row.Seat == 1 && Row.ParamID.starts_with(Kind)) return Row;
    CalibrRow Plain;
    Plain.ParamID = {Kind, '1'};
    return Plain;
}

namespace {
void SetErg(TrueStroke& New, const Oar& Rower, const Stroke& Around)
{
    New.CatchAngle = ErgCatch(Rower, Around);
    New.FinishAngle = ErgFinish(Rower, Around);
    New.SeatTurnT = New.CatchT - SeatLead;
    New.TrunkTurnT = New.FinishT - TrunkLead;
    New.Work = ErgWork(Rower, Around);
}

using Figures = std::vector<double>;

std::string AsTable(const char* Heads, const std::vector<TrueStroke>& Strokes, Figures (*Of)(const TrueStroke&))
{
    std::string Text = Heads;
    int Number = 0;
    for (const TrueStroke& Each : Strokes) {
        Text += FormatNum(++Number, "0");
        for (const double Value : Of(Each))
            Text += '\t' + FormatNum(Value, "0.0000");
        Text += '\n';
    }
    return Text;
}
} // namespace

std::vector<TrueStroke> TrueStrokes(const DataFile& File, cRowerModel& Model, double Stop)
{
    const int16_t KeyChan = FindChan(File.Calibr, File.KeyChanID);
    if (KeyChan < 1) return {};
    const Curve Key = Model.SensorOf(File.Calibr[KeyChan]).Value;
    const Curve Boundary = Key ? BoundaryCurve(Key, File.KeyMode, static_cast<double>(File.KeyThres)) : Curve();
    if (!Boundary) return {};

    const Oar Angle = Model.OarOf(ChannelOfSeat1(File, Model.IsErg() ? 'L' : 'A'));
    const Oar Force = Model.OarOf(ChannelOfSeat1(File, 'H'));
    const std::vector<double> Starts = UpwardZeros(Boundary, Stop);
    std::vector<TrueStroke> Found;
    for (std::size_t i = 0; i + 1 < Starts.size(); ++i) {
        cStrokes& Strokes = Model.Strokes();
        // A boundary on the catch itself is found within the time error of it.
        const Stroke& Around = Strokes.At(Strokes.NumberAt(Starts[i] - Angle.Lag - 2 * TimeError) + 1);
        TrueStroke New;
        New.Start = Starts[i];
        New.Period = Starts[i + 1] - Starts[i];
        New.CatchT = Around.Start + Angle.Lag;
        New.FinishT = Around.FinishTime() + Angle.Lag;
        New.CatchAngle = CatchAngle(Angle, Around);
        New.FinishAngle = FinishAngle(Angle, Around);
        New.PeakForce = PeakForce(Force, Around);
        if (Model.IsErg()) SetErg(New, Angle, Around);
        Found.push_back(New);
    }
    return Found;
}

std::string TruthTable(const std::vector<TrueStroke>& Strokes)
{
    return AsTable("N\tStart\tPeriod\tRate\tCatchT\tFinishT\tDriveT\tCatchAngle\tFinishAngle\tLength\tPeakForce\n",
                   Strokes, [](const TrueStroke& Of) {
                       return Figures{Of.Start,    Of.Period,     Of.Rate(),      Of.CatchT,   Of.FinishT,
                                      Of.DriveT(), Of.CatchAngle, Of.FinishAngle, Of.Length(), Of.PeakForce};
                   });
}

std::string ErgTruthTable(const std::vector<TrueStroke>& Strokes)
{
    return AsTable("N\tStart\tPeriod\tRate\tCatchT\tFinishT\tDriveT\tCatch\tFinish\tLength\tPeakForce\tSeatTurnT\t"
                   "TrunkTurnT\tWork\n",
                   Strokes, [](const TrueStroke& Of) {
                       return Figures{Of.Start,     Of.Period,     Of.Rate(),      Of.CatchT,   Of.FinishT,
                                      Of.DriveT(),  Of.CatchAngle, Of.FinishAngle, Of.Length(), Of.PeakForce,
                                      Of.SeatTurnT, Of.TrunkTurnT, Of.Work};
                   });
}
