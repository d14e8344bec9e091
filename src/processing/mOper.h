// The operations of derived variables: one family on the newest sample, for the live panels, and one on pairs of
// neighbouring points, for the report and the play view. The three forms give different
// numbers for the same operation on purpose.
#pragma once

#include "core/mGlobData.h"
#include "core/mModes.h"

#include <array>
#include <span>
#include <string_view>
#include <vector>

/// What the unit of an operation's result follows from.
enum class eOperUnit
{
    None,      // unknown
    First,     // that of argument 1
    Shared,    // the one that all arguments share
    PerSecond, // that of argument 1 in a second
    Segment,   // that of arguments 1 and 2 in a second
    Power      // of a force along a path
};

/// An operation as users meet it.
struct Operation
{
    int16_t Number; // eOper
    const char* Title;
    int ArgCnt; // arguments that it takes, besides argument 0
    eOperUnit Unit;
};

/// All operations in the order of their numbers.
std::span<const Operation> Operations();

/// The operation of that number, null when there is none.
const Operation* FindOper(int Number);

/// Radians of a degree.
inline constexpr double DegreeRad = 0.017453292519943278;

/// A value as an argument takes it: an angle in degrees, channel Mode 1, becomes the arc of its lever in metres.
inline double ArcValue(const CalibrRow& Row, double X)
{
    return Row.Mode == SensorAngle ? X * Row.Lever * DegreeRad : X;
}

/// The live form: arguments of one sample, and the history that differences need.
class LiveOper
{
public:
    static constexpr int LastArg = 16;

    /// Element 0 is the result, elements 1 and up are the arguments.
    std::array<double, LastArg + 1> ArgVals{};

    int ArgCnt = 0;         // arguments in use, up to LastArg
    bool HasSecond = false; // the second argument has a channel

    /// Puts the result of operation Number, OperNone to OperPower, into ArgVals[0]; OperNone adds, and any other number
    /// leaves it as it is. Time in seconds; the step between samples is gDeltaT. Allocates nothing and cannot fail.
    void DoOper(int Number, double Time);

private:
    double Add() const;
    double SegSpeed(double Time);
    void ShiftHistory();

    double Prev1 = 0; // last two values of argument 1
    double Prev2 = 0;
    double PrevX = 0; // last segment
    double PrevT = 0; // s
};

/// The arguments of a row at a point and at the next one; a result belongs to the middle between them. Elements that
/// no one filled are 0. Reading an argument that the row does not have throws RunError.
class PointPair
{
public:
    PointPair(int ArgCnt, double StepTime);

    std::vector<double> ValA; // at the point, elements 0 to ArgCnt
    std::vector<double> ValB; // at the next point
    double Step;              // s between the two

    /// The report's form of OperNone to OperPower but for OperIntegral; 0 for any other number.
    double DoReportOper(int Number) const;

    /// The play view's form: as the report's, but Average and SegSpeed of a row with too few arguments give 0, and
    /// there is OperArower.
    double DoPlayOper(int Number) const;

private:
    double Mean(int Arg) const;
    double Add() const;
    double Multiplay() const;
    double SegSpeed() const;
    double Power(double Speed) const;
    double Arower() const;
    int ArgCnt() const { return static_cast<int>(ValA.size()) - 1; }
};

/// Integral of one closed cycle with points Dt apart, its mean taken out before and after: point i of the result is
/// the sum of the middles up to i. Throws RunError for fewer than two points.
std::vector<double> GetIntegral(std::span<const double> In, double Dt);

double fMin(std::span<const double> Values);
double fMax(std::span<const double> Values);

/// Whether there is a function of that key.
bool IsRowFunction(std::string_view Key);

/// Value of a function of a row over its curve: MinX, MaxX, DelX, MinY, MaxY, DelY; 0 for another key.
double RowFunction(std::string_view Key, std::span<const double> Xs, std::span<const double> Ys);
