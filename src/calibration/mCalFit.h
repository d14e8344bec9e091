// Second-order fits of calibration points: one curve for all, or one each for the rising and the falling load.
#pragma once

#include "calibration/mCalPoints.h"

#include <array>
#include <optional>
#include <string>

// Why there is no fit.
inline constexpr const char* TooFewPoints = "Too few points";
inline constexpr const char* NoSolution = "No curve fits these points";

/// Coefficients of powers 0 to 2.
using CalCoefs = std::array<double, 3>;

/// Value of the second-order curve Q at X.
double CurveAt(const CalCoefs& Q, double X);

/// The second-order fit of P on L, or of L on P, through all points. Nothing when no finite curve fits them.
std::optional<CalCoefs> FitArr(std::span<const CalPoint> Points, bool XIsLogical);

/// Correlation of measured and fitted physical values, not squared. It counts one point more than there are, so that a
/// perfect fit comes close to 1 only. 0 where there is none.
double CalcCorrel(std::span<const CalPoint> Points, const CalCoefs& Q);

/// A curve and the points chosen for it.
struct CalBranch
{
    CalPoints Points;
    CalCoefs Q{};    // physical value from count
    CalCoefs QInv{}; // count from physical value, for drawing
    double R = 0;    // CalcCorrel
};

/// What became of an analysis.
struct CalAnalysis
{
    bool IsDone = false; // otherwise there are no curves, and Text says why
    CalBranch Up;
    CalBranch Down;   // empty with one curve
    std::string Text; // lines end with CR LF
};

/// One curve through the points within Lo and Hi, from which the part CutOff of their distance is taken at either end.
/// The first and the last point chosen are left out of the fit, the first one of the correlation as well.
CalAnalysis AnalyseOneLine(std::span<const CalPoint> Points, double Lo, double Hi, double CutOff);

/// A curve for points above their predecessor and one for the others, each within the range of the data, limits
/// excluded, less the part CutOff of it at either end. The last point chosen is left out of each fit.
CalAnalysis AnalyseTwoLines(std::span<const CalPoint> Points, double CutOff);
