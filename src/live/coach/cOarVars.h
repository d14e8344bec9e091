// The seven stroke variables of one oar, computed sample by sample from its angle and its force.
#pragma once

#include "core/mGlobData.h"

#include <array>
#include <cstdint>
#include <string>

/// The variables in the order of the columns of the targets.
enum eOarVar : int
{
    VarCatch,     // degrees
    VarFinish,    // degrees
    VarTotal,     // degrees
    VarAverForce, // unit of the force channel, as are the two below
    VarMaxForce,
    VarWork,  // times metres
    VarPower, // work per second
    OarVarCnt
};

class cOarVars
{
public:
    /// Begins anew with the oar of a seat: Side is 0 for a sweep oar, 3 for the right scull, 4 for the left one. Of
    /// several rows for one channel, and for the rig, the last one holds.
    void InitVars(int16_t InitSeat, int16_t InitSide);

    /// Takes the newest sample. The first one only fills the last angle and force. Allocates nothing.
    void CalcData();

    /// Variable number Index of the last stroke; 0 for an index that has no variable.
    double GetLastVal(int Index) const { return ValueOf(LastVals, Index); }

    /// The mean over all strokes.
    double GetAverVal(int Index) const { return ValueOf(AverVals, Index); }

    /// What the variable lacks, in words, as "no force channel (H3 or G3)"; "" when it can be formed.
    std::string Missing(int Index) const;
    bool Has(int Index) const;

    /// From the finish until the oar moves into the next drive.
    bool IsFinish() const { return HasFinished; }

    /// From the catch to the finish.
    bool IsDrive() const { return IsDriving; }

    int32_t StrokeCnt() const { return Strokes; }

    /// Moment of the last finish in seconds, 0 without one.
    double FinishTime() const { return FinishT; }

private:
    using Vars = std::array<double, OarVarCnt>;

    static double ValueOf(const Vars& Values, int Index);
    void FindRig();
    void FindChannels();
    void GoBack();
    void GoForth();
    void Finish();
    void Catch();
    void ZeroForce();
    void CalcAverages();

    int16_t Seat = 0;
    int16_t Side = 0;
    int16_t ChanA = 0; // 0: there is none
    int16_t ChanF = 0;
    CalibrRow AngleRow;
    CalibrRow ForceRow; // its Q0 as in the session
    double ForceQ0 = 0; // follows the recoveries
    bool IsGate = false;
    bool HasRig = false;
    double Inboard = 0; // m, effective
    double OarLen = 0;  // m, effective
    double FRatio = 1;  // force at the handle per measured unit
    double ArcK = 0;    // m of the handle's way per degree

    bool HasSamples = false;
    double T = 0; // s
    double A = 0; // degrees
    double F = 0;
    double PrevA = 0;
    double PrevF = 0;
    double DA = 0;
    double PrevDA = 0;

    double MaxF = 0;
    double SumF = 0;
    double WorkSum = 0;
    int DriveCnt = 0; // samples
    double FinishT = 0;
    double RecSumF = 0; // forces of the recovery
    int RecCnt = 0;
    bool HasFinished = false;
    bool IsDriving = false;
    int32_t Strokes = 0;
    Vars StrokeVars{};
    Vars LastVals{};
    Vars SumVals{};
    Vars AverVals{};
};
