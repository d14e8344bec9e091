// What was simulated: the true strokes of a recording, to compare the measured ones with.
#pragma once

#include "core/mGlobData.h"
#include "sim/cRowerModel.h"

#include <string>
#include <vector>

/// A stroke as the session's key channel cuts it, and the drive that begins in it. Times in seconds from the first
/// frame, angles in degrees, on an ergometer metres of chain, force in newtons at the handle.
struct TrueStroke
{
    double Start = 0; // boundary on the key channel
    double Period = 0;
    double CatchT = 0;
    double FinishT = 0;
    double CatchAngle = 0;
    double FinishAngle = 0;
    double PeakForce = 0;

    // On an ergometer.
    double SeatTurnT = 0;  // the seat's turn at the catch
    double TrunkTurnT = 0; // the trunk's at the finish
    double Work = 0;       // J of the drive

    double Rate() const { return 60 / Period; }
    double DriveT() const { return FinishT - CatchT; }
    double Length() const { return FinishAngle - CatchAngle; }
};

/// The whole strokes between 0 and Stop. Boundaries are those of KeyMode on the session's key channel without noise,
/// the catch, finish and length those of the first angle channel of seat 1, on an ergometer of its handle, the force
/// that of channel H1.
std::vector<TrueStroke> TrueStrokes(const DataFile& File, cRowerModel& Model, double Stop);

/// The first channel of seat 1 whose name begins with Kind; where there is none, what it would be.
CalibrRow ChannelOfSeat1(const DataFile& File, char Kind);

/// The strokes as a table: a header line, then a line a stroke, fields separated by tabs, lines ended by LF.
std::string TruthTable(const std::vector<TrueStroke>& Strokes);

/// The same of strokes on an ergometer, with the turns of seat and trunk and the work.
std::string ErgTruthTable(const std::vector<TrueStroke>& Strokes);
